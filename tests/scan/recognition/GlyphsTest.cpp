// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// What is done to the glyphs of a line once the model has read them.

#include "scan/recognition/ConfusableLetters.h"
#include "scan/recognition/CurrencySigns.h"
#include "scan/recognition/MaskedDigits.h"
#include "scan/recognition/TwinLetters.h"
#include "scan/recognition/WordSpaces.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <opencv2/core.hpp>

namespace tovarin {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A line on which each character of `ink` is a black block on white, each space a gap of somewhat
/// less than half the blocks' height; and the glyphs of `read`, one for each block, "_" for a block
/// that was not read.
struct Line {
    static constexpr int block = 16;
    static constexpr int top = 12;
    static constexpr int height = 24;
    static constexpr int step = 20;

    Line(const QString &ink, const QString &read, int gap = 7) {
        std::vector<int> blocks;
        int x = 10;
        for (const QChar c : ink) {
            if (c == u' ') {
                x += gap;
                continue;
            }
            blocks.push_back(x);
            x += step;
        }
        picture = cv::Mat(48, x + 10, CV_8UC3, cv::Scalar::all(255));
        for (const int begin : blocks)
            picture(cv::Rect(begin, top, block, height)).setTo(cv::Scalar::all(0));
        for (qsizetype i = 0; i < read.size(); ++i) {
            if (read[i] != u'_') {
                const int middle = blocks[static_cast<std::size_t>(i)] + block / 2;
                glyphs.push_back({QString(read[i]),
                                  1,
                                  static_cast<float>(middle) / static_cast<float>(picture.cols),
                                  {}});
            }
        }
    }

    cv::Mat picture;
    Glyphs glyphs;
};

QString spaced(const QString &ink) {
    const Line line(ink, QString(ink).remove(u' '));
    return textOf(withWordSpaces(line.glyphs, InkProfile(line.picture)));
}

Glyph glyph(const QString &text, const QStringList &others = {}) {
    Glyph result = {text, 0.6F, 0, {}};
    for (const QString &other : others)
        result.others.append({other, 0.1F});
    return result;
}

/// A line of which the letters I, l and 1 may be each other, and so O and 0, S and $.
QString settled(const QString &text) {
    Glyphs glyphs;
    for (const QChar c : text) {
        QStringList others;
        for (const QString &group : {u"Il1"_s, u"O0"_s, u"S$"_s}) {
            if (group.contains(c)) {
                for (const QChar other : group) {
                    if (other != c)
                        others.append(other);
                }
            }
        }
        glyphs.push_back(glyph(c, others));
    }
    return textOf(withSettledLetters(glyphs));
}

} // namespace

TEST(InkProfileTest, FindsDarkAndLightInk) {
    const Line line(u"ab c"_s, {});
    for (const cv::Mat &picture : {line.picture, cv::Mat(cv::Scalar::all(255) - line.picture)}) {
        const InkProfile ink(picture);
        ASSERT_EQ(ink.runs().size(), 3U);
        EXPECT_EQ(ink.width(), line.picture.cols);
        EXPECT_NEAR(ink.runs()[0].begin, 10, 1);
        EXPECT_NEAR(ink.runs()[0].end, 26, 1);
        EXPECT_NEAR(ink.runs()[2].begin, 57, 1);
        EXPECT_NEAR(ink.runs()[1].top, Line::top, 1);
        EXPECT_NEAR(ink.runs()[1].bottom, Line::top + Line::height, 1);
        EXPECT_NEAR(ink.textHeight(), Line::height, 2);
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
    const Line line(u"12 34"_s, u"1234"_s, 22);
    EXPECT_EQ(textOf(withWordSpaces(line.glyphs, InkProfile(line.picture))), u"12 34"_s);
}

TEST(WordSpacesTest, KeepTheBlanksThatWereRead) {
    const Line line(u"abcd"_s, u"abcd"_s);
    Glyphs glyphs = line.glyphs;
    glyphs.insert(glyphs.begin() + 2, Glyph{u" "_s, 1, 0.5F, {}});
    EXPECT_EQ(textOf(withWordSpaces(glyphs, InkProfile(line.picture))), u"ab cd"_s);
}

TEST(CurrencySignsTest, AreReadWhereInkStandsUnreadBeforeAPrice) {
    const Line line(u"x9.99"_s, u"_9.99"_s);
    int asked = 0;
    const auto sign = [&asked, &line](const cv::Mat &picture) {
        ++asked;
        EXPECT_NEAR(picture.cols, Line::block + 2, 2);
        EXPECT_EQ(picture.rows, line.picture.rows);
        return u"€"_s;
    };
    EXPECT_EQ(textOf(withCurrencySigns(line.glyphs, InkProfile(line.picture), line.picture, sign)),
              u"€9.99"_s);
    EXPECT_EQ(asked, 1);
}

TEST(CurrencySignsTest, TakeThePlaceOfTheLetterTheyWereTakenFor) {
    const Line line(u"x9.99"_s, u"E9.99"_s);
    const auto sign = [](const cv::Mat &) { return u"€"_s; };
    EXPECT_EQ(textOf(withCurrencySigns(line.glyphs, InkProfile(line.picture), line.picture, sign)),
              u"€9.99"_s);
}

TEST(CurrencySignsTest, AreReadThoughTheyTouchTheirPrice) {
    Line line(u"x9.99"_s, u"_9.99"_s);
    const cv::Rect gap(10 + Line::block, Line::top + 10, Line::step - Line::block, 4);
    line.picture(gap).setTo(cv::Scalar::all(0));
    ASSERT_EQ(InkProfile(line.picture).runs().size(), 4U);
    const auto sign = [](const cv::Mat &picture) {
        EXPECT_LE(picture.cols, Line::step + 2);
        return u"€"_s;
    };
    EXPECT_EQ(textOf(withCurrencySigns(line.glyphs, InkProfile(line.picture), line.picture, sign)),
              u"€9.99"_s);
}

TEST(CurrencySignsTest, MayStandABlankBeforeTheirPrice) {
    const Line line(u"x 9.99"_s, u"_9.99"_s);
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
    const Line unread(u"x9.99"_s, u"_9.99"_s);
    EXPECT_EQ(textOf(withCurrencySigns(unread.glyphs, InkProfile(unread.picture), unread.picture,
                                       nothing)),
              u"9.99"_s);
    const Line letter(u"x9.99"_s, u"E9.99"_s);
    EXPECT_EQ(textOf(withCurrencySigns(letter.glyphs, InkProfile(letter.picture), letter.picture,
                                       nothing)),
              u"E9.99"_s);
    // No decimals, a sign that was read, a word right before it, nothing before it, ink too far
    // off.
    for (const auto &[ink, read] :
         {std::pair(u"x1999"_s, u"_1999"_s), std::pair(u"x9.99"_s, u"¥9.99"_s),
          std::pair(u"ab9.99"_s, u"ab9.99"_s), std::pair(u"9.99"_s, u"9.99"_s),
          std::pair(u"x   9.99"_s, u"_9.99"_s)}) {
        const Line line(ink, read);
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

TEST(ConfusableLettersTest, AreSettledByKnownWords) {
    EXPECT_EQ(settled(u"Notion Al"_s), u"Notion AI"_s);
    EXPECT_EQ(settled(u"OpenAl助手"_s), u"OpenAI助手"_s);
    EXPECT_EQ(settled(u"lnvoice 1l0"_s), u"Invoice 1l0"_s);
    EXPECT_EQ(settled(u"lCloud"_s), u"lCloud"_s);
    EXPECT_EQ(settled(u"0ne"_s), u"One"_s);
    EXPECT_EQ(settled(u"Total"_s), u"Total"_s);
    EXPECT_EQ(settled(u""_s), u""_s);
}

TEST(ConfusableLettersTest, AreSettledWhereNoWordCanBeginLikeThis) {
    EXPECT_EQ(settled(u"llford lmprint lnk"_s), u"Ilford Imprint Ink"_s);
    EXPECT_EQ(settled(u"15 0ct 2023"_s), u"15 Oct 2023"_s);
    EXPECT_EQ(settled(u"late lyric lL 0x 0 l"_s), u"late lyric lL 0x 0 l"_s);
}

TEST(ConfusableLettersTest, AreSmallWithinWordsOfSmallLetters) {
    EXPECT_EQ(settled(u"ChatGPT PIus"_s), u"ChatGPT Plus"_s);
    EXPECT_EQ(settled(u"deIivery"_s), u"delivery"_s);
    EXPECT_EQ(settled(u"myInvoices OpenAI PIN HIFI BIBLE"_s),
              u"myInvoices OpenAI PIN HIFI BIBLE"_s);
}

TEST(ConfusableLettersTest, KeepAlWhereItIsPartOfAName) {
    EXPECT_EQ(settled(u"Al Dente"_s), u"Al Dente"_s);
    EXPECT_EQ(settled(u"Al Lantern"_s), u"AI Lantern"_s);
}

TEST(ConfusableLettersTest, AreSettledInNamesOfServices) {
    Glyphs glyphs;
    for (const QString &character : {u"哗"_s, u"哩"_s, u"哗"_s, u"哩"_s})
        glyphs.push_back(glyph(character, {u"哔"_s}));
    EXPECT_EQ(textOf(withSettledLetters(glyphs)), u"哔哩哔哩"_s);
    glyphs[2].others.clear();
    EXPECT_EQ(textOf(withSettledLetters(glyphs)), u"哗哩哗哩"_s);
}

/// "ab", dots `pitch` columns apart, "1234"; what is made of it when `dots` was read.
QString masked(const QString &dots, const std::vector<cv::Rect> &ink) {
    Line line(u"ab    1234"_s, u"ab1234"_s, 20);
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

TEST(MaskedDigitsTest, AreAsManyAsTheInkShows) {
    for (const QString &read : {u".."_s, u" ·.... "_s, u"."_s, u"***"_s, u"·?."_s, QString()})
        EXPECT_EQ(masked(read, dotsAt(Line::top + 9)), u"ab •••• 1234"_s) << read.toStdString();
    EXPECT_EQ(masked(u"..."_s, dotsAt(Line::top + 9, 3)), u"ab ••• 1234"_s);
}

TEST(MaskedDigitsTest, MayTouch) {
    const int y = Line::top + 8;
    const std::vector<cv::Rect> dots = {{62, y, 8, 8}, {73, y, 19, 8}, {95, y, 8, 8}};
    EXPECT_EQ(masked(u"."_s, dots), u"ab •••• 1234"_s);
}

TEST(MaskedDigitsTest, AreNotFullStops) {
    EXPECT_EQ(masked(u"..."_s, dotsAt(Line::top + Line::height - 6)), u"ab...1234"_s);
}

TEST(MaskedDigitsTest, AreNotStarsNorLettersNorStrayMarks) {
    const std::vector<cv::Rect> dots = dotsAt(Line::top + 9);
    EXPECT_EQ(masked(u"****"_s, dots), u"ab****1234"_s);
    EXPECT_EQ(masked(QString(), dotsAt(Line::top + 3)), u"ab1234"_s);
    EXPECT_EQ(masked(u"xx"_s, dots), u"abxx1234"_s);
    EXPECT_EQ(masked(QString(), dotsAt(Line::top + 9, 3)), u"ab1234"_s);
    EXPECT_EQ(masked(u"--"_s, dotsAt(Line::top + 9, 4, 12)), u"ab--1234"_s);
    const int y = Line::top + 9;
    EXPECT_EQ(masked(u".."_s, {{62, y, 6, 6}, {72, y, 6, 6}, {92, y, 6, 6}, {102, y, 6, 6}}),
              u"ab..1234"_s);
}

/// A word of upright strokes ("|") and broad letters ("x"), of which `read` was read.
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
        picture(
            cv::Rect(begins[static_cast<std::size_t>(i)], Line::top, width(ink[i]), Line::height))
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

TEST(TwinLettersTest, AreDoubledWhereAStrokeWasNotRead) {
    EXPECT_EQ(twinned(u"|||xx"_s, u"Il_um"_s), u"Illum"_s);
    EXPECT_EQ(twinned(u"|||xx"_s, u"l_lum"_s), u"lllum"_s);
    EXPECT_EQ(twinned(u"xx||x"_s, u"Ho_la"_s.replace(u"o_l"_s, u"el_"_s)), u"Hella"_s);
    EXPECT_EQ(twinned(u"||xx"_s, u"I_um"_s), u"Ilum"_s);
}

TEST(TwinLettersTest, AreNotInvented) {
    EXPECT_EQ(twinned(u"|||xx"_s, u"Illum"_s), u"Illum"_s);
    EXPECT_EQ(twinned(u"|xxx"_s, u"lu_m"_s), u"lum"_s);
    EXPECT_EQ(twinned(u"||xx"_s, u"t_um"_s), u"tum"_s);
    EXPECT_EQ(twinned(u"|||xx"_s, u"1l_um"_s.mid(0, 1) + u"i_um"_s), u"1ium"_s);
    EXPECT_EQ(twinned(u"||xxx"_s, u"l__um"_s), u"lum"_s);
    // A "b" in two parts.
    cv::Mat picture(48, 90, CV_8UC3, cv::Scalar::all(255));
    for (const auto &[x, width] : {std::pair(10, 5), {24, 5}, {31, 12}, {50, 24}})
        picture(cv::Rect(x, Line::top, width, Line::height)).setTo(cv::Scalar::all(0));
    const Glyphs glyphs = {
        {u"l"_s, 1, 12 / 90.F, {}}, {u"b"_s, 1, 34 / 90.F, {}}, {u"o"_s, 1, 62 / 90.F, {}}};
    ASSERT_EQ(InkProfile(picture).runs().size(), 4U);
    EXPECT_EQ(textOf(withTwinLetters(glyphs, InkProfile(picture))), u"lbo"_s);
}

TEST(ConfusableLettersTest, StayWhereTheModelSawNothingElse) {
    Glyphs glyphs = {glyph(u"A"_s), glyph(u"l"_s, {u"i"_s, u"t"_s})};
    EXPECT_EQ(textOf(withSettledLetters(glyphs)), u"Al"_s);
    glyphs[1].others.append({u"I"_s, 0.01F});
    EXPECT_EQ(textOf(withSettledLetters(glyphs)), u"AI"_s);
}

TEST(ConfusableLettersTest, MakeADollarOfAnSBetweenACountryAndADigit) {
    EXPECT_EQ(settled(u"USS9.99"_s), u"US$9.99"_s);
    EXPECT_EQ(settled(u"HKS 78"_s), u"HKS 78"_s);
    EXPECT_EQ(settled(u"HKS78"_s), u"HK$78"_s);
    EXPECT_EQ(settled(u"USST"_s), u"USST"_s);
    EXPECT_EQ(settled(u"PS5"_s), u"PS5"_s);
}

/// Small letters that may be the capitals, and x that may be ×.
QString capitalised(const QString &text) {
    Glyphs glyphs;
    for (const QChar c : text) {
        const QString other = c.toLower() == u'x' ? u"×"_s : QString(c.toUpper());
        glyphs.push_back(glyph(c, {other}));
    }
    return textOf(withSettledLetters(glyphs));
}

TEST(ConfusableLettersTest, AreCapitalsInCurrencies) {
    EXPECT_EQ(capitalised(u"Us$29.50"_s), u"US$29.50"_s);
    EXPECT_EQ(capitalised(u"cny 29.80"_s), u"CNY 29.80"_s);
    EXPECT_EQ(capitalised(u"费用rmb5"_s), u"费用RMB5"_s);
    EXPECT_EQ(capitalised(u"plus$5 acny 5 cny cny a"_s), u"plus$5 acny 5 cny cny a"_s);
    EXPECT_EQ(textOf(withSettledLetters(
                  {glyph(u"U"_s), glyph(u"s"_s, {u"5"_s}), glyph(u"$"_s), glyph(u"5"_s)})),
              u"Us$5"_s);
}

TEST(ConfusableLettersTest, MakeATimesSignOfAnXBeforeAQuantity) {
    EXPECT_EQ(capitalised(u"x1"_s), u"×1"_s);
    EXPECT_EQ(capitalised(u"X 12"_s), u"× 12"_s);
    EXPECT_EQ(capitalised(u"x"_s), u"x"_s);
    EXPECT_EQ(capitalised(u"x1a"_s), u"x1a"_s);
    EXPECT_EQ(capitalised(u"ax1"_s), u"ax1"_s);
    EXPECT_EQ(settled(u"x1"_s), u"x1"_s);
    Glyph letter = glyph(u"x"_s, {u"×"_s});
    letter.others[0].confidence = 0.09F;
    EXPECT_EQ(textOf(withSettledLetters({letter, glyph(u"1"_s)})), u"x1"_s);
}

} // namespace tovarin
