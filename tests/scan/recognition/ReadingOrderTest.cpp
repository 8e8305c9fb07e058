// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/ReadingOrder.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tovarin {

namespace {

using Rows = std::vector<std::vector<std::size_t>>;

/// A level piece by its left top corner and its size.
Quad piece(float x, float y, float width, float height = 20) {
    return {{{{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}}}};
}

/// The pieces as a camera held askew sees them.
std::vector<Quad> tilted(std::vector<Quad> pieces, float degrees) {
    const float angle = degrees * 3.14159265F / 180;
    for (Quad &quad : pieces) {
        for (cv::Point2f &corner : quad.corners)
            corner = {corner.x * std::cos(angle) - corner.y * std::sin(angle),
                      corner.x * std::sin(angle) + corner.y * std::cos(angle)};
    }
    return pieces;
}

} // namespace

TEST(ReadingOrder, OfNothingIsNothing) {
    EXPECT_EQ(rowsInReadingOrder({}), Rows());
}

TEST(ReadingOrder, PutsALabelBeforeItsValue) {
    const std::vector<Quad> pieces = {piece(300, 102, 80), piece(10, 100, 90), piece(310, 40, 70),
                                      piece(10, 41, 60)};
    EXPECT_EQ(rowsInReadingOrder(pieces), (Rows{{3, 2}, {1, 0}}));
}

TEST(ReadingOrder, KeepsRowsApartThatOverlapByLessThanHalf) {
    EXPECT_EQ(rowsInReadingOrder({piece(10, 100, 90), piece(300, 110, 80)}), (Rows{{0}, {1}}));
    EXPECT_EQ(rowsInReadingOrder({piece(10, 100, 90), piece(300, 108, 80)}), (Rows{{0, 1}}));
}

TEST(ReadingOrder, TakesTheSmallerHeightForTheOverlap) {
    EXPECT_EQ(rowsInReadingOrder({piece(10, 100, 200, 60), piece(300, 120, 80, 16)}),
              (Rows{{0, 1}}));
}

TEST(ReadingOrder, NeverPutsAPieceOnAnother) {
    EXPECT_EQ(rowsInReadingOrder({piece(10, 100, 200), piece(50, 104, 200)}), (Rows{{0}, {1}}));
}

TEST(ReadingOrder, KeepsNeighboursInARowWhoseRimsOverlap) {
    EXPECT_EQ(rowsInReadingOrder({piece(188, 100, 90), piece(10, 101, 195)}), (Rows{{1, 0}}));
    EXPECT_EQ(rowsInReadingOrder({piece(180, 100, 90), piece(10, 101, 195)}), (Rows{{0}, {1}}));
    EXPECT_EQ(rowsInReadingOrder({piece(188, 100, 20), piece(10, 101, 195)}), (Rows{{0}, {1}}));
}

TEST(ReadingOrder, FollowsATiltedPage) {
    std::vector<Quad> pieces;
    Rows expected;
    for (std::size_t row = 0; row < 12; ++row) {
        const auto y = static_cast<float>(40 * row);
        pieces.push_back(piece(600, y, 120));
        pieces.push_back(piece(0, y, 160));
        expected.push_back({2 * row + 1, 2 * row});
    }
    for (const float degrees : {-8.F, -3.F, 0.F, 3.F, 8.F})
        EXPECT_EQ(rowsInReadingOrder(tilted(pieces, degrees)), expected) << degrees;
}

TEST(ReadingOrder, OfThePiecesDoesNotDependOnTheirOrder) {
    const std::vector<Quad> pieces = {piece(10, 0, 90), piece(300, 2, 80), piece(10, 40, 60)};
    EXPECT_EQ(rowsInReadingOrder(pieces), (Rows{{0, 1}, {2}}));
    EXPECT_EQ(rowsInReadingOrder({pieces[2], pieces[1], pieces[0]}), (Rows{{2, 1}, {0}}));
}

} // namespace tovarin
