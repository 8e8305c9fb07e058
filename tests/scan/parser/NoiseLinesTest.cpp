// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/parser/NoiseLines.h"

#include "tests/scan/parser/Naive.h"
#include "tests/scan/parser/WordLists.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::ReceiptParser {

TEST(IsNoise, HoldsForEveryGreetingAndLabelAnywhereInALine) {
    for (const QString &word : wordlists::greetings + wordlists::noiseLabels) {
        for (const QString &written : {word, word.toUpper()}) {
            EXPECT_TRUE(isNoise(written)) << written.toStdString();
            EXPECT_TRUE(isNoise(written + u"x"_s)) << written.toStdString();
            EXPECT_TRUE(isNoise(u"Zx"_s + written)) << written.toStdString();
        }
    }
}

TEST(IsNoise, TellsNamesFromForms) {
    struct {
        QString line;
        bool isNoise;
    } const cases[] = {
        {u""_s, false},
        {u"Netflix"_s, false},
        {u"爱奇艺"_s, false},
        // Words inside words count.
        {u"Individual plan"_s, true},
        {u"Update"_s, true},
        {u"Video"_s, true},
        {u"Delhi Metro"_s, true},
        {u"Delhi"_s, false},
        {u"hi"_s, false},
        {u"Hi, Ann"_s, true},
        {u"Hi\u00A0Ann"_s, false},
        {u"PAİD"_s, false}, // lower case: "pai̇d"
        {u"PAID"_s, true},
        // Only numbers, dates and signs.
        {u"¥45.00"_s, true},
        {u"2025-03-08 12:30"_s, true},
        {u"2025年3月8日 12时30分5秒"_s, true},
        {u"￥$€£ 0123456789 .,:：-/"_s, true},
        {u" "_s, true},
        {u"2025-03-08\r"_s, true}, // An end of line before the end of the text is none of it.
        {u"2025\u2028"_s, true},
        {u"2025\r\r"_s, false},
        {u"2025\r8"_s, false},
        {u"2025\t8"_s, false},
        {u"2025—8"_s, false},
        {u"45元"_s, false},
        {u"12h"_s, false},
        {u"４５"_s, false},
        {u"₩45"_s, false},
        // Identifiers.
        {u"e621e1f8-c36c-495a-93fc-0c247a3e6e5f"_s, true},
        {u"abcdef-0123"_s, true},
        {u"abcdef-0123 and more"_s, true},
        {u"abcdef01-0123-xyz"_s, true},
        {u"abcde-0123"_s, false},
        {u"abcdef-012"_s, false},
        {u"abcdef-012-0123"_s, false},
        {u"abcdef0123"_s, false},
        {u"abcdef--0123"_s, false},
        {u"xabcdef-0123"_s, false},
        {u" abcdef-0123"_s, false},
        {u"E621E1F8-C36C-495A"_s, false},
        {u"abcdeF-0123"_s, false},
        {u"abcdef-012F"_s, false},
        {u"abcdeg-0123"_s, false},
    };
    for (const auto &[line, isNoiseLine] : cases) {
        EXPECT_EQ(isNoise(line), isNoiseLine) << line.toStdString();
        EXPECT_EQ(naive::isNoise(line), isNoiseLine) << line.toStdString();
    }
}

TEST(IsNoise, GetsThroughAMillionUnits) {
    const QString hex(1'000'000, u'a');
    EXPECT_TRUE(isNoise(hex + u"-abcd"_s));
    EXPECT_FALSE(isNoise(hex + u"-abc"_s));
    EXPECT_FALSE(isNoise(hex));
    EXPECT_TRUE(isNoise(QString(1'000'000, u'7')));
    EXPECT_FALSE(isNoise(QString(1'000'000, u'7') + u'x'));
    EXPECT_TRUE(isNoise(u"abcdef"_s + u"-abcd"_s.repeated(200'000)));
}

TEST(IsNoise, AgreesWithTheWholeExpressions) {
    const QStringList hex = {u"a"_s, u"f"_s,   u"0"_s,    u"9e"_s, u"abcd"_s, u"abcdef"_s,
                             u"-"_s, u"-12"_s, u"-123"_s, u"F"_s,  u"g"_s,    u"\r"_s};
    const QStringList numbers = {u"1"_s,  u"0"_s,      u"¥"_s,      u"."_s,    u":"_s,
                                 u"："_s, u"-"_s,      u"/"_s,      u"年"_s,   u" "_s,
                                 u"\r"_s, u"\u2028"_s, u"x"_s,      u"元"_s,   u","_s,
                                 u"秒"_s, u"\t"_s,     u"\u0085"_s, u"\x0B"_s, u"\xD83D"_s};
    std::mt19937 random(99);
    int noisy = 0;
    for (int i = 0; i < 40'000; ++i) {
        for (const QStringList &pieces : {hex, numbers}) {
            const QString line = naive::randomText(random, pieces, 7);
            const bool expected = naive::isNoise(line);
            ASSERT_EQ(isNoise(line), expected) << line.toStdString();
            noisy += expected ? 1 : 0;
        }
    }
    EXPECT_GT(noisy, 10'000);
    EXPECT_LT(noisy, 70'000);
}

} // namespace tovarin::ReceiptParser
