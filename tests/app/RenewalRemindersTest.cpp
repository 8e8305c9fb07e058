// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/NotificationManager.h"
#include "tests/app/RenewalSamples.h"
#include "tests/support/NotificationPrinting.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

/// What the reminders of one entry are, in UTC and English unless something else is said.
struct Plan {
    Subscription sub = musicPlus();
    int daysBefore = 3;
    const char *now = "2025-06-01T12:00:00Z";
    bool isZh = false;
    const char *zone = "UTC";
    const char *locale = "en_US";

    QList<NotificationRequest> requests() const {
        return renewalReminders({sub}, daysBefore, instant(now), calendarIn(zone, locale), isZh);
    }
    /// The body of the only request; "none" without one.
    QString body() const {
        const QList<NotificationRequest> all = requests();
        return all.size() == 1 ? all.first().body : u"none"_s;
    }
    /// The day of the only request; no value without one.
    std::optional<CivilDay> day() const {
        const QList<NotificationRequest> all = requests();
        if (all.size() != 1)
            return std::nullopt;
        const auto *const trigger = std::get_if<CalendarTrigger>(&all.first().trigger);
        EXPECT_TRUE(trigger != nullptr && trigger->time == 10h);
        return trigger->day;
    }
};

NotificationRequest reminder(const QString &title, const QString &body, const char *day) {
    return {.identifier = musicPlusReminder,
            .title = title,
            .body = body,
            .presentation = everything,
            .trigger = CalendarTrigger{civilDay(day), 10h}};
}

} // namespace

TEST(RenewalReminders, SayWhatWillBeChargedAndWhen) {
    EXPECT_EQ(Plan().requests(),
              QList{reminder(u"Subscription renewing soon"_s,
                             u"Music Plus will be charged ¥30 in 3 days. Cancel ahead of time if "
                             "you no longer need it."_s,
                             "2025-06-09")});
    EXPECT_EQ(Plan{.isZh = true}.requests(),
              QList{reminder(u"订阅即将续费"_s,
                             u"「Music Plus」将在3 天后扣费 ¥30，需要的话记得提前取消。"_s,
                             "2025-06-09")});
}

TEST(RenewalReminders, SayTodayOnTheDayItself) {
    for (const int days : {0, -1, -3, std::numeric_limits<int>::min()}) {
        EXPECT_EQ(Plan{.daysBefore = days}.requests(),
                  QList{reminder(u"Subscription renewing soon"_s,
                                 u"Music Plus will be charged ¥30 today. Cancel ahead of time if "
                                 "you no longer need it."_s,
                                 "2025-06-12")})
            << days;
        EXPECT_EQ((Plan{.daysBefore = days, .isZh = true}.requests()),
                  QList{reminder(u"订阅即将续费"_s,
                                 u"「Music Plus」将在今天扣费 ¥30，需要的话记得提前取消。"_s,
                                 "2025-06-12")})
            << days;
    }
}

TEST(RenewalReminders, AlwaysSayDays) {
    EXPECT_EQ(Plan{.daysBefore = 1}.body(), u"Music Plus will be charged ¥30 in 1 days. Cancel "
                                            "ahead of time if you no longer need it."_s);
    EXPECT_EQ((Plan{.daysBefore = 1, .isZh = true}.body()),
              u"「Music Plus」将在1 天后扣费 ¥30，需要的话记得提前取消。"_s);
    EXPECT_EQ(Plan{.daysBefore = 1}.day(), civilDay("2025-06-11"));
}

TEST(RenewalReminders, NameTheAmountInItsOwnCurrency) {
    struct {
        QString name;
        double amount;
        QString currency;
        QString english;
        QString chinese;
    } const cases[] = {
        {u"Cloud"_s, 9.99, u"USD"_s,
         u"Cloud will be charged $9.99 in 3 days. Cancel ahead of time if you no longer need it."_s,
         u"「Cloud」将在3 天后扣费 $9.99，需要的话记得提前取消。"_s},
        {u"视频会员"_s, 1299, u"JPY"_s,
         u"视频会员 will be charged ¥1299 in 3 days. Cancel ahead of time if you no longer need it."_s,
         u"「视频会员」将在3 天后扣费 ¥1299，需要的话记得提前取消。"_s},
        {QString(), 0, u"EUR"_s,
         u" will be charged €0 in 3 days. Cancel ahead of time if you no longer need it."_s,
         u"「」将在3 天后扣费 €0，需要的话记得提前取消。"_s},
        {u"%1 <b>&amp;\n%2"_s, -3, u"CNY"_s,
         u"%1 <b>&amp;\n%2 will be charged ¥-3 in 3 days. Cancel ahead of time if you no longer "
         "need it."_s,
         u"「%1 <b>&amp;\n%2」将在3 天后扣费 ¥-3，需要的话记得提前取消。"_s},
    };
    for (const auto &c : cases) {
        Plan plan;
        plan.sub.name = c.name;
        plan.sub.amount = c.amount;
        plan.sub.currency = c.currency;
        EXPECT_EQ(plan.body(), c.english);
        plan.isZh = true;
        EXPECT_EQ(plan.body(), c.chinese);
    }
}

TEST(RenewalReminders, AreNotForWhatIsPausedOrPaidOnce) {
    Plan plan;
    plan.sub.isActive = false;
    EXPECT_EQ(plan.requests(), QList<NotificationRequest>());
    plan = {};
    plan.sub.billingType = BillingType::oneTime;
    EXPECT_EQ(plan.requests(), QList<NotificationRequest>());
    // Both have a next charge when they begin in the future, and no reminder all the same.
    plan.sub.startDate = instant("2025-07-01T00:00:00Z");
    EXPECT_EQ(plan.requests(), QList<NotificationRequest>());
    plan.sub.billingType = BillingType::recurring;
    plan.sub.isActive = false;
    EXPECT_EQ(plan.requests(), QList<NotificationRequest>());
    plan.sub.isActive = true;
    EXPECT_EQ(plan.day(), civilDay("2025-06-28"));
}

TEST(RenewalReminders, AreNeverLate) {
    struct {
        int daysBefore;
        const char *now;
        const char *day; // Null without a reminder.
    } const cases[] = {
        {3, "2025-06-09T09:59:00Z", "2025-06-09"},
        {3, "2025-06-09T09:59:59Z", "2025-06-09"},
        {3, "2025-06-09T10:00:00Z", nullptr},
        {3, "2025-06-09T10:00:01Z", nullptr},
        {3, "2025-06-11T08:00:00Z", nullptr},
        {3, "2025-06-12T09:00:00Z", nullptr},
        {3, "2025-06-12T23:59:59Z", nullptr},
        {3, "2025-06-13T00:00:00Z", "2025-07-09"},
        {0, "2025-06-12T09:59:59Z", "2025-06-12"},
        {0, "2025-06-12T10:00:00Z", nullptr},
        {0, "2025-06-13T00:00:00Z", "2025-07-12"},
        {1, "2025-06-11T09:59:59Z", "2025-06-11"},
        {1, "2025-06-11T10:00:00Z", nullptr},
        // Further back than a month: the charge after the next is not looked at.
        {31, "2025-06-01T12:00:00Z", nullptr},
        {31, "2025-06-13T00:00:00Z", nullptr},
        {30, "2025-06-12T10:00:00Z", nullptr},
        {29, "2025-06-13T09:59:59Z", "2025-06-13"},
        {std::numeric_limits<int>::max(), "2025-06-01T12:00:00Z", nullptr},
    };
    for (const auto &[daysBefore, now, day] : cases)
        EXPECT_EQ((Plan{.daysBefore = daysBefore, .now = now}.day()),
                  day ? std::optional(civilDay(day)) : std::nullopt)
            << daysBefore << ' ' << now;
    // To the millisecond.
    EXPECT_EQ(renewalReminders({musicPlus()}, 3, instant("2025-06-09T10:00:00Z") - 1ms,
                               calendarIn("UTC"), false)
                  .size(),
              1);
}

TEST(RenewalReminders, GoBackByCalendarDays) {
    struct {
        const char *start;
        int daysBefore;
        const char *now;
        const char *day;
    } const cases[] = {
        {"2025-03-12T00:00:00Z", 3, "2025-03-01T00:00:00Z", "2025-03-09"},
        {"2025-03-12T23:59:59Z", 3, "2025-03-01T00:00:00Z", "2025-03-09"},
        {"2025-03-02T12:00:00Z", 3, "2025-02-01T00:00:00Z", "2025-02-27"},
        {"2024-03-02T12:00:00Z", 3, "2024-02-01T00:00:00Z", "2024-02-28"},
        {"2025-01-01T12:00:00Z", 7, "2024-12-01T00:00:00Z", "2024-12-25"},
        {"2025-12-31T12:00:00Z", 365, "2024-12-01T00:00:00Z", "2024-12-31"},
        // The day that drifts with February stays there.
        {"2025-01-31T12:00:00Z", 3, "2025-04-01T00:00:00Z", "2025-04-25"},
    };
    for (const auto &[start, daysBefore, now, day] : cases) {
        Plan plan{.daysBefore = daysBefore, .now = now};
        plan.sub.startDate = instant(start);
        EXPECT_EQ(plan.day(), civilDay(day)) << start;
    }
}

TEST(RenewalReminders, GoByTheUsersZone) {
    struct {
        const char *zone;
        const char *now;
        const char *day;
    } const cases[] = {
        // The entry begins on the 13th there.
        {"Asia/Shanghai", "2025-06-10T01:59:59Z", "2025-06-10"},
        {"Asia/Shanghai", "2025-06-10T02:00:00Z", nullptr},
        {"Pacific/Kiritimati", "2025-06-09T19:59:59Z", "2025-06-10"},
        {"Pacific/Kiritimati", "2025-06-09T20:00:00Z", nullptr},
        {"Asia/Kathmandu", "2025-06-09T04:14:59Z", "2025-06-09"},
        {"Asia/Kathmandu", "2025-06-09T04:15:00Z", nullptr},
        {"America/Los_Angeles", "2025-06-09T16:59:59Z", "2025-06-09"},
        {"America/Los_Angeles", "2025-06-09T17:00:00Z", nullptr},
        {"Pacific/Pago_Pago", "2025-06-09T20:59:59Z", "2025-06-09"},
        {"Pacific/Pago_Pago", "2025-06-09T21:00:00Z", nullptr},
    };
    for (const auto &[zone, now, day] : cases)
        EXPECT_EQ((Plan{.now = now, .zone = zone}.day()),
                  day ? std::optional(civilDay(day)) : std::nullopt)
            << zone << ' ' << now;
}

TEST(RenewalReminders, ComeAtTenWhenTheClocksChange) {
    struct {
        const char *zone;
        const char *start;
        int daysBefore;
        const char *ten; // The last moment before which there is a reminder.
        const char *day;
    } const cases[] = {
        // Between the reminder and the charge, and on the day of the reminder.
        {"America/Los_Angeles", "2025-03-10T20:00:00Z", 2, "2025-03-08T18:00:00Z", "2025-03-08"},
        {"America/Los_Angeles", "2025-03-12T20:00:00Z", 3, "2025-03-09T17:00:00Z", "2025-03-09"},
        {"America/Los_Angeles", "2025-11-03T20:00:00Z", 2, "2025-11-01T17:00:00Z", "2025-11-01"},
        {"America/Los_Angeles", "2025-11-05T20:00:00Z", 3, "2025-11-02T18:00:00Z", "2025-11-02"},
        {"Europe/Berlin", "2025-03-30T12:00:00Z", 1, "2025-03-29T09:00:00Z", "2025-03-29"},
        {"Europe/Berlin", "2025-03-30T12:00:00Z", 0, "2025-03-30T08:00:00Z", "2025-03-30"},
        // Charged on a day whose midnight does not exist.
        {"America/Sao_Paulo", "2018-11-04T12:00:00Z", 3, "2018-11-01T13:00:00Z", "2018-11-01"},
        {"America/Sao_Paulo", "2018-11-04T12:00:00Z", 0, "2018-11-04T12:00:00Z", "2018-11-04"},
        // A day that was left out: ten on the next one; it is gone back over like any other.
        {"Pacific/Apia", "2012-01-01T12:00:00Z", 3, "2011-12-30T20:00:00Z", "2011-12-30"},
        {"Pacific/Apia", "2012-01-01T12:00:00Z", 4, "2011-12-29T20:00:00Z", "2011-12-29"},
        // Ten comes twice.
        {"Pacific/Kwajalein", "1969-10-03T12:00:00Z", 3, "1969-09-29T23:00:00Z", "1969-09-30"},
    };
    for (const auto &[zone, start, daysBefore, ten, day] : cases) {
        Subscription sub = musicPlus();
        sub.startDate = instant(start);
        const UserCalendar calendar = calendarIn(zone);
        const auto before =
            renewalReminders({sub}, daysBefore, instant(ten) - 1ms, calendar, false);
        ASSERT_EQ(before.size(), 1) << zone << ' ' << day;
        EXPECT_EQ(before.first().trigger,
                  (decltype(before.first().trigger)(CalendarTrigger{civilDay(day), 10h})))
            << zone;
        EXPECT_EQ(renewalReminders({sub}, daysBefore, instant(ten), calendar, false).size(), 0)
            << zone << ' ' << day;
    }
}

TEST(RenewalReminders, CountMonthsByTheRegionsCalendar) {
    // 1 Farvardin 1404 to 1 Ordibehesht are 31 days.
    Plan plan{.now = "2025-04-01T12:00:00Z", .zone = "Asia/Tehran", .locale = "fa_IR"};
    plan.sub.startDate = instant("2025-03-21T08:00:00Z");
    EXPECT_EQ(plan.day(), civilDay("2025-04-18"));
}

TEST(RenewalReminders, ReachAsFarAsTheCalendar) {
    Plan plan;
    for (const qint64 year : {9'999, 32'768, 1'000'000, 200'000'000}) {
        plan.sub.startDate = Instant(days(365 * (year - 1970)));
        const CivilDay charge(days(365 * (year - 1970)));
        EXPECT_EQ(plan.day(), charge - days(3)) << year;
        // A million years to wind back make a reminder in the past.
        plan.daysBefore = std::numeric_limits<int>::max();
        EXPECT_EQ(plan.day().has_value(), year == 200'000'000) << year;
        plan.daysBefore = 3;
    }
    // So long ago that the steps do not reach today.
    for (const qint64 year : {1, -1'000'000}) {
        plan.sub.startDate = Instant(days(365 * (year - 1970)));
        plan.sub.cycle = BillingCycle::weekly;
        EXPECT_EQ(plan.day(), std::nullopt) << year;
    }
}

TEST(RenewalReminders, StandInTheOrderOfTheList) {
    QList<Subscription> list;
    for (const char *start : {"2025-03-20T00:00:00Z", "2025-03-10T00:00:00Z",
                              "2025-03-02T00:00:00Z", "2025-03-15T00:00:00Z"})
        list.append(startingOn(start));
    const QList<NotificationRequest> requests =
        renewalReminders(list, 3, instant("2025-06-01T12:00:00Z"), calendarIn("UTC"), false);
    QStringList identifiers;
    for (const NotificationRequest &request : requests)
        identifiers.append(request.identifier);
    // The third is charged tomorrow.
    EXPECT_EQ(identifiers,
              (QStringList{u"renew-"_s + list[0].id.toString(QUuid::WithoutBraces).toUpper(),
                           u"renew-"_s + list[1].id.toString(QUuid::WithoutBraces).toUpper(),
                           u"renew-"_s + list[3].id.toString(QUuid::WithoutBraces).toUpper()}));
}

/// The same arguments give the same requests, and an entry's request does not depend on the others.
TEST(RenewalReminders, AreAValueOfTheirArguments) {
    std::mt19937 random(20251121);
    const UserCalendar calendar = calendarIn("America/Sao_Paulo", "pt_BR");
    for (int round = 0; round < 200; ++round) {
        QList<Subscription> list;
        for (int i = 0; i < 10; ++i) {
            Subscription sub = sampleSubscription();
            sub.startDate = instant("2015-01-01T00:00:00Z") + minutes(random() % 5'000'000);
            sub.cycle = allBillingCycles[random() % allBillingCycles.size()];
            sub.isActive = random() % 5 != 0;
            sub.billingType = random() % 5 != 0 ? BillingType::recurring : BillingType::oneTime;
            list.append(sub);
        }
        const Instant now = instant("2017-01-01T00:00:00Z") + minutes(random() % 2'000'000);
        const int daysBefore = static_cast<int>(random() % 12) - 2;
        const bool isZh = random() % 2 == 0;
        const auto all = renewalReminders(list, daysBefore, now, calendar, isZh);
        EXPECT_EQ(renewalReminders(list, daysBefore, now, calendar, isZh), all);
        QList<NotificationRequest> one;
        for (const Subscription &sub : list) {
            const auto its = renewalReminders({sub}, daysBefore, now, calendar, isZh);
            ASSERT_LE(its.size(), 1);
            one += its;
        }
        EXPECT_EQ(one, all);
        for (const NotificationRequest &request : all) {
            const auto &trigger = std::get<CalendarTrigger>(request.trigger);
            EXPECT_GT(*calendar.instantOf(trigger.day, trigger.time), now);
        }
    }
}

} // namespace tovarin
