// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/ReadingOrder.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <optional>

namespace tovarin {

namespace {

// Pieces of a row overlap by at least this share of the lower one's height ...
constexpr float leastOverlap = 0.55F;
// ... and only the rows begun last can still be met from above.
constexpr std::size_t rowsInReach = 4;
// Slopes are taken from pieces at least this many times as wide as high.
constexpr float wide = 3;

float median(std::vector<float> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

/// The slope of the page's text as base + change · y.
struct Slope {
    float base = 0;
    float change = 0;
};

/// The line that most of the wide pieces agree on (Theil–Sen).
Slope slopeOf(const std::vector<Quad> &pieces) {
    std::vector<cv::Point2f> samples;
    std::vector<float> slopes;
    for (const Quad &piece : pieces) {
        if (piece.width() > wide * piece.height()) {
            samples.emplace_back(piece.centre().y, piece.slope());
            slopes.push_back(piece.slope());
        }
    }
    if (samples.empty())
        return {};
    if (samples.size() < 5)
        return {median(slopes), 0};
    std::vector<float> changes;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            const cv::Point2f step = samples[i] - samples[j];
            if (std::abs(step.x) > 40)
                changes.push_back(step.y / step.x);
        }
    }
    const float change = changes.empty() ? 0 : median(changes);
    std::ranges::transform(samples, slopes.begin(),
                           [change](cv::Point2f sample) { return sample.y - change * sample.x; });
    return {median(slopes), change};
}

/// Lays the pieces into rows one by one, from the top down.
class Rows {
public:
    explicit Rows(const std::vector<Quad> &pieces) : m_pieces(pieces), m_heights(pieces.size()) {
        const Slope slope = slopeOf(pieces);
        float middle = 0;
        for (const Quad &piece : pieces)
            middle += piece.centre().x / static_cast<float>(pieces.size());
        std::ranges::transform(pieces, m_heights.begin(), [&](const Quad &piece) {
            const cv::Point2f centre = piece.centre();
            return centre.y - (slope.base + slope.change * centre.y) * (centre.x - middle);
        });

        std::vector<std::size_t> order(pieces.size());
        std::iota(order.begin(), order.end(), 0);
        std::ranges::stable_sort(order, {}, [this](std::size_t i) { return m_heights[i]; });
        for (const std::size_t piece : order)
            place(piece);
    }

    std::vector<std::vector<std::size_t>> sorted() {
        const auto height = [this](const std::vector<std::size_t> &row) {
            float sum = 0;
            for (const std::size_t piece : row)
                sum += m_heights[piece];
            return sum / static_cast<float>(row.size());
        };
        std::ranges::stable_sort(m_rows, {}, height);
        for (std::vector<std::size_t> &row : m_rows)
            std::ranges::stable_sort(row, {}, [this](std::size_t i) { return centre(i).x; });
        return std::move(m_rows);
    }

private:
    cv::Point2f centre(std::size_t piece) const { return m_pieces[piece].centre(); }

    void place(std::size_t piece) {
        std::vector<std::size_t> *best = nullptr;
        float bestOverlap = leastOverlap;
        const std::size_t reach = std::min(rowsInReach, m_rows.size());
        for (std::size_t back = 1; back <= reach; ++back) {
            std::vector<std::size_t> &row = m_rows[m_rows.size() - back];
            const std::optional<float> overlap = overlapWith(row, piece);
            if (overlap && *overlap > bestOverlap) {
                bestOverlap = *overlap;
                best = &row;
            }
        }
        if (best == nullptr)
            best = &m_rows.emplace_back();
        best->push_back(piece);
    }

    /// The share of their heights that the piece and its neighbour in the row have in common; no
    /// value when the piece would stand on another one of the row.
    std::optional<float> overlapWith(const std::vector<std::size_t> &row, std::size_t piece) const {
        const Quad &quad = m_pieces[piece];
        std::size_t neighbour = row.front();
        float nearest = std::numeric_limits<float>::max();
        for (const std::size_t other : row) {
            const Quad &there = m_pieces[other];
            const float common =
                std::min(quad.right(), there.right()) - std::max(quad.left(), there.left());
            // The boxes of neighbours may overlap at their rims: they are wider than their ink.
            if (common > std::min(quad.height(), std::min(quad.width(), there.width()) / 2))
                return std::nullopt;
            const float gap =
                std::abs(centre(other).x - centre(piece).x) - (there.width() + quad.width()) / 2;
            if (gap < nearest) {
                nearest = gap;
                neighbour = other;
            }
        }
        const float half = quad.height() / 2;
        const float otherHalf = m_pieces[neighbour].height() / 2;
        const float bottom = std::min(m_heights[piece] + half, m_heights[neighbour] + otherHalf);
        const float top = std::max(m_heights[piece] - half, m_heights[neighbour] - otherHalf);
        return (bottom - top) / (2 * std::min(half, otherHalf));
    }

    const std::vector<Quad> &m_pieces;
    std::vector<float> m_heights; ///< Of the pieces' centres, once the slope is taken out.
    std::vector<std::vector<std::size_t>> m_rows;
};

} // namespace

std::vector<std::vector<std::size_t>> rowsInReadingOrder(const std::vector<Quad> &pieces) {
    return Rows(pieces).sorted();
}

} // namespace tovarin
