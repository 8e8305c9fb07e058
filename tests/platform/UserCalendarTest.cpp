// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/UserCalendar.h"

#include "tests/support/Printing.h"
#include "tests/support/Samples.h"
#include "tests/support/VariableTable.h"

#include <gtest/gtest.h>
#include <unicode/gregocal.h>

#include <random>

using namespace std::chrono;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

constexpr CalendarStep week = {7, CalendarStep::Unit::Day};
constexpr CalendarStep month = {1, CalendarStep::Unit::Month};
constexpr CalendarStep quarter = {3, CalendarStep::Unit::Month};
constexpr CalendarStep year = {1, CalendarStep::Unit::Year};

} // namespace

TEST(UserCalendar, AddsOneStep) {
    struct {
        CalendarStep step;
        const char *from;
        const char *to;
    } const cases[] = {
        {week, "2025-01-28", "2025-02-04"},    {week, "2024-12-28", "2025-01-04"},
        {month, "2025-01-15", "2025-02-15"},   {month, "2025-01-31", "2025-02-28"},
        {month, "2024-01-31", "2024-02-29"},   {month, "2025-02-28", "2025-03-28"},
        {month, "2025-12-31", "2026-01-31"},   {month, "2025-08-31", "2025-09-30"},
        {quarter, "2025-11-30", "2026-02-28"}, {quarter, "2025-10-31", "2026-01-31"},
        {year, "2024-02-29", "2025-02-28"},    {year, "2025-02-28", "2026-02-28"},
        {year, "1999-12-31", "2000-12-31"},
    };
    for (const char *locale : {"en_US", "zh_CN", "th_TH", "en_US_POSIX", ""}) {
        const UserCalendar calendar = calendarIn("UTC", locale);
        for (const auto &c : cases)
            EXPECT_EQ(calendar.adding(c.step, civilDay(c.from)), civilDay(c.to))
                << locale << ' ' << c.from;
    }
}

TEST(UserCalendar, CountsMonthsByTheRegionsCalendar) {
    // 1 Farvardin 1404; the first six Persian months have 31 days, the rest 30 (29 or 30 the last).
    const UserCalendar persian = calendarIn("Asia/Tehran", "fa_IR");
    EXPECT_EQ(persian.adding(month, civilDay("2025-03-21")), civilDay("2025-04-21"));
    EXPECT_EQ(persian.adding(month, civilDay("2025-09-22")), civilDay("2025-10-22"));
    EXPECT_EQ(persian.adding(year, civilDay("2025-03-21")), civilDay("2026-03-21"));
    // 1404 is no leap year and ends on 29 Esfand, 20 March 2026.
    EXPECT_EQ(persian.adding(month, civilDay("2026-02-19")), civilDay("2026-03-20"));

    // 1 Ramadan 1446; the calendar of Umm al-Qura.
    const UserCalendar islamic = calendarIn("Asia/Riyadh", "ar_SA");
    EXPECT_EQ(islamic.adding(month, civilDay("2025-03-01")), civilDay("2025-03-30"));
    EXPECT_EQ(islamic.adding(year, civilDay("2025-03-01")), civilDay("2026-02-18"));
}

TEST(UserCalendar, IsTheJulianCalendarBeforeTheReform) {
    const UserCalendar calendar = calendarIn("UTC");
    // 29 February 1500 existed in the Julian calendar; by Gregorian counting it was 10 March.
    EXPECT_EQ(calendar.adding(year, civilDay("1499-03-10")), civilDay("1500-03-11"));
    EXPECT_EQ(calendar.adding(month, civilDay("1500-02-09")), civilDay("1500-03-10"));
    // 30 September 1582 plus a month reaches the other side.
    EXPECT_EQ(calendar.adding(month, civilDay("1582-10-10")), civilDay("1582-10-30"));
}

/// The standard library's arithmetic, which the calendar uses where it can, against ICU's.
TEST(UserCalendar, AgreesWithIcuOnGregorianDays) {
    UErrorCode status = U_ZERO_ERROR;
    icu::GregorianCalendar icu(*icu::TimeZone::getGMT(), icu::Locale::getUS(), status);
    const UserCalendar gregorian = calendarIn("UTC", "en_US");
    const UserCalendar buddhist = calendarIn("UTC", "th_TH");
    std::mt19937 random(20251121);
    std::uniform_int_distribution<int> dayNumber(
        static_cast<int>(civilDay("1582-10-15").time_since_epoch().count()),
        static_cast<int>(civilDay("2400-12-31").time_since_epoch().count()));
    for (int i = 0; i < 20'000; ++i) {
        const CivilDay from{days(dayNumber(random))};
        for (const CalendarStep step : {month, quarter, year}) {
            icu.setTime(double(milliseconds(from.time_since_epoch()).count()), status);
            icu.add(step.unit == CalendarStep::Unit::Year ? UCAL_YEAR : UCAL_MONTH, step.count,
                    status);
            const CivilDay expected(floor<days>(milliseconds(qint64(icu.getTime(status)))));
            ASSERT_TRUE(U_SUCCESS(status));
            ASSERT_EQ(gregorian.adding(step, from), expected) << testing::PrintToString(from);
            ASSERT_EQ(buddhist.adding(step, from), expected) << testing::PrintToString(from);
        }
    }
}

TEST(UserCalendar, CannotCountBeyondItsEnd) {
    const CivilDay farAway = civilDay("9999-12-31") + days(1);
    EXPECT_EQ(calendarIn("UTC", "fa_IR").adding(month, farAway), std::nullopt);
    EXPECT_EQ(calendarIn("UTC", "fa_IR").steppingUntil(farAway + days(400), farAway, year, 10),
              std::nullopt);
    EXPECT_EQ(calendarIn("UTC", "fa_IR").adding(week, farAway), farAway + days(7));
}

TEST(UserCalendar, StepsFromEachResultToTheNext) {
    const UserCalendar calendar = calendarIn("UTC");
    const CivilDay start = civilDay("2025-01-31");
    EXPECT_EQ(calendar.steppingUntil(civilDay("2025-04-01"), start, month, 10'000),
              civilDay("2025-04-28"));
    EXPECT_EQ(calendar.steppingUntil(civilDay("2025-02-28"), start, month, 10'000),
              civilDay("2025-02-28"));
    EXPECT_EQ(calendar.steppingUntil(civilDay("2025-03-01"), start, month, 10'000),
              civilDay("2025-03-28"));
}

TEST(UserCalendar, StopsAtTheLimit) {
    const UserCalendar calendar = calendarIn("UTC");
    const CivilDay start = civilDay("2025-01-01");
    EXPECT_EQ(calendar.steppingUntil(civilDay("2030-01-01"), start, week, 3),
              civilDay("2025-01-22"));
    EXPECT_EQ(calendar.steppingUntil(civilDay("2030-01-01"), start, month, 3),
              civilDay("2025-04-01"));
}

/// One step after the other, as the rule says, for every kind of step and calendar.
TEST(UserCalendar, StepsLikeTheNaiveLoop) {
    std::mt19937 random(7);
    for (const char *locale : {"en_US", "fa_IR", "ar_SA", "th_TH"}) {
        const UserCalendar calendar = calendarIn("UTC", locale);
        for (int i = 0; i < 300; ++i) {
            const CivilDay start = civilDay("1995-01-01") + days(random() % 8000);
            const CivilDay target = start + days(1 + random() % 6000);
            const CalendarStep step = std::array{week, month, quarter, year}[random() % 4];
            const int limit = random() % 8 == 0 ? 5 : 10'000;
            CivilDay naive = start;
            for (int n = 0; n < limit; ++n) {
                naive = calendar.adding(step, naive).value();
                if (naive >= target)
                    break;
            }
            ASSERT_EQ(calendar.steppingUntil(target, start, step, limit), naive)
                << locale << ' ' << testing::PrintToString(start);
        }
    }
}

TEST(UserCalendar, FollowsTheTimeLocale) {
    const CivilDay newYear = civilDay("2025-03-21");
    const auto inLocale = [](const char *name) {
        return UserCalendar::current(variables({{"LANG", "zh_CN.UTF-8"}, {"LC_TIME", name}}));
    };
    EXPECT_EQ(inLocale("ar_SA.UTF-8").adding(month, civilDay("2025-03-01")),
              civilDay("2025-03-30"));
    EXPECT_EQ(inLocale("C").adding(month, newYear), civilDay("2025-04-21"));
    EXPECT_EQ(inLocale("no such locale").adding(month, newYear), civilDay("2025-04-21"));
    EXPECT_EQ(UserCalendar::current(variables({})).adding(month, newYear), civilDay("2025-04-21"));
}

TEST(UserCalendar, TakesItsDaysFromItsZone) {
    const UserCalendar calendar = calendarIn("Asia/Shanghai");
    EXPECT_EQ(calendar.day(instant("2025-01-15T16:00:00Z")), civilDay("2025-01-16"));
    EXPECT_EQ(calendar.startOfDay(civilDay("2025-01-16")), instant("2025-01-15T16:00:00Z"));
}

} // namespace tovarin
