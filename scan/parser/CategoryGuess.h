// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace tovarin::ReceiptParser {

/// The category key that the words of the name or of the text speak for, the first that any does;
/// "其他" when none does. The words count inside other words too: "ai" in "paid" and "email" puts
/// most English bills under "AI/工具", which is meant.
QString guessCategory(const QString &name, const QString &text);

} // namespace tovarin::ReceiptParser
