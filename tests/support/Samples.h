// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Subscription.h"
#include "platform/UserCalendar.h"

namespace tovarin {

/// A calendar by zone name ("Asia/Shanghai") and locale ("en_US"). An unknown zone fails the test.
UserCalendar calendarIn(const char *zone, const char *locale = "en_US");

/// An instant from its text, such as "2025-03-01T16:00:00Z". Another text fails the test.
Instant instant(std::string_view text);

/// A civil day from its text, such as "2025-03-01".
CivilDay civilDay(std::string_view text);

/// An active monthly entry of 30 CNY that began on 1 March 2025 in UTC, with an id of its own.
Subscription sampleSubscription(const QString &name = QStringLiteral("Music Plus"));

/// The monthly entry with other fields: for tests that look at dates.
Subscription startingOn(std::string_view timestamp, BillingCycle cycle = BillingCycle::monthly);

} // namespace tovarin
