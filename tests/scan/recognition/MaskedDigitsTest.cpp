// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/MaskedDigits.h"

#include "tests/scan/recognition/DrawnLine.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

/// "ab", dots `pitch` columns apart, "1234"; what is made of it when `dots` was read.
QString masked(const QString &dots, const std::vector<cv::Rect> &ink) {
    DrawnLine line(u"ab    1234"_s, u"ab1234"_s, 20);
    for (const cv::Rect &dot : ink)
        line.picture(dot).setTo(cv::Scalar::all(0));
    Glyphs glyphs = line.glyphs;
    for (const QChar dot : dots)
        glyphs.insert(glyphs.end() - 4, Glyph{dot, 1, 0.4F, {}});
    return textOf(withMaskedDigits(glyphs, InkProfile(line.picture)));
}

std::vector<cv::Rect> dotsAt(int y, int count = 4, int width = 6) {
    std::vector<cv::Rect> dots;
    for (int dot = 0; dot < count; ++dot)
        dots.emplace_back(62 + 14 * dot, y, width, 6);
    return dots;
}

} // namespace

TEST(MaskedDigitsTest, AreAsManyAsTheInkShows) {
    for (const QString &read : {u".."_s, u" ·.... "_s, u"."_s, u"***"_s, u"·?."_s, QString()})
        EXPECT_EQ(masked(read, dotsAt(DrawnLine::top + 9)), u"ab •••• 1234"_s)
            << read.toStdString();
    EXPECT_EQ(masked(u"..."_s, dotsAt(DrawnLine::top + 9, 3)), u"ab ••• 1234"_s);
}

TEST(MaskedDigitsTest, MayTouch) {
    const int y = DrawnLine::top + 8;
    const std::vector<cv::Rect> dots = {{62, y, 8, 8}, {73, y, 19, 8}, {95, y, 8, 8}};
    EXPECT_EQ(masked(u"."_s, dots), u"ab •••• 1234"_s);
}

TEST(MaskedDigitsTest, AreNotFullStops) {
    EXPECT_EQ(masked(u"..."_s, dotsAt(DrawnLine::top + DrawnLine::height - 6)), u"ab...1234"_s);
}

TEST(MaskedDigitsTest, AreNotStarsNorLettersNorStrayMarks) {
    const std::vector<cv::Rect> dots = dotsAt(DrawnLine::top + 9);
    EXPECT_EQ(masked(u"****"_s, dots), u"ab****1234"_s);
    EXPECT_EQ(masked(QString(), dotsAt(DrawnLine::top + 3)), u"ab1234"_s);
    EXPECT_EQ(masked(u"xx"_s, dots), u"abxx1234"_s);
    EXPECT_EQ(masked(QString(), dotsAt(DrawnLine::top + 9, 3)), u"ab1234"_s);
    EXPECT_EQ(masked(u"--"_s, dotsAt(DrawnLine::top + 9, 4, 12)), u"ab--1234"_s);
    const int y = DrawnLine::top + 9;
    EXPECT_EQ(masked(u".."_s, {{62, y, 6, 6}, {72, y, 6, 6}, {92, y, 6, 6}, {102, y, 6, 6}}),
              u"ab..1234"_s);
}

} // namespace tovarin
