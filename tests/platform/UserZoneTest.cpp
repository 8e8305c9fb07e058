// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/UserZone.h"

#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <QDateTime>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace tovarin {

namespace {

struct Case {
    const char *zone;
    const char *instant;
    const char *day;
};

UserZone zone(const char *name) {
    const QTimeZone timeZone(name);
    EXPECT_TRUE(timeZone.isValid()) << name;
    return UserZone(timeZone);
}

} // namespace

TEST(UserZone, KnowsTheDayOfAnInstant) {
    const Case cases[] = {
        {"UTC", "2025-01-15T23:59:59Z", "2025-01-15"},
        {"Asia/Shanghai", "2025-01-15T15:59:59Z", "2025-01-15"},
        {"Asia/Shanghai", "2025-01-15T16:00:00Z", "2025-01-16"},
        {"America/Los_Angeles", "2025-01-15T07:59:59Z", "2025-01-14"},
        {"America/Los_Angeles", "2025-01-15T08:00:00Z", "2025-01-15"},
        {"America/Los_Angeles", "2025-07-15T06:59:59Z", "2025-07-14"},
        {"America/Los_Angeles", "2025-07-15T07:00:00Z", "2025-07-15"},
        {"Pacific/Kiritimati", "2025-01-15T10:00:00Z", "2025-01-16"},
        {"Asia/Kathmandu", "2025-01-15T18:14:59Z", "2025-01-15"},
        {"Asia/Kathmandu", "2025-01-15T18:15:00Z", "2025-01-16"},
        // A whole day was left out here.
        {"Pacific/Apia", "2011-12-30T09:59:59Z", "2011-12-29"},
        {"Pacific/Apia", "2011-12-30T10:00:00Z", "2011-12-31"},
        // Before the Epoch, and far beyond the table of spans.
        {"Asia/Shanghai", "1900-06-01T15:54:16Z", "1900-06-01"},
        {"Asia/Shanghai", "1900-06-01T15:54:17Z", "1900-06-02"},
        {"Europe/Berlin", "2199-07-01T21:59:59Z", "2199-07-01"},
        {"Europe/Berlin", "2199-07-01T22:00:00Z", "2199-07-02"},
        {"UTC", "0000-01-01T00:00:00Z", "0000-01-01"},
        {"UTC", "9999-12-31T23:59:59Z", "9999-12-31"},
    };
    for (const Case &c : cases)
        EXPECT_EQ(zone(c.zone).day(instant(c.instant)), civilDay(c.day))
            << c.zone << ' ' << c.instant;
}

TEST(UserZone, FollowsRulesThatChangedAfter2022) {
    const Case cases[] = {
        // Kazakhstan went from +6 to +5 in March 2024.
        {"Asia/Almaty", "2024-02-10T18:30:00Z", "2024-02-11"},
        {"Asia/Almaty", "2024-03-10T18:30:00Z", "2024-03-10"},
        // Mexico has had no summer time since October 2022.
        {"America/Mexico_City", "2022-07-10T05:30:00Z", "2022-07-10"},
        {"America/Mexico_City", "2024-07-10T05:30:00Z", "2024-07-09"},
        // Egypt took it up again in 2023.
        {"Africa/Cairo", "2022-07-10T21:30:00Z", "2022-07-10"},
        {"Africa/Cairo", "2023-07-10T21:30:00Z", "2023-07-11"},
    };
    for (const Case &c : cases)
        EXPECT_EQ(zone(c.zone).day(instant(c.instant)), civilDay(c.day))
            << c.zone << ' ' << c.instant;
}

TEST(UserZone, StartsADay) {
    const Case cases[] = {
        {"UTC", "2025-01-15T00:00:00Z", "2025-01-15"},
        {"Asia/Shanghai", "2025-01-14T16:00:00Z", "2025-01-15"},
        {"America/Los_Angeles", "2025-07-15T07:00:00Z", "2025-07-15"},
        // The clocks skip midnight: the day starts at one.
        {"America/Sao_Paulo", "2018-11-04T03:00:00Z", "2018-11-04"},
        {"Asia/Beirut", "2024-03-30T22:00:00Z", "2024-03-31"},
        {"Africa/Cairo", "2024-04-25T22:00:00Z", "2024-04-26"},
        // Midnight comes twice: the first one counts.
        {"America/Havana", "2024-11-03T04:00:00Z", "2024-11-03"},
        // The day does not exist: it starts where the next one does.
        {"Pacific/Apia", "2011-12-30T10:00:00Z", "2011-12-30"},
        {"Pacific/Apia", "2011-12-30T10:00:00Z", "2011-12-31"},
    };
    for (const Case &c : cases)
        EXPECT_EQ(zone(c.zone).startOfDay(civilDay(c.day)), instant(c.instant))
            << c.zone << ' ' << c.day;
}

TEST(UserZone, KnowsWhenClocksShowATime) {
    struct {
        const char *zone;
        const char *day;
        std::chrono::minutes time;
        const char *instant;
    } const cases[] = {
        {"UTC", "2025-01-15", 10h, "2025-01-15T10:00:00Z"},
        {"UTC", "2025-01-15", 0h, "2025-01-15T00:00:00Z"},
        {"UTC", "2025-01-15", 23h + 59min, "2025-01-15T23:59:00Z"},
        {"Asia/Shanghai", "2025-01-15", 10h, "2025-01-15T02:00:00Z"},
        {"Asia/Kathmandu", "2025-01-15", 10h, "2025-01-15T04:15:00Z"},
        {"Pacific/Kiritimati", "2025-01-15", 10h, "2025-01-14T20:00:00Z"},
        {"Pacific/Pago_Pago", "2025-01-15", 23h, "2025-01-16T10:00:00Z"},
        // On the days of a change, and around them.
        {"America/Los_Angeles", "2025-03-08", 10h, "2025-03-08T18:00:00Z"},
        {"America/Los_Angeles", "2025-03-09", 10h, "2025-03-09T17:00:00Z"},
        {"America/Los_Angeles", "2025-11-01", 10h, "2025-11-01T17:00:00Z"},
        {"America/Los_Angeles", "2025-11-02", 10h, "2025-11-02T18:00:00Z"},
        // The time does not exist: as much later as the clocks are put forward.
        {"America/Los_Angeles", "2025-03-09", 1h + 59min, "2025-03-09T09:59:00Z"},
        {"America/Los_Angeles", "2025-03-09", 2h, "2025-03-09T10:00:00Z"},
        {"America/Los_Angeles", "2025-03-09", 2h + 30min, "2025-03-09T10:30:00Z"},
        {"America/Los_Angeles", "2025-03-09", 3h, "2025-03-09T10:00:00Z"},
        {"Australia/Lord_Howe", "2025-10-05", 2h + 15min, "2025-10-04T15:45:00Z"},
        {"America/Sao_Paulo", "2018-11-04", 0h, "2018-11-04T03:00:00Z"},
        // The time comes twice: the first one counts.
        {"America/Los_Angeles", "2025-11-02", 59min, "2025-11-02T07:59:00Z"},
        {"America/Los_Angeles", "2025-11-02", 1h, "2025-11-02T08:00:00Z"},
        {"America/Los_Angeles", "2025-11-02", 1h + 59min, "2025-11-02T08:59:00Z"},
        {"America/Los_Angeles", "2025-11-02", 2h, "2025-11-02T10:00:00Z"},
        // A day that comes twice but for an hour, by the date line.
        {"Pacific/Kwajalein", "1969-09-30", 10h, "1969-09-29T23:00:00Z"},
        // Days that were left out: the same time of the next one.
        {"Pacific/Apia", "2011-12-29", 10h, "2011-12-29T20:00:00Z"},
        {"Pacific/Apia", "2011-12-30", 10h, "2011-12-30T20:00:00Z"},
        {"Pacific/Apia", "2011-12-31", 10h, "2011-12-30T20:00:00Z"},
        {"Pacific/Kiritimati", "1994-12-31", 10h, "1994-12-31T20:00:00Z"},
        {"Pacific/Kwajalein", "1993-08-21", 10h, "1993-08-21T22:00:00Z"},
        // Far from now, on both sides.
        {"Europe/Berlin", "2199-07-01", 10h, "2199-07-01T08:00:00Z"},
        {"Europe/Berlin", "9999-01-01", 10h, "9999-01-01T09:00:00Z"},
        {"Asia/Shanghai", "1900-06-01", 10h, "1900-06-01T01:54:17Z"},
    };
    for (const auto &[name, day, time, expected] : cases)
        EXPECT_EQ(zone(name).instantOf(civilDay(day), time), instant(expected))
            << name << ' ' << day << ' ' << time.count();
}

TEST(UserZone, KnowsNoMomentTooFarAway) {
    using std::chrono::days;
    const CivilDay epoch{};
    for (const char *name : {"UTC", "Europe/Berlin", "Pacific/Apia"}) {
        const UserZone userZone = zone(name);
        for (const days far : {days(365'250'000), days(100'000'000'000)}) {
            for (const CivilDay day : {epoch + far, epoch - far}) {
                const std::optional<Instant> found = userZone.instantOf(day, 10h);
                ASSERT_TRUE(found);
                EXPECT_LE(abs(*found - Instant(day.time_since_epoch() + 10h)), 16h);
            }
        }
        EXPECT_EQ(userZone.instantOf(epoch + days(100'000'000'001), 10h), std::nullopt);
        EXPECT_EQ(userZone.instantOf(epoch - days(100'000'000'001), 10h), std::nullopt);
        EXPECT_EQ(userZone.instantOf(CivilDay::max(), 10h), std::nullopt);
        EXPECT_EQ(userZone.instantOf(CivilDay::min(), 10h), std::nullopt);
    }
}

/// The table of spans against the zone itself, across each change of the clocks.
TEST(UserZone, AgreesWithTheZoneFilesAtEveryTransition) {
    for (const char *name :
         {"UTC", "Asia/Shanghai", "America/New_York", "Europe/London", "Australia/Lord_Howe",
          "America/Sao_Paulo", "Pacific/Apia", "Africa/Casablanca", "Asia/Almaty", "Asia/Tehran"}) {
        const QTimeZone timeZone(name);
        const UserZone userZone(timeZone);
        const auto expectSame = [&](const QDateTime &at) {
            const CivilDay expected(
                std::chrono::days(at.toTimeZone(timeZone).date().toJulianDay() - 2440588));
            EXPECT_EQ(userZone.day(Instant(std::chrono::milliseconds(at.toMSecsSinceEpoch()))),
                      expected)
                << name << ' ' << at.toString(Qt::ISODateWithMs).toStdString();
        };
        const QDateTime begin(QDate(1960, 1, 1), QTime(0, 0), Qt::UTC);
        const QDateTime end(QDate(2075, 1, 1), QTime(0, 0), Qt::UTC);
        for (const auto &transition : timeZone.transitions(begin, end)) {
            for (const qint64 distance :
                 {-86'400'000, -3'600'000, -1, 0, 1, 3'599'999, 3'600'000, 86'400'000})
                expectSame(transition.atUtc.addMSecs(distance));
        }
        for (QDateTime at = begin; at < end; at = at.addDays(17).addSecs(12'345))
            expectSame(at);
    }
}

TEST(UserZone, FallsBackToUtc) {
    EXPECT_EQ(UserZone(QTimeZone()).day(instant("2025-01-15T23:59:59Z")), civilDay("2025-01-15"));
}

TEST(UserZone, FollowsTZ) {
    const QByteArray before = qgetenv("TZ");
    qputenv("TZ", "Asia/Tokyo");
    EXPECT_EQ(UserZone::current().day(instant("2025-01-15T15:00:00Z")), civilDay("2025-01-16"));
    qputenv("TZ", ":America/New_York");
    EXPECT_EQ(UserZone::current().day(instant("2025-01-15T04:59:59Z")), civilDay("2025-01-14"));
    qputenv("TZ", "CST-8");
    EXPECT_EQ(UserZone::current().day(instant("2025-01-15T16:00:00Z")), civilDay("2025-01-16"));
    qputenv("TZ", "No/Such_Zone");
    EXPECT_EQ(UserZone::current().day(instant("2025-01-15T23:59:59Z")), civilDay("2025-01-15"));
    if (before.isNull())
        qunsetenv("TZ");
    else
        qputenv("TZ", before);
}

} // namespace tovarin
