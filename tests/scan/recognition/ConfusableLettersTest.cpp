// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/ConfusableLetters.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

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

/// Small letters that may be the capitals, and x that may be ×.
QString capitalised(const QString &text) {
    Glyphs glyphs;
    for (const QChar c : text) {
        const QString other = c.toLower() == u'x' ? u"×"_s : QString(c.toUpper());
        glyphs.push_back(glyph(c, {other}));
    }
    return textOf(withSettledLetters(glyphs));
}

} // namespace

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
