// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/PageTurn.h"

#include <algorithm>
#include <numeric>
#include <opencv2/core.hpp>

namespace tovarin {

namespace {

// Pieces this many times as long as thick have a direction.
constexpr float elongated = 1.5F;

float length(const Quad &piece) {
    return std::max(piece.width(), piece.height());
}

} // namespace

cv::Mat PageTurn::turned(const cv::Mat &page, int quarters) {
    m_quarters = (m_quarters + quarters) % 4;
    cv::Mat result;
    switch (quarters % 4) {
    case 1:
        cv::rotate(page, result, cv::ROTATE_90_CLOCKWISE);
        return result;
    case 2:
        cv::rotate(page, result, cv::ROTATE_180);
        return result;
    case 3:
        cv::rotate(page, result, cv::ROTATE_90_COUNTERCLOCKWISE);
        return result;
    default:
        return page;
    }
}

cv::Point2f PageTurn::original(cv::Point2f point) const {
    const auto right = static_cast<float>(m_size.width - 1);
    const auto bottom = static_cast<float>(m_size.height - 1);
    switch (m_quarters) {
    case 1:
        return {point.y, bottom - point.x};
    case 2:
        return {right - point.x, bottom - point.y};
    case 3:
        return {right - point.y, point.x};
    default:
        return point;
    }
}

bool liesOnItsSide(const std::vector<Quad> &pieces) {
    float across = 0;
    float along = 0;
    for (const Quad &piece : pieces) {
        if (piece.width() >= elongated * piece.height())
            across += length(piece);
        else if (piece.height() >= elongated * piece.width())
            along += length(piece);
    }
    return along > across;
}

std::vector<Quad> onTheirHeads(const std::vector<Quad> &pieces, cv::Size size) {
    const cv::Point2f corner(static_cast<float>(size.width - 1),
                             static_cast<float>(size.height - 1));
    std::vector<Quad> result;
    for (const Quad &piece : pieces) {
        const auto &[topLeft, topRight, bottomRight, bottomLeft] = piece.corners;
        result.push_back(
            {{corner - bottomRight, corner - bottomLeft, corner - topLeft, corner - topRight}});
    }
    return result;
}

std::vector<std::size_t> longest(const std::vector<Quad> &pieces, std::size_t count) {
    std::vector<std::size_t> order(pieces.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_sort(order, std::ranges::greater(), [&pieces](std::size_t i) {
        return pieces[i].width() / pieces[i].height();
    });
    order.resize(std::min(count, order.size()));
    return order;
}

} // namespace tovarin
