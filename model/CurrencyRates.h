// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <array>

/// Fixed exchange rates. They are constants: nothing updates them.
namespace tovarin::CurrencyRates {

/// The codes that the editor's picker offers, in its order.
inline constexpr std::array<QStringView, 6> supported = {u"CNY", u"USD", u"EUR",
                                                         u"HKD", u"JPY", u"GBP"};

/// CNY per one unit of the currency. The letter case of the code does not matter; an unknown
/// currency counts as CNY.
double rate(const QString &code);

/// The sign written before an amount. The letter case of a known code does not matter; an unknown
/// code is its own sign, exactly as passed. CNY and JPY share "¥". All of it is meant so.
QString symbol(const QString &code);

} // namespace tovarin::CurrencyRates
