// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/BillingType.h"

#include <QString>

namespace tovarin::ReceiptParser {

/// One-time when any word of the text says so ("买断", "lifetime", …), even beside words of a
/// subscription. Every other text is recurring, whether or not it has a word or a cycle that says
/// so: these are looked at without effect, which is meant.
BillingType detectType(const QString &in, bool hasCycle);

} // namespace tovarin::ReceiptParser
