// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Clock.h"

#include <QByteArray>

#include <optional>
#include <string_view>

/// Points in time as the file writes them: ISO 8601, UTC, whole seconds, "2025-01-15T16:00:00Z".
namespace tovarin::Timestamp {

constexpr std::size_t length = 20;

/// Reads exactly that form, proleptic Gregorian years 0000 to 9999. No value for anything else:
/// other letters, fractions, offsets, and days, hours or seconds that do not exist (24:00:00 and
/// leap seconds among them).
std::optional<Instant> parse(std::string_view text);

/// Appends that form; parts of a second are dropped. False, and nothing appended, when the year
/// cannot be written with four digits.
bool append(QByteArray &to, Instant instant);

} // namespace tovarin::Timestamp
