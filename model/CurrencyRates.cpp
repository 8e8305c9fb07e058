// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "model/CurrencyRates.h"

#include <algorithm>

namespace tovarin::CurrencyRates {

namespace {

struct Currency {
    QStringView code;
    double toCNY;
    QStringView symbol;
};

constexpr std::array<Currency, 6> toCNYTable = {{
    {u"CNY", 1.0, u"¥"},
    {u"USD", 7.2, u"$"},
    {u"EUR", 7.8, u"€"},
    {u"HKD", 0.92, u"HK$"},
    {u"JPY", 0.048, u"¥"},
    {u"GBP", 9.1, u"£"},
}};

const Currency *find(const QString &code) {
    const QString upper = code.toUpper();
    const auto *const found = std::ranges::find(toCNYTable, QStringView(upper), &Currency::code);
    return found == toCNYTable.end() ? nullptr : found;
}

} // namespace

double rate(const QString &code) {
    const Currency *currency = find(code);
    return currency ? currency->toCNY : 1.0;
}

QString symbol(const QString &code) {
    const Currency *currency = find(code);
    return currency ? currency->symbol.toString() : code;
}

} // namespace tovarin::CurrencyRates
