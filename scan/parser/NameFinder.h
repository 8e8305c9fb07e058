// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <optional>

namespace tovarin::ReceiptParser {

/// The name of the service: the line that looks most like one, without its price. Brands, words of
/// a plan, a domain, Chinese and Latin letters and one of the first five places speak for a line;
/// the look of an account or file name speaks against it. The earliest of equal lines wins.
///
/// When nothing speaks for any line, the first that is no noise is taken. It has at most 24
/// characters then, while 30 are allowed otherwise; both limits are meant. No value when no line
/// is left. Lines end at U+000A alone, and blanks around them are cut off, carriage returns are
/// not.
std::optional<QString> detectName(const QString &in);

} // namespace tovarin::ReceiptParser
