// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/PageTurn.h"

#include "scan/recognition/Rectification.h"
#include "scan/recognition/TextDetector.h"

#include <gtest/gtest.h>

#include <opencv2/core.hpp>

namespace tovarin {

namespace {

Quad piece(float x, float y, float width, float height) {
    return {{{{x, y}, {x + width, y}, {x + width, y + height}, {x, y + height}}}};
}

} // namespace

TEST(PageTurnTest, FindsEachPixelOfTheTurnedPageOnTheOriginal) {
    cv::Mat page(5, 7, CV_8UC3);
    cv::randu(page, 0, 255);
    for (int quarters = 0; quarters < 8; ++quarters) {
        PageTurn turn(page.size());
        const cv::Mat first = turn.turned(page, quarters / 2);
        const cv::Mat turned = turn.turned(first, quarters - quarters / 2);
        for (int y = 0; y < turned.rows; ++y) {
            for (int x = 0; x < turned.cols; ++x) {
                const cv::Point there =
                    turn.original({static_cast<float>(x), static_cast<float>(y)});
                EXPECT_EQ(turned.at<cv::Vec3b>(y, x), page.at<cv::Vec3b>(there)) << quarters;
            }
        }
    }
}

TEST(PageTurnTest, SeesThatAPageLiesOnItsSide) {
    const Quad across = piece(0, 0, 100, 20);
    const Quad along = piece(0, 0, 20, 90);
    const Quad square = piece(0, 0, 200, 180);
    EXPECT_FALSE(liesOnItsSide({}));
    EXPECT_FALSE(liesOnItsSide({across}));
    EXPECT_FALSE(liesOnItsSide({across, along, square}));
    EXPECT_FALSE(liesOnItsSide({square}));
    EXPECT_TRUE(liesOnItsSide({across, along, along}));
}

TEST(PageTurnTest, TurnsPiecesAsItTurnsThePage) {
    const std::vector<Quad> turned = onTheirHeads({piece(10, 20, 30, 10)}, {100, 200});
    ASSERT_EQ(turned.size(), 1U);
    EXPECT_EQ(turned[0].corners[0], cv::Point2f(59, 169));
    EXPECT_EQ(turned[0].corners[1], cv::Point2f(89, 169));
    EXPECT_EQ(turned[0].corners[2], cv::Point2f(89, 179));
    EXPECT_EQ(turned[0].corners[3], cv::Point2f(59, 179));
}

TEST(PageTurnTest, SamplesTheLongestPieces) {
    const std::vector<Quad> pieces = {piece(0, 0, 50, 10), piece(0, 0, 10, 10),
                                      piece(0, 0, 90, 10)};
    EXPECT_EQ(longest(pieces, 2), (std::vector<std::size_t>{2, 0}));
    EXPECT_EQ(longest(pieces, 9), (std::vector<std::size_t>{2, 0, 1}));
}

TEST(RectificationTest, CutsOutWhatThePieceCovers) {
    cv::Mat page(60, 80, CV_8UC3, cv::Scalar::all(255));
    page(cv::Rect(20, 10, 40, 12)).setTo(cv::Scalar(0, 0, 255));
    const cv::Mat line = rectified(page, piece(20, 10, 40, 12));
    EXPECT_EQ(line.size(), cv::Size(40, 12));
    EXPECT_EQ(line.at<cv::Vec3b>(6, 20), cv::Vec3b(0, 0, 255));
    EXPECT_EQ(line.at<cv::Vec3b>(1, 1), cv::Vec3b(0, 0, 255));
}

TEST(RectificationTest, LaysDownTextThatStandsUp) {
    const cv::Mat page(60, 80, CV_8UC3, cv::Scalar::all(255));
    EXPECT_EQ(rectified(page, piece(5, 5, 20, 30)).size(), cv::Size(30, 20));
    EXPECT_EQ(rectified(page, piece(5, 5, 20, 29)).size(), cv::Size(20, 29));
}

TEST(TextDetectorTest, LooksAtPagesInASizeItCanManage) {
    EXPECT_EQ(TextDetector::workingSize({960, 640}), cv::Size(960, 640));
    EXPECT_EQ(TextDetector::workingSize({1170, 2532}), cv::Size(576, 1280));
    EXPECT_EQ(TextDetector::workingSize({375, 812}), cv::Size(576, 1280));
    EXPECT_EQ(TextDetector::workingSize({100, 50}), cv::Size(192, 96));
    EXPECT_EQ(TextDetector::workingSize({1, 1}), cv::Size(32, 32));
    for (const cv::Size page :
         {cv::Size(12000, 12000), cv::Size(30000, 20), cv::Size(400, 20000)}) {
        const cv::Size size = TextDetector::workingSize(page);
        EXPECT_EQ(size.width % 32, 0);
        EXPECT_EQ(size.height % 32, 0);
        EXPECT_LE(size.area(), 4'200'000) << page;
    }
}

} // namespace tovarin
