// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// What kind of character a glyph shows, as far as the reading of bills has to know.
namespace tovarin {

/// The character that the text begins with; 0 when it is empty.
char32_t codePoint(const QString &text);

bool isDigit(char32_t c);       ///< 0 to 9.
bool isLatinLetter(char32_t c); ///< With or without accents.
bool isHan(char32_t c);
/// Punctuation that brings its own white space along, as Chinese is set.
bool isFullWidth(char32_t c);
bool isCurrencySign(char32_t c); ///< $, €, £, ¥ and ￥.

} // namespace tovarin
