// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "scan/recognition/Quad.h"

#include <opencv2/core/mat.hpp>
#include <vector>

namespace tovarin {

/// By how many quarter turns to the right a page has been turned.
class PageTurn {
public:
    /// `size` is that of the page before any turn.
    explicit PageTurn(cv::Size size) : m_size(size) {}

    /// Turns a page, in the state that this tells, by some more quarters to the right.
    cv::Mat turned(const cv::Mat &page, int quarters);

    /// A place on the page as it is now, told in pixels of the page before any turn.
    cv::Point2f original(cv::Point2f point) const;

private:
    cv::Size m_size;
    int m_quarters = 0;
};

/// Whether the text of a page with these pieces runs up or down rather than across.
bool liesOnItsSide(const std::vector<Quad> &pieces);

/// The same pieces on the page turned by 180°; `size` is that of the page.
std::vector<Quad> onTheirHeads(const std::vector<Quad> &pieces, cv::Size size);

/// Positions of up to `count` pieces that tell most about a page: the longest of them.
std::vector<std::size_t> longest(const std::vector<Quad> &pieces, std::size_t count);

} // namespace tovarin
