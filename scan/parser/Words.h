// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <span>

/// What the word lists of a bill's rules need.
namespace tovarin::ReceiptParser {

/// Full Unicode lower-casing, the same in every locale. The words of all lists are in lower case
/// already. The text has fewer than 2^30 units.
QString lowerCased(QStringView text);

/// Whether any of the words stands somewhere in the text, inside other words too. Letter case
/// counts.
bool containsAny(QStringView text, std::span<const QStringView> words);

} // namespace tovarin::ReceiptParser
