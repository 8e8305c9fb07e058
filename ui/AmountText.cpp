// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/AmountText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

using namespace std::string_view_literals;

namespace tovarin {

namespace {

constexpr double integerBound = 0x1p63;
constexpr double smallestWithoutExponent = 1e-4;

/// Signs may stand in an exponent too; where they belong is left to who reads the number.
bool isOfNumber(QChar c) {
    return (c >= u'0' && c <= u'9') || c == u'.' || c == u'-' || c == u'+' || c == u'e' ||
           c == u'E';
}

} // namespace

std::optional<double> amountOf(const QString &text) {
    if (!std::ranges::all_of(text, isOfNumber))
        return std::nullopt;
    const QByteArray bytes = text.toLatin1();
    std::string_view number(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    // The one sign that from_chars does not take.
    if (number.starts_with('+')) {
        number.remove_prefix(1);
        if (number.starts_with('-'))
            return std::nullopt;
    }
    double amount = 0;
    const char *const end = number.data() + number.size();
    const auto [stop, error] = std::from_chars(number.data(), end, amount);
    if (error != std::errc() || stop != end)
        return std::nullopt;
    return amount;
}

QString amountText(double amount) {
    if (std::trunc(amount) == amount && amount >= -integerBound && amount < integerBound)
        return QString::number(static_cast<qint64>(amount));
    const double size = std::abs(amount);
    const bool isPlain = size >= smallestWithoutExponent && size < integerBound;
    std::array<char, 64> text;
    const auto [end, error] =
        std::to_chars(text.begin(), text.end(), amount,
                      isPlain ? std::chars_format::fixed : std::chars_format::scientific);
    Q_ASSERT(error == std::errc());
    return QString::fromLatin1(text.data(), end - text.data());
}

} // namespace tovarin
