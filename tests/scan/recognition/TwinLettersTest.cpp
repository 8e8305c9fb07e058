// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/TwinLetters.h"

#include "tests/scan/recognition/DrawnLine.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

/// A word of upright strokes ("|") and broad letters ("o"), of which `read` was read.
QString twinned(const QString &ink, const QString &read) {
    const int step = 12;
    const auto width = [](QChar c) { return c == u'|' ? 5 : 20; };
    int x = 10;
    std::vector<int> begins;
    for (const QChar c : ink) {
        begins.push_back(x);
        x += width(c) + step - 5;
    }
    cv::Mat picture(48, x + 10, CV_8UC3, cv::Scalar::all(255));
    for (qsizetype i = 0; i < ink.size(); ++i)
        picture(cv::Rect(begins[static_cast<std::size_t>(i)], DrawnLine::top, width(ink[i]),
                         DrawnLine::height))
            .setTo(cv::Scalar::all(0));
    Glyphs glyphs;
    for (qsizetype i = 0; i < read.size(); ++i) {
        if (read[i] == u'_')
            continue;
        const int middle = begins[static_cast<std::size_t>(i)] + width(ink[i]) / 2;
        glyphs.push_back({QString(read[i]),
                          1,
                          static_cast<float>(middle) / static_cast<float>(picture.cols),
                          {}});
    }
    return textOf(withTwinLetters(glyphs, InkProfile(picture)));
}

} // namespace

TEST(TwinLettersTest, AreDoubledWhereAStrokeWasNotRead) {
    EXPECT_EQ(twinned(u"|||oo"_s, u"Il_um"_s), u"Illum"_s);
    EXPECT_EQ(twinned(u"|||oo"_s, u"l_lum"_s), u"lllum"_s);
    EXPECT_EQ(twinned(u"oo||o"_s, u"Hel_a"_s), u"Hella"_s);
    EXPECT_EQ(twinned(u"||oo"_s, u"I_um"_s), u"Ilum"_s);
}

TEST(TwinLettersTest, AreNotInvented) {
    EXPECT_EQ(twinned(u"|||oo"_s, u"Illum"_s), u"Illum"_s);
    EXPECT_EQ(twinned(u"|ooo"_s, u"lu_m"_s), u"lum"_s);
    EXPECT_EQ(twinned(u"||oo"_s, u"t_um"_s), u"tum"_s);
    EXPECT_EQ(twinned(u"|||oo"_s, u"1i_um"_s), u"1ium"_s);
    EXPECT_EQ(twinned(u"||ooo"_s, u"l__um"_s), u"lum"_s);
    // A "b" in two parts.
    cv::Mat picture(48, 90, CV_8UC3, cv::Scalar::all(255));
    for (const auto &[x, width] : {std::pair(10, 5), {24, 5}, {31, 12}, {50, 24}})
        picture(cv::Rect(x, DrawnLine::top, width, DrawnLine::height)).setTo(cv::Scalar::all(0));
    const Glyphs glyphs = {
        {u"l"_s, 1, 12 / 90.F, {}}, {u"b"_s, 1, 34 / 90.F, {}}, {u"o"_s, 1, 62 / 90.F, {}}};
    ASSERT_EQ(InkProfile(picture).runs().size(), 4U);
    EXPECT_EQ(textOf(withTwinLetters(glyphs, InkProfile(picture))), u"lbo"_s);
}

} // namespace tovarin
