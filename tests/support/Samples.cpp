// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/support/Samples.h"

#include "model/Timestamp.h"

#include <QTimeZone>

#include <gtest/gtest.h>

#include <string>

namespace tovarin {

UserCalendar calendarIn(const char *zone, const char *locale) {
    const QTimeZone timeZone(zone);
    EXPECT_TRUE(timeZone.isValid()) << zone;
    return UserCalendar(QString::fromLatin1(locale), UserZone(timeZone));
}

Instant instant(std::string_view text) {
    const std::optional<Instant> parsed = Timestamp::parse(text);
    EXPECT_TRUE(parsed) << text;
    return parsed.value_or(Instant());
}

CivilDay civilDay(std::string_view text) {
    const Instant midnight = instant(std::string(text) + "T00:00:00Z");
    return CivilDay(std::chrono::floor<std::chrono::days>(midnight.time_since_epoch()));
}

Subscription sampleSubscription(const QString &name) {
    return {.id = QUuid::createUuid(),
            .name = name,
            .amount = 30,
            .currency = QStringLiteral("CNY"),
            .billingType = BillingType::recurring,
            .cycle = BillingCycle::monthly,
            .startDate = instant("2025-03-01T00:00:00Z"),
            .category = QStringLiteral("音乐"),
            .notes = QString(),
            .isActive = true,
            .serviceID = std::nullopt};
}

Subscription startingOn(std::string_view timestamp, BillingCycle cycle) {
    Subscription sub = sampleSubscription();
    sub.startDate = instant(timestamp);
    sub.cycle = cycle;
    return sub;
}

} // namespace tovarin
