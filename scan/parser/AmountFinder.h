// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QList>
#include <QString>

#include <optional>

namespace tovarin::ReceiptParser {

/// A price found in a text.
struct AmountCandidate {
    double amount;      ///< Greater than 0, finite; in whole units of the currency.
    QString currency;   ///< A code such as "CNY".
    qsizetype location; ///< Where the whole match starts, in UTF-16 units.

    bool operator==(const AmountCandidate &) const = default;
};

struct Amount {
    double amount;
    QString currency;

    bool operator==(const Amount &) const = default;
};

/// Every price of the text: first those with a sign before the number, then those with "HK$", then
/// those with 元, 圆 or 块 behind it, then those with a currency code before it; each kind from
/// left to right.
///
/// Meant so: "HK$12" is also "$12", which comes first; "¥1,299.00" is 1; further decimals than two
/// are left out. A number too large for a double is no price, as it could not be stored.
QList<AmountCandidate> findAmounts(const QString &text);

/// The first candidate with a payment label ("合计", "total", …) close by, in the ten units before
/// it or the two at its start; close to the text's beginning the same twelve units, counted from
/// there, reach behind it. Without a label the largest amount, the earliest of equal ones.
std::optional<Amount> chooseAmount(const QString &text, const QList<AmountCandidate> &candidates);

/// The price that the bill asks for; no value when the text has no price.
std::optional<Amount> detectAmount(const QString &in);

} // namespace tovarin::ReceiptParser
