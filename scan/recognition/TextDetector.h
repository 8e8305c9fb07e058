// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "scan/recognition/Quad.h"

#include <filesystem>
#include <opencv2/dnn/dnn.hpp>
#include <vector>

namespace tovarin {

/// Finds where text stands on a page, piece by piece, by the detection model: a network that tells
/// for each pixel how likely it lies in the shrunken core of a piece of text ("Real-time Scene Text
/// Detection with Differentiable Binarization", Liao et al., 2020).
class TextDetector {
public:
    /// Throws cv::Exception when the model cannot be read.
    explicit TextDetector(const std::filesystem::path &model);

    /// The pieces of text on a page of 8-bit BGR pixels, in no order that means anything; in pixels
    /// of that page, whatever size the network looked at it in.
    std::vector<Quad> detect(const cv::Mat &page);

    /// The size in which the network looks at a page: multiples of 32, at most about four million
    /// pixels. Large ones it sees strip by strip.
    static cv::Size workingSize(cv::Size page);

private:
    cv::Mat likelihoodOnPage(const cv::Mat &page);
    cv::Mat likelihoodOnStrip(const cv::Mat &strip);

    cv::dnn::Net m_net;
};

} // namespace tovarin
