// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <opencv2/dnn/dnn.hpp>

namespace tovarin {

/// Reads one of the models that tools/text-models makes. Throws cv::Exception when it cannot.
///
/// They hold two kinds of layer that OpenCV 4.6 does not have, or takes several times as long for:
/// TovarinDepthwise, a convolution of 3×3 or 5×5 pixels that keeps each channel to itself, padded
/// with zeros, and TovarinHardSwish, x · clip(x + 3, 0, 6) / 6 + offset.
cv::dnn::Net readModel(const std::filesystem::path &model);

} // namespace tovarin
