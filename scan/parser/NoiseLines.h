// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "scan/parser/Expression.h"

#include <QString>

namespace tovarin::ReceiptParser {

/// Whether a line can never be the name of a service: it greets, has a word of a bill's form
/// ("合计", "total", …), is made of numbers, dates and signs only, or begins like an identifier.
///
/// Meant so: the words count inside other words too, so "Individual" and "Midjourney" are noise for
/// their "id", and "Update" for its "date"; an identifier in capitals is no noise.
bool isNoise(const QString &line);

/// The same for one line after another, made ready once. For one thread at a time.
class NoiseTest {
public:
    NoiseTest();
    bool isNoise(QStringView line, QStringView lower);

private:
    Search m_onlyNumbers;
    Search m_identifier;
};

} // namespace tovarin::ReceiptParser
