// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/parser/CycleFinder.h"

#include "tests/scan/parser/Naive.h"
#include "tests/scan/parser/WordLists.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::ReceiptParser {

namespace {

struct Group {
    BillingCycle cycle;
    QStringList words;
};

const QList<Group> groups = {
    {BillingCycle::yearly, wordlists::yearlyWords},
    {BillingCycle::quarterly, wordlists::quarterlyWords},
    {BillingCycle::weekly, wordlists::weeklyWords},
    {BillingCycle::monthly, wordlists::monthlyWords},
};

std::optional<BillingCycle> naiveNumberUnitCycle(const QString &text) {
    const auto found = naive::matches(
        uR"(([0-9]+)\s*(个月|月|年|季|周|year|years|month|months|week|weeks))"_s, text);
    if (found.isEmpty())
        return std::nullopt;
    bool fits = false;
    const qlonglong number = found.first().groups[1].toLongLong(&fits);
    const qlonglong count = fits ? number : 0;
    const QString unit = found.first().groups[2];
    if (unit.contains(u"年"_s) || unit.contains(u"year"_s))
        return BillingCycle::yearly;
    if (unit.contains(u"周"_s) || unit.contains(u"week"_s))
        return BillingCycle::weekly;
    if (unit.contains(u"季"_s))
        return BillingCycle::quarterly;
    if (count >= 12)
        return BillingCycle::yearly;
    return count <= 2 ? BillingCycle::monthly : BillingCycle::quarterly;
}

} // namespace

TEST(DetectCycle, KnowsEveryWordInAnyLetterCaseAndPlace) {
    for (const Group &group : groups) {
        for (const QString &word : group.words) {
            EXPECT_EQ(detectCycle(word), group.cycle) << word.toStdString();
            EXPECT_EQ(detectCycle(word.toUpper()), group.cycle) << word.toStdString();
            EXPECT_EQ(detectCycle(u"x\n¥30"_s + word + u"x"_s), group.cycle) << word.toStdString();
        }
    }
}

TEST(DetectCycle, TriesTheGroupsInOrderWhereverTheirWordsStand) {
    for (qsizetype first = 0; first < groups.size(); ++first) {
        for (qsizetype second = first + 1; second < groups.size(); ++second) {
            for (const QString &word : groups[first].words) {
                for (const QString &other : groups[second].words)
                    EXPECT_EQ(detectCycle(other + u' ' + word), groups[first].cycle)
                        << other.toStdString() << ' ' << word.toStdString();
            }
        }
    }
}

TEST(DetectCycle, PrefersWordsToNumbers) {
    EXPECT_EQ(detectCycle(u"2025年3月8日 每月"_s), BillingCycle::monthly);
    EXPECT_EQ(detectCycle(u"12 months, billed weekly"_s), BillingCycle::weekly);
}

TEST(DetectCycle, HasNoneWithoutAWordOrNumber) {
    for (const QString &text :
         {u""_s, u"Netflix ¥45"_s, u"每  年"_s, u"每\u00A0月"_s, u"per  month"_s, u"month"_s,
          u"year / month"_s, u"每日"_s, u"2025-03-08"_s, u"一个月"_s})
        EXPECT_EQ(detectCycle(text), std::nullopt) << text.toStdString();
}

TEST(DetectCycle, FindsNumbersWithUnitsInAnyLetterCase) {
    EXPECT_EQ(detectCycle(u"2025年3月8日"_s), BillingCycle::yearly);
    EXPECT_EQ(detectCycle(u"6 MONTHS"_s), BillingCycle::quarterly);
    EXPECT_EQ(detectCycle(u"2 Weeks"_s), BillingCycle::weekly);
    // The Kelvin sign's lower case is k.
    EXPECT_EQ(detectCycle(u"2 wee\u212As"_s), BillingCycle::weekly);
}

TEST(DetectNumberUnitCycle, GoesByTheUnitAndForMonthsByTheNumber) {
    using enum BillingCycle;
    struct {
        QString text;
        std::optional<BillingCycle> cycle;
    } const cases[] = {
        {u"1年"_s, yearly},
        {u"2 years"_s, yearly},
        {u"0year"_s, yearly},
        {u"2周"_s, weekly},
        {u"3 weeks"_s, weekly},
        {u"52 week"_s, weekly},
        {u"1季"_s, quarterly},
        {u"4季"_s, quarterly},
        {u"0个月"_s, monthly},
        {u"1 month"_s, monthly},
        {u"1个月"_s, monthly},
        {u"2月"_s, monthly},
        {u"3月"_s, quarterly},
        {u"3个月"_s, quarterly},
        {u"6个月"_s, quarterly},
        {u"11 months"_s, quarterly},
        {u"12个月"_s, yearly},
        {u"12月"_s, yearly},
        {u"13 months"_s, yearly},
        {u"00012月"_s, yearly},
        {u"9223372036854775807个月"_s, yearly},
        {u"9223372036854775808个月"_s, monthly},
        {u"99999999999999999999999月"_s, monthly},
        // White space of any kind and length may stand between.
        {u"6 \t\n\r\u00A0\u3000\u2028个月"_s, quarterly},
        {u"6-月"_s, std::nullopt},
        {u"6个 月"_s, std::nullopt},
        {u"6個月"_s, std::nullopt},
        {u"六个月"_s, std::nullopt},
        {u"６个月"_s, std::nullopt},
        {u"6 MONTHS"_s, std::nullopt},
        {u"months 6"_s, std::nullopt},
        {u"yearly 2"_s, std::nullopt},
        {u""_s, std::nullopt},
        // Only the first match counts, and a date is one.
        {u"2025年12月8日"_s, yearly},
        {u"3月8日 2025年"_s, quarterly},
        {u"7 days, 1 week or 1 year"_s, weekly},
        {u"1.12月"_s, yearly},
        {u"12 3月"_s, quarterly},
        {u"3 yearning monthlings"_s, yearly},
        {u"3 monthlings"_s, quarterly},
    };
    for (const auto &[text, cycle] : cases)
        EXPECT_EQ(detectNumberUnitCycle(text), cycle) << text.toStdString();
}

TEST(DetectNumberUnitCycle, GetsThroughAMillionDigitsAndBlanks) {
    const QString digits(1'000'000, u'7');
    const QString blanks(1'000'000, u' ');
    EXPECT_EQ(detectNumberUnitCycle(digits), std::nullopt);
    EXPECT_EQ(detectNumberUnitCycle(digits + blanks), std::nullopt);
    EXPECT_EQ(detectNumberUnitCycle(digits + blanks + u"个月"_s), BillingCycle::monthly);
    EXPECT_EQ(detectNumberUnitCycle(QString(1'000'000, u'0') + u"3"_s + blanks + u"个月"_s),
              BillingCycle::quarterly);
}

TEST(DetectNumberUnitCycle, AllowsEveryWhiteSpaceThatIcuKnows) {
    for (char16_t c = 0; c < 0xFFFF; ++c) {
        const QString text = u"6"_s + QChar(c) + u"个月"_s;
        ASSERT_EQ(detectNumberUnitCycle(text), naiveNumberUnitCycle(text)) << std::hex << int(c);
    }
}

TEST(DetectNumberUnitCycle, FindsWhatTheWholeExpressionFinds) {
    const QStringList pieces = {
        u"0"_s,  u"1"_s,  u"3"_s,      u"12"_s,     u"99999999999"_s, u" "_s,   u"  "_s,
        u"\n"_s, u"个"_s, u"月"_s,     u"个月"_s,   u"年"_s,          u"季"_s,  u"周"_s,
        u"ye"_s, u"ar"_s, u"year"_s,   u"month"_s,  u"s"_s,           u"wee"_s, u"k"_s,
        u"-"_s,  u"٣"_s,  u"\xD83D"_s, u"\xDCF7"_s, u"\u3000"_s};
    std::mt19937 random(12);
    int found = 0;
    for (int i = 0; i < 25'000; ++i) {
        const QString text = naive::randomText(random, pieces, 12);
        const auto expected = naiveNumberUnitCycle(text);
        ASSERT_EQ(detectNumberUnitCycle(text), expected) << text.toStdString();
        found += expected ? 1 : 0;
    }
    EXPECT_GT(found, 5'000);
}

} // namespace tovarin::ReceiptParser
