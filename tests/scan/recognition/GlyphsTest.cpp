// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// What is done to the glyphs of a line once the model has read them.

#include "scan/recognition/CurrencySigns.h"
#include "scan/recognition/WordSpaces.h"
#include "tests/scan/recognition/DrawnLine.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <opencv2/core.hpp>

namespace tovarin {

using namespace Qt::Literals::StringLiterals;

namespace {

QString spaced(const QString &ink) {
    const DrawnLine line(ink, QString(ink).remove(u' '));
    return textOf(withWordSpaces(line.glyphs, InkProfile(line.picture)));
}

} // namespace

TEST(InkProfileTest, FindsDarkAndLightInk) {
    const DrawnLine line(u"ab c"_s, {});
    for (const cv::Mat &picture : {line.picture, cv::Mat(cv::Scalar::all(255) - line.picture)}) {
        const InkProfile ink(picture);
        ASSERT_EQ(ink.runs().size(), 3U);
        EXPECT_EQ(ink.width(), line.picture.cols);
        EXPECT_NEAR(ink.runs()[0].begin, 10, 1);
        EXPECT_NEAR(ink.runs()[0].end, 26, 1);
        EXPECT_NEAR(ink.runs()[2].begin, 57, 1);
        EXPECT_NEAR(ink.runs()[1].top, DrawnLine::top, 1);
        EXPECT_NEAR(ink.runs()[1].bottom, DrawnLine::top + DrawnLine::height, 1);
        EXPECT_NEAR(ink.textHeight(), DrawnLine::height, 2);
    }
}

TEST(InkProfileTest, OfEmptyPaperHasNoRuns) {
    const InkProfile ink(cv::Mat(20, 100, CV_8UC3, cv::Scalar::all(200)));
    EXPECT_EQ(ink.runs().size(), 0U);
    EXPECT_EQ(ink.textHeight(), 12);
    EXPECT_EQ(ink.nearestRun(10, 100), -1);
}

TEST(WordSpacesTest, StandWhereTheInkHasGaps) {
    EXPECT_EQ(spaced(u"Music Plus"_s), u"Music Plus"_s);
    EXPECT_EQ(spaced(u"a b cd"_s), u"a b cd"_s);
    EXPECT_EQ(spaced(u"MusicPlus"_s), u"MusicPlus"_s);
}

TEST(WordSpacesTest, NeverStandBehindSignsOrBesideFullWidthMarks) {
    EXPECT_EQ(spaced(u"¥ 45"_s), u"¥45"_s);
    EXPECT_EQ(spaced(u"合计： 45"_s), u"合计：45"_s);
    EXPECT_EQ(spaced(u"（ 45"_s), u"（45"_s);
}

TEST(WordSpacesTest, NeedAWiderGapWithinNumbers) {
    EXPECT_EQ(spaced(u"12 34"_s), u"1234"_s);
    const DrawnLine line(u"12 34"_s, u"1234"_s, 22);
    EXPECT_EQ(textOf(withWordSpaces(line.glyphs, InkProfile(line.picture))), u"12 34"_s);
}

TEST(WordSpacesTest, KeepTheBlanksThatWereRead) {
    const DrawnLine line(u"abcd"_s, u"abcd"_s);
    Glyphs glyphs = line.glyphs;
    glyphs.insert(glyphs.begin() + 2, Glyph{u" "_s, 1, 0.5F, {}});
    EXPECT_EQ(textOf(withWordSpaces(glyphs, InkProfile(line.picture))), u"ab cd"_s);
}

TEST(CurrencySignsTest, AreReadWhereInkStandsUnreadBeforeAPrice) {
    const DrawnLine line(u"x9.99"_s, u"_9.99"_s);
    int asked = 0;
    const auto sign = [&asked, &line](const cv::Mat &picture) {
        ++asked;
        EXPECT_NEAR(picture.cols, DrawnLine::block + 2, 2);
        EXPECT_EQ(picture.rows, line.picture.rows);
        return u"€"_s;
    };
    EXPECT_EQ(textOf(withCurrencySigns(line.glyphs, InkProfile(line.picture), line.picture, sign)),
              u"€9.99"_s);
    EXPECT_EQ(asked, 1);
}

TEST(CurrencySignsTest, TakeThePlaceOfTheLetterTheyWereTakenFor) {
    const DrawnLine line(u"x9.99"_s, u"E9.99"_s);
    const auto sign = [](const cv::Mat &) { return u"€"_s; };
    EXPECT_EQ(textOf(withCurrencySigns(line.glyphs, InkProfile(line.picture), line.picture, sign)),
              u"€9.99"_s);
}

TEST(CurrencySignsTest, AreReadThoughTheyTouchTheirPrice) {
    DrawnLine line(u"x9.99"_s, u"_9.99"_s);
    const cv::Rect gap(10 + DrawnLine::block, DrawnLine::top + 10,
                       DrawnLine::step - DrawnLine::block, 4);
    line.picture(gap).setTo(cv::Scalar::all(0));
    ASSERT_EQ(InkProfile(line.picture).runs().size(), 4U);
    const auto sign = [](const cv::Mat &picture) {
        EXPECT_LE(picture.cols, DrawnLine::step + 2);
        return u"€"_s;
    };
    EXPECT_EQ(textOf(withCurrencySigns(line.glyphs, InkProfile(line.picture), line.picture, sign)),
              u"€9.99"_s);
}

TEST(CurrencySignsTest, MayStandABlankBeforeTheirPrice) {
    const DrawnLine line(u"x 9.99"_s, u"_9.99"_s);
    const auto sign = [](const cv::Mat &) { return u"£"_s; };
    EXPECT_EQ(textOf(withCurrencySigns(line.glyphs, InkProfile(line.picture), line.picture, sign)),
              u"£9.99"_s);
}

TEST(CurrencySignsTest, AreNeverInvented) {
    const auto nothing = [](const cv::Mat &) { return QString(); };
    const auto refused = [](const cv::Mat &) -> QString {
        ADD_FAILURE() << "asked";
        return u"€"_s;
    };
    const DrawnLine unread(u"x9.99"_s, u"_9.99"_s);
    EXPECT_EQ(textOf(withCurrencySigns(unread.glyphs, InkProfile(unread.picture), unread.picture,
                                       nothing)),
              u"9.99"_s);
    const DrawnLine letter(u"x9.99"_s, u"E9.99"_s);
    EXPECT_EQ(textOf(withCurrencySigns(letter.glyphs, InkProfile(letter.picture), letter.picture,
                                       nothing)),
              u"E9.99"_s);
    // No decimals, a sign that was read, a word right before it, nothing before it, ink too far
    // off.
    for (const auto &[ink, read] :
         {std::pair(u"x1999"_s, u"_1999"_s), std::pair(u"x9.99"_s, u"¥9.99"_s),
          std::pair(u"ab9.99"_s, u"ab9.99"_s), std::pair(u"9.99"_s, u"9.99"_s),
          std::pair(u"x   9.99"_s, u"_9.99"_s)}) {
        const DrawnLine line(ink, read);
        EXPECT_EQ(
            textOf(withCurrencySigns(line.glyphs, InkProfile(line.picture), line.picture, refused)),
            QString(read).remove(u'_'))
            << read.toStdString();
    }
}

TEST(CandidatesTest, AreRankedByTheirLoss) {
    const Glyphs glyphs = {
        {u"A"_s, 0.9F, 0, {{u"4"_s, 0.05F}}},
        {u"l"_s, 0.5F, 0, {{u"I"_s, 0.4F}, {u"1"_s, 0.1F}}},
        {u"!"_s, 1, 0, {}},
    };
    const QList<TextCandidate> candidates = candidatesOf(glyphs);
    QStringList texts;
    for (const TextCandidate &candidate : candidates)
        texts.append(candidate.text);
    EXPECT_EQ(texts, (QStringList{u"Al!"_s, u"AI!"_s, u"A1!"_s, u"4l!"_s}));
    EXPECT_FLOAT_EQ(candidates[0].confidence, 0.8F);
    EXPECT_FLOAT_EQ(candidates[1].confidence, 0.8F - 0.1F / 3);
}

TEST(CandidatesTest, AreAtMostFourAndNoneTwice) {
    Glyphs glyphs;
    for (int i = 0; i < 6; ++i)
        glyphs.push_back({u"a"_s, 0.5F, 0, {{u"a"_s, 0.4F}, {u"o"_s, 0.3F}}});
    const QList<TextCandidate> candidates = candidatesOf(glyphs);
    ASSERT_EQ(candidates.size(), 4);
    EXPECT_EQ(candidates[0].text, u"aaaaaa"_s);
    EXPECT_EQ(candidates[1].text, u"oaaaaa"_s);
    EXPECT_EQ(candidates[2].text, u"aoaaaa"_s);
}

} // namespace tovarin
