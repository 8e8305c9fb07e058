// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/parser/AmountFinder.h"

#include "tests/scan/parser/Naive.h"
#include "tests/scan/parser/WordLists.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::ReceiptParser {

void PrintTo(const AmountCandidate &candidate, std::ostream *out) {
    *out << candidate.amount << ' ' << candidate.currency.toStdString() << " at "
         << candidate.location;
}

void PrintTo(const Amount &amount, std::ostream *out) {
    *out << amount.amount << ' ' << amount.currency.toStdString();
}

namespace {

using Candidates = QList<AmountCandidate>;

} // namespace

TEST(FindAmounts, FindsEveryFormOfPrice) {
    struct {
        QString text;
        Candidates candidates;
    } const cases[] = {
        {u""_s, {}},
        {u"Netflix 45"_s, {}},
        {u"¥45"_s, {{45, u"CNY"_s, 0}}},
        {u"￥45.5"_s, {{45.5, u"CNY"_s, 0}}},
        {u"$9.99"_s, {{9.99, u"USD"_s, 0}}},
        {u"€0.50"_s, {{0.5, u"EUR"_s, 0}}},
        {u"£12"_s, {{12, u"GBP"_s, 0}}},
        {u"¥ 45"_s, {{45, u"CNY"_s, 0}}},
        {u"¥\u00A045"_s, {{45, u"CNY"_s, 0}}},
        {u"¥\u300045"_s, {{45, u"CNY"_s, 0}}},
        {u"¥\n45"_s, {{45, u"CNY"_s, 0}}},
        {u"¥\t45"_s, {{45, u"CNY"_s, 0}}},
        {u"¥  45"_s, {}},
        {u"¥\u200B45"_s, {}},
        {u"¥-45"_s, {}},
        {u"¥.45"_s, {}},
        {u"45¥"_s, {}},
        {u"₩45 ₹45 ＄45"_s, {}},
        // Digits of other scripts are none here.
        {u"¥４５ ¥٤٥"_s, {}},
        // Decimals: one or two, and only behind a dot that has them.
        {u"¥12."_s, {{12, u"CNY"_s, 0}}},
        {u"¥12.3"_s, {{12.3, u"CNY"_s, 0}}},
        {u"¥12.34"_s, {{12.34, u"CNY"_s, 0}}},
        {u"¥12.345"_s, {{12.34, u"CNY"_s, 0}}},
        {u"¥12.34.56"_s, {{12.34, u"CNY"_s, 0}}},
        {u"¥12,50"_s, {{12, u"CNY"_s, 0}}},
        {u"¥1,299.00"_s, {{1, u"CNY"_s, 0}}},
        {u"¥007.10"_s, {{7.1, u"CNY"_s, 0}}},
        // Nothing is no price.
        {u"¥0"_s, {}},
        {u"¥0.00 0元 USD 0.0 HK$0"_s, {}},
        {u"¥0.01"_s, {{0.01, u"CNY"_s, 0}}},
        // Hong Kong's dollar is a dollar first.
        {u"HK$78"_s, {{78, u"USD"_s, 2}, {78, u"HKD"_s, 0}}},
        {u"hk$ 78"_s, {{78, u"USD"_s, 2}, {78, u"HKD"_s, 0}}},
        {u"H\u212A$78"_s, {{78, u"USD"_s, 2}, {78, u"HKD"_s, 0}}},
        {u"HK $78"_s, {{78, u"USD"_s, 3}}},
        {u"US$5"_s, {{5, u"USD"_s, 2}}},
        // A unit behind the number.
        {u"30元"_s, {{30, u"CNY"_s, 0}}},
        {u"30圆"_s, {{30, u"CNY"_s, 0}}},
        {u"30块"_s, {{30, u"CNY"_s, 0}}},
        {u"30 元"_s, {{30, u"CNY"_s, 0}}},
        {u"30\u3000元"_s, {{30, u"CNY"_s, 0}}},
        {u"30  元"_s, {}},
        {u"30.5元"_s, {{30.5, u"CNY"_s, 0}}},
        {u"30.元"_s, {}},
        {u"12.345元"_s, {{345, u"CNY"_s, 3}}},
        {u"1.2.3元"_s, {{2.3, u"CNY"_s, 2}}},
        {u"x12元34块5圆"_s, {{12, u"CNY"_s, 1}, {34, u"CNY"_s, 4}, {5, u"CNY"_s, 7}}},
        {u"1元2元"_s, {{1, u"CNY"_s, 0}, {2, u"CNY"_s, 2}}},
        {u"30 00元"_s, {}},
        {u"元30"_s, {}},
        {u"30円 30圓 30塊"_s, {}},
        // A code before it, in any letter case.
        {u"CNY 1"_s, {{1, u"CNY"_s, 0}}},
        {u"RMB 30"_s, {{30, u"CNY"_s, 0}}},
        {u"rmb30"_s, {{30, u"CNY"_s, 0}}},
        {u"USD5 usd 5 Usd\t5"_s, {{5, u"USD"_s, 0}, {5, u"USD"_s, 5}, {5, u"USD"_s, 11}}},
        {u"EUR 1.50"_s, {{1.5, u"EUR"_s, 0}}},
        {u"HKD 2"_s, {{2, u"HKD"_s, 0}}},
        {u"JPY 300"_s, {{300, u"JPY"_s, 0}}},
        {u"gbp 4.2"_s, {{4.2, u"GBP"_s, 0}}},
        {u"CHF 5"_s, {}},
        {u"5 USD"_s, {}},
        {u"AUSD 5"_s, {{5, u"USD"_s, 1}}},
        // The long s is an s when letter case is ignored, and S is its capital; the Kelvin sign is
        // a k in the same way, but is a capital already.
        {u"u\u017Fd 5"_s, {{5, u"USD"_s, 0}}},
        {u"H\u212AD 5"_s, {{5, u"H\u212AD"_s, 0}}},
        // All of a kind before the next kind.
        {u"USD 1 2元 HK$3 €4"_s,
         {{3, u"USD"_s, 11},
          {4, u"EUR"_s, 14},
          {3, u"HKD"_s, 9},
          {2, u"CNY"_s, 6},
          {1, u"USD"_s, 0}}},
        {u"¥30元"_s, {{30, u"CNY"_s, 0}, {30, u"CNY"_s, 1}}},
        {u"CNY¥30"_s, {{30, u"CNY"_s, 3}}},
        // Offsets count UTF-16 units.
        {u"📷 ¥5"_s, {{5, u"CNY"_s, 3}}},
        {u"\xD83D¥5\xDCF7"_s, {{5, u"CNY"_s, 1}}},
    };
    for (const auto &[text, candidates] : cases) {
        EXPECT_EQ(findAmounts(text), candidates) << text.toStdString();
        EXPECT_EQ(naive::findAmounts(text), candidates) << text.toStdString();
    }
}

TEST(FindAmounts, LeavesOutWhatNoDoubleHolds) {
    const QString large = u'1' + QString(308, u'0');
    EXPECT_EQ(findAmounts(u'$' + large), (Candidates{{1e308, u"USD"_s, 0}}));
    EXPECT_EQ(findAmounts(u'$' + large + u'0'), Candidates());
    EXPECT_EQ(findAmounts(large + u"0元 5元"_s), (Candidates{{5, u"CNY"_s, 312}}));
}

TEST(FindAmounts, GetsThroughAMillionDigits) {
    const QString digits(1'000'000, u'7');
    for (const QString &text :
         {digits, u'$' + digits, digits + u'元', u"USD "_s + digits + u" x"_s})
        EXPECT_EQ(findAmounts(text), Candidates());
    EXPECT_EQ(findAmounts(QString(1'000'000, u'0') + u"8元"_s), (Candidates{{8, u"CNY"_s, 0}}));
}

TEST(FindAmounts, FindsWhatTheWholeExpressionsFind) {
    const QStringList pieces = {
        u"0"_s, u"1"_s,      u"9"_s,      u"12"_s,       u"345"_s, u"."_s,        u".."_s,
        u","_s, u" "_s,      u"\n"_s,     u"\u00A0"_s,   u"元"_s,  u"圆"_s,       u"块"_s,
        u"¥"_s, u"￥"_s,     u"$"_s,      u"€"_s,        u"£"_s,   u"HK"_s,       u"hK$"_s,
        u"R"_s, u"mB"_s,     u"USD"_s,    u"u\u017FD"_s, u"cny"_s, u"h\u212AD"_s, u"x"_s,
        u"٣"_s, u"\xD83D"_s, u"\xDCF7"_s, u"total"_s,    u"合计"_s};
    std::mt19937 random(20250308);
    int found = 0;
    for (int i = 0; i < 25'000; ++i) {
        const QString text = naive::randomText(random, pieces, 14);
        const Candidates expected = naive::findAmounts(text);
        ASSERT_EQ(findAmounts(text), expected) << text.toStdString();
        ASSERT_EQ(detectAmount(text), naive::chooseAmount(text, expected)) << text.toStdString();
        found += expected.isEmpty() ? 0 : 1;
    }
    EXPECT_GT(found, 4'000);
}

/// Little but digits, dots and units: where a price begins is hardest to tell here.
TEST(FindAmounts, FindsWhatTheWholeExpressionsFindInRunsOfDigits) {
    const QStringList pieces = {u"1"_s, u"2"_s, u"33"_s, u"."_s, u"元"_s, u" "_s, u"$"_s};
    std::mt19937 random(4);
    for (int i = 0; i < 25'000; ++i) {
        const QString text = naive::randomText(random, pieces, 12);
        ASSERT_EQ(findAmounts(text), naive::findAmounts(text)) << text.toStdString();
    }
}

TEST(ChooseAmount, TakesTheLargestAndOfEqualOnesTheFirst) {
    const QString text(200, u'x');
    EXPECT_EQ(chooseAmount(text, {}), std::nullopt);
    EXPECT_EQ(chooseAmount(text, {{1, u"CNY"_s, 50}}), (Amount{1, u"CNY"_s}));
    EXPECT_EQ(chooseAmount(text, {{1, u"CNY"_s, 50}, {3, u"EUR"_s, 90}, {2, u"USD"_s, 0}}),
              (Amount{3, u"EUR"_s}));
    EXPECT_EQ(chooseAmount(text, {{3, u"USD"_s, 90}, {1, u"CNY"_s, 0}, {3, u"EUR"_s, 50}}),
              (Amount{3, u"USD"_s}));
}

TEST(ChooseAmount, PrefersAnyPaymentLabelToTheLargest) {
    for (const QString &label : wordlists::paymentLabels) {
        for (const QString &written : {label, label.toUpper()}) {
            const QString text = u"$19.99 was the old one, "_s + written + u" $9.99, $29.99"_s;
            EXPECT_EQ(detectAmount(text), (Amount{9.99, u"USD"_s})) << text.toStdString();
        }
    }
    EXPECT_EQ(detectAmount(u"$19.99 was the old one, sum $9.99"_s), (Amount{19.99, u"USD"_s}));
}

TEST(ChooseAmount, LooksTenUnitsBackAndTwoAhead) {
    // Not so near the beginning that the twelve units reach further.
    const QString far = u"¥99 ............ "_s;
    struct {
        QString text;
        double amount;
    } const cases[] = {
        {u"合计12345678¥1"_s, 1},  {u"合计123456789¥1"_s, 99}, {u"total12345¥1"_s, 1},
        {u"total123456¥1"_s, 99},  {u"合计📷📷📷📷¥1"_s, 1},       {u"合计📷📷📷📷x¥1"_s, 99},
        {u".........合计¥1"_s, 1}, {u"¥1合计"_s, 99},          {u"¥1 amount"_s, 99},
    };
    for (const auto &[text, amount] : cases)
        EXPECT_EQ(detectAmount(far + text), (Amount{amount, u"CNY"_s})) << text.toStdString();
    // No price begins with a label; candidates made up show the last two units of the twelve.
    EXPECT_EQ(
        chooseAmount(u"............合计"_s, {{1, u"A"_s, 0}, {2, u"B"_s, 0}, {1, u"C"_s, 12}}),
        (Amount{1, u"C"_s}));
    EXPECT_EQ(
        chooseAmount(u"............合计"_s, {{1, u"A"_s, 0}, {2, u"B"_s, 0}, {1, u"C"_s, 11}}),
        (Amount{2, u"B"_s}));
}

/// The twelve units are counted from the beginning when there are fewer than ten before the match,
/// so they reach further behind it.
TEST(ChooseAmount, LooksFurtherAheadAtTheBeginning) {
    EXPECT_EQ(detectAmount(u"¥1 合计 ¥99"_s), (Amount{1, u"CNY"_s}));
    EXPECT_EQ(detectAmount(u"¥1 ..... total ¥99"_s), (Amount{99, u"CNY"_s}));
    EXPECT_EQ(detectAmount(u"¥1 123456合计 7777777 ¥99"_s), (Amount{1, u"CNY"_s}));
    EXPECT_EQ(detectAmount(u"¥1 1234567合计7 7777777 ¥99"_s), (Amount{1, u"CNY"_s}));
    EXPECT_EQ(detectAmount(u"¥1 12345678合计 7777777 ¥99"_s), (Amount{99, u"CNY"_s}));
}

TEST(ChooseAmount, WalksTheListNotTheText) {
    // Both prices have a label; the dollars come first in the list.
    EXPECT_EQ(detectAmount(u"合计 30元 ............ total $5"_s), (Amount{5, u"USD"_s}));
    EXPECT_EQ(detectAmount(u"total €7 ............ total €8"_s), (Amount{7, u"EUR"_s}));
}

TEST(DetectAmount, ReadsPricesAsTheyStandOnBills) {
    struct {
        QString text;
        std::optional<Amount> amount;
    } const cases[] = {
        {u""_s, std::nullopt},
        {u"谢谢惠顾"_s, std::nullopt},
        {u"¥0"_s, std::nullopt},
        {u"HK$78"_s, Amount{78, u"USD"_s}},
        {u"Total HK$78"_s, Amount{78, u"USD"_s}},
        {u"RMB 30"_s, Amount{30, u"CNY"_s}},
        {u"usd 5"_s, Amount{5, u"USD"_s}},
        {u"30元"_s, Amount{30, u"CNY"_s}},
        {u"¥1,299"_s, Amount{1, u"CNY"_s}},
        {u"Plan $19.99\nTotal $9.99"_s, Amount{9.99, u"USD"_s}},
        {u"Subtotal: $19.99\nTotal $9.99"_s, Amount{19.99, u"USD"_s}},
        {u"Music $19.99\nVideo $9.99"_s, Amount{19.99, u"USD"_s}},
        {u"$5 or 5元"_s, Amount{5, u"USD"_s}},
        {u"5元 or $5"_s, Amount{5, u"USD"_s}},
        {u"USD 7 or 7元"_s, Amount{7, u"CNY"_s}},
        {u"实付金额\n¥ 15.00"_s, Amount{15, u"CNY"_s}},
    };
    for (const auto &[text, amount] : cases)
        EXPECT_EQ(detectAmount(text), amount) << text.toStdString();
}

} // namespace tovarin::ReceiptParser
