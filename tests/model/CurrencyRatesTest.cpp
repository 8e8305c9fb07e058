// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "model/CurrencyRates.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

struct Row {
    QStringView code;
    double rate;
    QStringView symbol;
};

constexpr Row table[] = {
    {u"CNY", 1.0, u"¥"},    {u"USD", 7.2, u"$"},   {u"EUR", 7.8, u"€"},
    {u"HKD", 0.92, u"HK$"}, {u"JPY", 0.048, u"¥"}, {u"GBP", 9.1, u"£"},
};

} // namespace

TEST(CurrencyRates, SupportsTheseCodesInThisOrder) {
    ASSERT_EQ(CurrencyRates::supported.size(), std::size(table));
    for (std::size_t i = 0; i < std::size(table); ++i)
        EXPECT_EQ(CurrencyRates::supported[i], table[i].code);
}

TEST(CurrencyRates, HasEveryRateAndSymbolWhateverTheLetterCase) {
    for (const Row &row : table) {
        const QString code = row.code.toString();
        for (const QString &spelt : {code, code.toLower(), code.at(0) + code.mid(1).toLower()}) {
            EXPECT_EQ(CurrencyRates::rate(spelt), row.rate) << spelt.toStdString();
            EXPECT_EQ(CurrencyRates::symbol(spelt), row.symbol) << spelt.toStdString();
        }
    }
}

TEST(CurrencyRates, CountsAnUnknownCurrencyAsOneAndShowsItAsPassed) {
    for (const QString &code : {u"CHF"_s, u"chf"_s, u"RMB"_s, u" USD"_s, u"¥"_s, QString()}) {
        EXPECT_EQ(CurrencyRates::rate(code), 1.0) << code.toStdString();
        EXPECT_EQ(CurrencyRates::symbol(code), code);
    }
}

} // namespace tovarin
