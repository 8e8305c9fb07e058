// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <opencv2/core/types.hpp>

namespace tovarin {

/// Where a piece of text stands on a page: a four-sided figure, in pixels.
struct Quad {
    /// Clockwise as the text is read: its top left corner, top right, bottom right, bottom left.
    std::array<cv::Point2f, 4> corners;

    /// The mean of the two sides along the text.
    float width() const;
    /// The mean of the two sides across the text.
    float height() const;
    cv::Point2f centre() const;
    /// How far the text falls over its width: 0 when level, positive when it falls to the right.
    float slope() const;
    float left() const { return std::min(corners[0].x, corners[3].x); }
    float right() const { return std::max(corners[1].x, corners[2].x); }
};

} // namespace tovarin
