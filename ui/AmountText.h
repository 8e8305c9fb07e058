// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <optional>

namespace tovarin {

/// The number that the whole of a typed text is: an optional sign, digits with "." before the
/// decimals, an optional exponent. The form is fixed; it does not follow the user's locale. No
/// value for anything else: blanks, grouping, currency signs, a comma, hexadecimal digits, digits
/// of other scripts, "inf" and "nan"; nor for a number beyond a double's range, which no file could
/// hold.
std::optional<double> amountOf(const QString &text);

/// An amount as it is put before the user to be changed: a whole number within 64 bits without
/// decimals ("15"), anything else with as few digits as read back as the same number ("15.49").
/// Only what is very large or below 0.0001 has an exponent. amountOf() reads every finite one.
QString amountText(double amount);

} // namespace tovarin
