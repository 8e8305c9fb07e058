// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Subscription.h"
#include "platform/Clock.h"
#include "platform/UserCalendar.h"

#include <QString>

/// Turns the text of one bill into a draft that a person then looks over: lists of words, regular
/// expressions and a little scoring, made for the app-store receipts, payment confirmations and
/// e-mails that people have. It keeps nothing between two calls. Time and memory are linear in the
/// length of the text, whatever it holds, and any UTF-16 will do, broken surrogates too.
namespace tovarin::ReceiptParser {

/// The draft: an active entry with a fresh id and no serviceID. Where nothing is recognised the
/// name is empty, the amount 0 CNY, the cycle monthly, the type recurring, the date now, and the
/// category "其他". The notes hold the first six lines of the text, under a heading in the language
/// of this moment. The text has fewer than 2^30 units.
///
/// Runs on any thread that may ask the shared LocalizationManager and the calendar.
Subscription parse(const QString &text, const Clock &clock, const UserCalendar &calendar);

} // namespace tovarin::ReceiptParser
