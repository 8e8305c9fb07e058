// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/Quad.h"

#include <cmath>

namespace tovarin {

namespace {

float distance(cv::Point2f a, cv::Point2f b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

} // namespace

float Quad::width() const {
    return (distance(corners[0], corners[1]) + distance(corners[3], corners[2])) / 2;
}

float Quad::height() const {
    return (distance(corners[0], corners[3]) + distance(corners[1], corners[2])) / 2;
}

cv::Point2f Quad::centre() const {
    return (corners[0] + corners[1] + corners[2] + corners[3]) * 0.25F;
}

float Quad::slope() const {
    const cv::Point2f along = corners[1] + corners[2] - corners[0] - corners[3];
    return along.x == 0 ? 0 : along.y / along.x;
}

} // namespace tovarin
