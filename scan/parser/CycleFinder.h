// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/BillingCycle.h"

#include <QString>

#include <optional>

namespace tovarin::ReceiptParser {

/// How often the bill says it is charged: by its words, yearly ones before quarterly, weekly and
/// monthly ones wherever they stand; without any, by detectNumberUnitCycle. A text that speaks of
/// months and of years is yearly, which is meant.
std::optional<BillingCycle> detectCycle(const QString &in);

/// The cycle of the first number with a unit of time in a text in lower case ("6个月", "1 year");
/// no value without one. Meant so: only months look at the number (up to 2 monthly, up to 11
/// quarterly, then yearly; one that no 64-bit integer holds counts as 0), and the year of a date
/// is a number with a unit.
std::optional<BillingCycle> detectNumberUnitCycle(const QString &text);

} // namespace tovarin::ReceiptParser
