// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "model/Subscription.h"

#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <QSet>

#include <gtest/gtest.h>

#include <random>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

constexpr BillingCycle weekly = BillingCycle::weekly;
constexpr BillingCycle monthly = BillingCycle::monthly;
constexpr BillingCycle quarterly = BillingCycle::quarterly;
constexpr BillingCycle yearly = BillingCycle::yearly;

/// A record with every field different from the sample's.
QList<Subscription> eachFieldChanged(const Subscription &sub) {
    QList<Subscription> changed(11, sub);
    changed[0].id = QUuid::createUuid();
    changed[1].name += u'!';
    changed[2].amount += 1;
    changed[3].currency = u"USD"_s;
    changed[4].billingType = BillingType::oneTime;
    changed[5].cycle = yearly;
    changed[6].startDate += std::chrono::milliseconds(1);
    changed[7].category = u"其他"_s;
    changed[8].notes = u"note"_s;
    changed[9].isActive = false;
    changed[10].serviceID = QString();
    return changed;
}

} // namespace

TEST(Subscription, IsEqualOnlyInAllElevenFields) {
    const Subscription sub = sampleSubscription();
    EXPECT_EQ(sub, Subscription(sub));
    for (const Subscription &other : eachFieldChanged(sub))
        EXPECT_NE(sub, other);
}

TEST(Subscription, HashesAllElevenFields) {
    const Subscription sub = sampleSubscription();
    EXPECT_EQ(qHash(sub), qHash(Subscription(sub)));
    QSet<Subscription> set{sub};
    for (const Subscription &other : eachFieldChanged(sub)) {
        EXPECT_NE(qHash(sub), qHash(other)) << testing::PrintToString(other);
        set.insert(other);
    }
    EXPECT_EQ(set.size(), 12);
}

TEST(MonthlyAmount, IsTheProductWithTheCyclesFactor) {
    struct {
        double amount;
        BillingCycle cycle;
        double monthlyAmount;
    } const cases[] = {
        {120, yearly, 10},
        {120, yearly, 120 * 0.08333333333333333},
        {10, weekly, 43.33333333333333},
        {30, monthly, 30},
        {100, quarterly, 100 * 0.3333333333333333},
        // Not the quotient: 299.9 / 12 is another double.
        {299.9, yearly, 299.9 * 0.08333333333333333},
        {-12, yearly, -1},
        {0, weekly, 0},
    };
    for (const auto &c : cases) {
        Subscription sub = sampleSubscription();
        sub.amount = c.amount;
        sub.cycle = c.cycle;
        EXPECT_EQ(sub.monthlyAmountInCurrency(), c.monthlyAmount);
    }
}

TEST(MonthlyAmount, IsZeroForPausedAndOneTimeEntries) {
    for (const BillingCycle cycle : allBillingCycles) {
        Subscription paused = sampleSubscription();
        paused.cycle = cycle;
        paused.isActive = false;
        EXPECT_EQ(paused.monthlyAmountInCurrency(), 0);
        Subscription oneTime = sampleSubscription();
        oneTime.cycle = cycle;
        oneTime.billingType = BillingType::oneTime;
        EXPECT_EQ(oneTime.monthlyAmountInCurrency(), 0);
        oneTime.isActive = false;
        EXPECT_EQ(oneTime.monthlyAmountInCurrency(), 0);
    }
}

TEST(NextCharge, StepsFromTheStartToTheFirstDayNotPast) {
    struct {
        const char *start;
        BillingCycle cycle;
        const char *reference;
        const char *next;
        int days;
    } const cases[] = {
        // Today and ahead.
        {"2025-04-01T00:00:00Z", monthly, "2025-04-01T12:00:00Z", "2025-04-01", 0},
        {"2025-04-01T23:59:59Z", monthly, "2025-04-01T00:00:00Z", "2025-04-01", 0},
        {"2025-04-02T00:00:00Z", monthly, "2025-04-01T23:59:59Z", "2025-04-02", 1},
        {"2026-04-01T00:00:00Z", weekly, "2025-04-01T00:00:00Z", "2026-04-01", 365},
        // One step and more.
        {"2025-03-31T00:00:00Z", weekly, "2025-04-01T00:00:00Z", "2025-04-07", 6},
        {"2025-03-25T00:00:00Z", weekly, "2025-04-01T00:00:00Z", "2025-04-01", 0},
        {"2024-01-01T00:00:00Z", monthly, "2025-04-02T00:00:00Z", "2025-05-01", 29},
        {"2024-01-15T00:00:00Z", quarterly, "2025-04-16T00:00:00Z", "2025-07-15", 90},
        {"2020-06-30T00:00:00Z", yearly, "2025-07-01T00:00:00Z", "2026-06-30", 364},
        // The end of the month drifts, and stays where it came to.
        {"2025-01-31T00:00:00Z", monthly, "2025-02-01T00:00:00Z", "2025-02-28", 27},
        {"2025-01-31T00:00:00Z", monthly, "2025-03-01T00:00:00Z", "2025-03-28", 27},
        {"2025-01-31T00:00:00Z", monthly, "2025-04-01T00:00:00Z", "2025-04-28", 27},
        {"2024-01-31T00:00:00Z", monthly, "2024-04-01T00:00:00Z", "2024-04-29", 28},
        {"2024-01-31T00:00:00Z", monthly, "2025-03-01T00:00:00Z", "2025-03-28", 27},
        {"2025-03-31T00:00:00Z", monthly, "2025-05-01T00:00:00Z", "2025-05-30", 29},
        {"2024-11-30T00:00:00Z", quarterly, "2025-05-01T00:00:00Z", "2025-05-28", 27},
        // A leap day becomes the 28th for good.
        {"2024-02-29T00:00:00Z", yearly, "2025-01-01T00:00:00Z", "2025-02-28", 58},
        {"2024-02-29T00:00:00Z", yearly, "2028-01-01T00:00:00Z", "2028-02-28", 58},
    };
    const UserCalendar calendar = calendarIn("UTC");
    for (const auto &c : cases) {
        const Subscription sub = startingOn(c.start, c.cycle);
        EXPECT_EQ(sub.nextChargeDate(instant(c.reference), calendar), civilDay(c.next))
            << c.start << ' ' << c.reference;
        EXPECT_EQ(sub.daysUntilNextCharge(instant(c.reference), calendar), c.days)
            << c.start << ' ' << c.reference;
    }
}

TEST(NextCharge, OfAOneTimeOrPausedEntryIsItsStartWhileThatIsNotPast) {
    const UserCalendar calendar = calendarIn("UTC");
    const Instant now = instant("2025-04-10T12:00:00Z");
    for (const bool isActive : {true, false}) {
        for (const BillingType type : allBillingTypes) {
            if (isActive && type == BillingType::recurring)
                continue;
            const auto entry = [&](const char *start) {
                Subscription sub = startingOn(start);
                sub.isActive = isActive;
                sub.billingType = type;
                return sub;
            };
            EXPECT_EQ(entry("2025-04-09T23:59:59Z").nextChargeDate(now, calendar), std::nullopt);
            EXPECT_EQ(entry("2025-04-09T23:59:59Z").daysUntilNextCharge(now, calendar),
                      std::nullopt);
            EXPECT_EQ(entry("2024-04-10T12:00:00Z").nextChargeDate(now, calendar), std::nullopt);
            EXPECT_EQ(entry("2025-04-10T00:00:00Z").nextChargeDate(now, calendar),
                      civilDay("2025-04-10"));
            EXPECT_EQ(entry("2025-04-10T00:00:00Z").daysUntilNextCharge(now, calendar), 0);
            EXPECT_EQ(entry("2025-04-11T00:00:00Z").nextChargeDate(now, calendar),
                      civilDay("2025-04-11"));
            EXPECT_EQ(entry("2025-04-11T00:00:00Z").daysUntilNextCharge(now, calendar), 1);
        }
    }
}

TEST(NextCharge, GivesUpAfterTenThousandSteps) {
    const UserCalendar calendar = calendarIn("UTC");
    const CivilDay start = civilDay("1800-01-01");
    const Subscription sub = startingOn("1800-01-01T00:00:00Z", weekly);
    const CivilDay last = start + std::chrono::days(70'000);
    const auto at = [](CivilDay day) { return Instant(day.time_since_epoch()); };
    EXPECT_EQ(sub.nextChargeDate(at(last - std::chrono::days(1)), calendar), last);
    EXPECT_EQ(sub.nextChargeDate(at(last), calendar), last);
    // From here on the last step lies in the past, and is given all the same.
    EXPECT_EQ(sub.nextChargeDate(at(last + std::chrono::days(1)), calendar), last);
    EXPECT_EQ(sub.daysUntilNextCharge(at(last + std::chrono::days(1)), calendar), -1);
    EXPECT_EQ(sub.nextChargeDate(instant("2025-04-01T00:00:00Z"), calendar), last);
    // The other cycles reach any day from there.
    EXPECT_EQ(startingOn("1800-01-01T00:00:00Z", monthly)
                  .nextChargeDate(instant("2025-04-02T00:00:00Z"), calendar),
              civilDay("2025-05-01"));
}

TEST(NextCharge, LooksAtDaysInTheUsersZone) {
    // 16:00 UTC on 31 January is 1 February in Shanghai.
    const Subscription sub = startingOn("2025-01-31T16:00:00Z");
    const Instant now = instant("2025-03-31T12:00:00Z");
    EXPECT_EQ(sub.nextChargeDate(now, calendarIn("Asia/Shanghai")), civilDay("2025-04-01"));
    EXPECT_EQ(sub.daysUntilNextCharge(now, calendarIn("Asia/Shanghai")), 1);
    EXPECT_EQ(sub.nextChargeDate(now, calendarIn("UTC")), civilDay("2025-04-28"));
    // 12:00 UTC is 1 April already, far in the east.
    EXPECT_EQ(sub.daysUntilNextCharge(now, calendarIn("Pacific/Kiritimati")), 0);
}

TEST(NextCharge, CountsDaysAcrossChangesOfTheClocks) {
    // Days of 23 and 25 hours, and one without midnight.
    struct {
        const char *zone;
        const char *start;
        const char *reference;
        int days;
    } const cases[] = {
        {"America/New_York", "2025-03-10T04:00:00Z", "2025-03-09T05:00:00Z", 1},
        {"America/New_York", "2025-03-10T04:00:00Z", "2025-03-10T03:59:59Z", 1},
        {"America/New_York", "2025-11-03T05:00:00Z", "2025-11-02T04:00:00Z", 1},
        {"America/Sao_Paulo", "2018-11-05T02:00:00Z", "2018-11-04T03:00:00Z", 1},
        {"America/Sao_Paulo", "2018-11-04T03:00:00Z", "2018-11-04T02:59:59Z", 1},
        {"America/Sao_Paulo", "2018-11-04T03:00:00Z", "2018-11-05T01:59:59Z", 0},
        {"Africa/Cairo", "2024-04-26T01:00:00Z", "2024-04-25T21:30:00Z", 1},
    };
    for (const auto &c : cases)
        EXPECT_EQ(startingOn(c.start).daysUntilNextCharge(instant(c.reference), calendarIn(c.zone)),
                  c.days)
            << c.zone << ' ' << c.reference;
}

TEST(NextCharge, FollowsAZoneWhoseRulesChanged) {
    // Almaty is five hours ahead of UTC since March 2024, six before.
    const UserCalendar almaty = calendarIn("Asia/Almaty");
    const Subscription sub = startingOn("2024-01-31T18:30:00Z"); // 1 February there
    EXPECT_EQ(sub.nextChargeDate(instant("2025-03-31T18:30:00Z"), almaty), civilDay("2025-04-01"));
    EXPECT_EQ(sub.daysUntilNextCharge(instant("2025-03-31T18:30:00Z"), almaty), 1);
    EXPECT_EQ(sub.daysUntilNextCharge(instant("2025-03-31T19:00:00Z"), almaty), 0);
}

TEST(NextCharge, StepsInTheUsersCalendar) {
    // 31 Khordad 1404; Mehr has 30 days, and there the day stays.
    const Subscription sub = startingOn("2025-06-20T20:30:00Z"); // 21 June in Tehran
    const UserCalendar persian = calendarIn("Asia/Tehran", "fa_IR");
    EXPECT_EQ(sub.nextChargeDate(instant("2025-09-10T00:00:00Z"), persian), civilDay("2025-09-22"));
    EXPECT_EQ(sub.nextChargeDate(instant("2025-10-01T00:00:00Z"), persian), civilDay("2025-10-22"));
    const UserCalendar gregorian = calendarIn("Asia/Tehran", "en_US");
    EXPECT_EQ(sub.nextChargeDate(instant("2025-10-01T00:00:00Z"), gregorian),
              civilDay("2025-10-21"));
}

/// Always the first of the steps that is not past, whatever the start, cycle and day.
TEST(NextCharge, IsNeverPastWithinTheBound) {
    const UserCalendar calendar = calendarIn("Europe/Berlin");
    std::mt19937 random(42);
    for (int i = 0; i < 5'000; ++i) {
        Subscription sub = startingOn("2000-01-01T00:00:00Z", allBillingCycles[random() % 4]);
        sub.startDate += std::chrono::minutes(random() % (20 * 366 * 1440));
        const Instant now =
            instant("2020-01-01T00:00:00Z") + std::chrono::minutes(random() % (10 * 366 * 1440));
        const int days = sub.daysUntilNextCharge(now, calendar).value();
        ASSERT_GE(days, 0);
        ASSERT_EQ(sub.nextChargeDate(now, calendar), calendar.day(now) + std::chrono::days(days));
        if (sub.startDate < now - std::chrono::days(1)) {
            ASSERT_LE(days, 366);
        }
    }
}

} // namespace tovarin
