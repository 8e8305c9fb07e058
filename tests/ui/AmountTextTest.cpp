// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/AmountText.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

TEST(AmountOf, ReadsNumbersInTheCLocale) {
    struct {
        QString text;
        double amount;
    } const cases[] = {
        {u"15"_s, 15},       {u"15.0"_s, 15},
        {u"15.49"_s, 15.49}, {u"+15"_s, 15},
        {u"-3"_s, -3},       {u"0"_s, 0},
        {u"007"_s, 7},       {u"5."_s, 5},
        {u".5"_s, 0.5},      {u"-.5"_s, -0.5},
        {u"+.5"_s, 0.5},     {u"1e3"_s, 1000},
        {u"1E+3"_s, 1000},   {u"25e-1"_s, 2.5},
        {u"1.5e2"_s, 150},   {u"5.e1"_s, 50},
        {u"1e308"_s, 1e308}, {u"100000"_s, 1e5},
        {u"0.1"_s, 0.1},     {u"1"_s + QString(40, u'0'), 1e40},
    };
    for (const auto &[text, amount] : cases)
        EXPECT_EQ(amountOf(text), amount) << text.toStdString();
}

TEST(AmountOf, RefusesEverythingElse) {
    for (const QString &text : {u""_s,         u" "_s,        u" 15"_s,
                                u"15 "_s,      u"\t15"_s,     u"15\t"_s,
                                u"\n15"_s,     u"15\n"_s,     u"\u000115"_s,
                                u"15,5"_s,     u"9,99"_s,     u"1,000"_s,
                                u"1 000"_s,    u"1_000"_s,    u"1'000"_s,
                                u"¥15"_s,      u"$15"_s,      u"15元"_s,
                                u"15%"_s,      u"inf"_s,      u"-inf"_s,
                                u"Infinity"_s, u"nan"_s,      u"NaN"_s,
                                u"0x10"_s,     u"0x1p3"_s,    u"10b"_s,
                                u"."_s,        u"-"_s,        u"+"_s,
                                u"+-1"_s,      u"-+1"_s,      u"++1"_s,
                                u"--1"_s,      u"+ 1"_s,      u"1.2.3"_s,
                                u"e5"_s,       u".e5"_s,      u"1e"_s,
                                u"1e+"_s,      u"1e5.5"_s,    u"1e5e5"_s,
                                u"1-"_s,       u"1+1"_s,      u"١٥"_s,
                                u"１５"_s,     u"15\u00A0"_s, u"\u200E15"_s,
                                u"1e999"_s,    u"-1e999"_s,   u"15"_s + QChar(0),
                                u"½"_s,        u"−3"_s})
        EXPECT_EQ(amountOf(text), std::nullopt) << text.toStdString();
}

TEST(AmountText, WritesWholeNumbersWithoutDecimals) {
    struct {
        double amount;
        QString text;
    } const cases[] = {
        {15, u"15"_s},
        {30, u"30"_s},
        {0, u"0"_s},
        {-0.0, u"0"_s},
        {-3, u"-3"_s},
        {100000, u"100000"_s},
        {1e15, u"1000000000000000"_s},
        {9007199254740992, u"9007199254740992"_s},
        {0x1p63 - 1024, u"9223372036854774784"_s},
        {-0x1p63, u"-9223372036854775808"_s},
    };
    for (const auto &[amount, text] : cases)
        EXPECT_EQ(amountText(amount), text);
}

TEST(AmountText, WritesTheRestAsShortAsItReadsBack) {
    struct {
        double amount;
        QString text;
    } const cases[] = {
        {15.49, u"15.49"_s},
        {9.99, u"9.99"_s},
        {0.5, u"0.5"_s},
        {-0.5, u"-0.5"_s},
        {0.1 + 0.2, u"0.30000000000000004"_s},
        {100000.5, u"100000.5"_s},
        {1.0 / 3, u"0.3333333333333333"_s},
        {0.001, u"0.001"_s},
        {0.0001, u"0.0001"_s},
        {0.00001, u"1e-05"_s},
        {1234567890123.25, u"1234567890123.25"_s},
        {0x1p63, u"9.223372036854776e+18"_s},
        {1e20, u"1e+20"_s},
        {std::numeric_limits<double>::max(), u"1.7976931348623157e+308"_s},
        {std::numeric_limits<double>::denorm_min(), u"5e-324"_s},
    };
    for (const auto &[amount, text] : cases)
        EXPECT_EQ(amountText(amount), text);
}

TEST(AmountText, ReadsBackAsTheSameNumber) {
    std::mt19937_64 random(7);
    for (int i = 0; i < 20'000; ++i) {
        double amount = 0;
        do {
            amount = std::bit_cast<double>(random());
        } while (!std::isfinite(amount));
        EXPECT_EQ(amountOf(amountText(amount)), amount);
        const double cents = static_cast<double>(random() % 1'000'000'000) / 100;
        EXPECT_EQ(amountOf(amountText(cents)), cents);
    }
}

} // namespace tovarin
