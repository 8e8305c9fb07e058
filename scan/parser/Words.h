// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <span>
#include <string_view>

/// What the word lists of a bill's rules need.
namespace tovarin::ReceiptParser {

/// Full Unicode lower-casing, the same in every locale. The words of all lists are in lower case
/// already. The text has fewer than 2^30 units.
QString lowerCased(QStringView text);

/// A set of UTF-16 units, a little too large: units that are equal modulo 64 share a bit.
constexpr quint64 unitsOf(std::u16string_view text) {
    quint64 units = 0;
    for (const char16_t unit : text)
        units |= quint64(1) << (unit % 64);
    return units;
}

/// A word of a list. What it is made of tells at once that a short line does not hold it.
struct Word {
    // NOLINTNEXTLINE(google-explicit-constructor): the lists are to read as texts.
    consteval Word(const char16_t *literal) : text(literal), units(unitsOf(literal)) {}

    QStringView text;
    quint64 units;
};

/// Whether any of the words stands somewhere in the text, inside other words too. Letter case
/// counts.
bool containsAny(QStringView text, std::span<const Word> words);

} // namespace tovarin::ReceiptParser
