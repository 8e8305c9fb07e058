// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/Rectification.h"

#include <cmath>
#include <opencv2/imgproc.hpp>

namespace tovarin {

cv::Mat rectified(const cv::Mat &page, const Quad &piece) {
    const auto &[topLeft, topRight, bottomRight, bottomLeft] = piece.corners;
    const auto length = [](double a, double b) {
        return std::max(1, static_cast<int>(std::lround(std::max(a, b))));
    };
    const cv::Size size(length(cv::norm(topLeft - topRight), cv::norm(bottomRight - bottomLeft)),
                        length(cv::norm(topLeft - bottomLeft), cv::norm(topRight - bottomRight)));
    const auto right = static_cast<float>(size.width);
    const auto bottom = static_cast<float>(size.height);
    const std::array<cv::Point2f, 4> flat = {{{0, 0}, {right, 0}, {right, bottom}, {0, bottom}}};
    cv::Mat line;
    cv::warpPerspective(page, line, cv::getPerspectiveTransform(piece.corners, flat), size,
                        cv::INTER_CUBIC, cv::BORDER_REPLICATE);
    if (2 * size.height >= 3 * size.width)
        cv::rotate(line, line, cv::ROTATE_90_COUNTERCLOCKWISE);
    return line;
}

} // namespace tovarin
