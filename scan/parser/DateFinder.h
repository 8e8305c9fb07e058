// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/UserCalendar.h"

#include <QString>

#include <optional>

namespace tovarin::ReceiptParser {

/// The first date of the text (a year from 1900 to 2099, month and day, apart by -, /, . or 年 and
/// 月): the start of that day in the user's zone. Its numbers count in the user's own calendar,
/// which rolls months and days out of range over.
///
/// No value without a date, or for one that the calendar cannot name. Digits of other scripts make
/// a date but no number; 2026, January and the 1st stand in for such a year, month and day.
std::optional<Instant> detectDate(const QString &in, const UserCalendar &calendar);

} // namespace tovarin::ReceiptParser
