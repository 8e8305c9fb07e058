// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/UserCalendar.h"

#include "tests/support/Printing.h"
#include "tests/support/Samples.h"
#include "tests/support/VariableTable.h"

#include <gtest/gtest.h>
#include <unicode/gregocal.h>

#include <array>
#include <limits>
#include <random>
#include <string_view>

using namespace std::chrono;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

constexpr CalendarStep week = {7, CalendarStep::Unit::Day};
constexpr CalendarStep month = {1, CalendarStep::Unit::Month};
constexpr CalendarStep quarter = {3, CalendarStep::Unit::Month};
constexpr CalendarStep year = {1, CalendarStep::Unit::Year};

} // namespace

TEST(UserCalendar, NamesADayByItsNumbers) {
    struct {
        std::array<int, 3> numbers;
        const char *day;
    } const cases[] = {
        {{2025, 3, 8}, "2025-03-08"},   {{1900, 1, 1}, "1900-01-01"},
        {{2099, 12, 31}, "2099-12-31"}, {{2024, 2, 29}, "2024-02-29"},
        {{2025, 2, 29}, "2025-03-01"},  {{2025, 2, 31}, "2025-03-03"},
        {{2025, 13, 1}, "2026-01-01"},  {{2025, 14, 30}, "2026-03-02"},
        {{2025, 0, 15}, "2024-12-15"},  {{2025, 3, 0}, "2025-02-28"},
        {{2024, 3, 0}, "2024-02-29"},   {{2025, 0, 0}, "2024-11-30"},
        {{2025, 1, 45}, "2025-02-14"},  {{2025, 99, 99}, "2033-06-07"},
        {{2025, -1, 1}, "2024-11-01"},  {{2025, 1, -1}, "2024-12-30"},
        {{9999, 12, 31}, "9999-12-31"}, {{1, 1, 3}, "0001-01-01"},
        {{1582, 10, 15}, "1582-10-15"}, {{1582, 10, 4}, "1582-10-14"},
        {{1500, 2, 29}, "1500-03-10"},
    };
    for (const char *locale : {"en_US", "zh_CN", "en_US_POSIX", "ja_JP", ""}) {
        const UserCalendar calendar = calendarIn("UTC", locale);
        for (const auto &[numbers, day] : cases)
            EXPECT_EQ(calendar.day(numbers[0], numbers[1], numbers[2]), civilDay(day))
                << locale << ' ' << day;
    }
}

TEST(UserCalendar, NamesADayInTheRegionsCalendar) {
    struct {
        const char *locale;
        std::array<int, 3> numbers;
        const char *day;
    } const cases[] = {
        // 2568 of the Buddhist count is 2025; its months are the Gregorian ones.
        {"th_TH", {2568, 3, 8}, "2025-03-08"},
        {"th_TH", {2568, 13, 45}, "2026-02-14"},
        // 8 March 1482 in the Julian calendar.
        {"th_TH", {2025, 3, 8}, "1482-03-17"},
        {"fa_IR", {1404, 1, 1}, "2025-03-21"},
        {"fa_IR", {1404, 13, 1}, "2026-03-21"},
        {"fa_IR", {1403, 12, 30}, "2025-03-20"},
        {"fa_IR", {1404, 12, 30}, "2026-03-21"},
        {"fa_IR", {1404, 1, 0}, "2025-03-20"},
        {"fa_IR", {2025, 3, 8}, "2646-05-29"},
        // The calendar of Umm al-Qura.
        {"ar_SA", {1446, 9, 1}, "2025-03-01"},
        {"ar_SA", {1446, 9, 30}, "2025-03-30"},
        // Counted in the era of now, which began in 2019.
        {"ja_JP@calendar=japanese", {7, 3, 8}, "2025-03-08"},
        {"ja_JP@calendar=japanese", {6, 15, 8}, "2025-03-08"},
        {"ja_JP@calendar=japanese", {2025, 3, 8}, "4043-03-08"},
    };
    for (const auto &[locale, numbers, day] : cases)
        EXPECT_EQ(calendarIn("UTC", locale).day(numbers[0], numbers[1], numbers[2]), civilDay(day))
            << locale << ' ' << day;
}

TEST(UserCalendar, NamesNoDayTooFarAway) {
    const UserCalendar calendar = calendarIn("UTC");
    EXPECT_EQ(calendar.day(9999, 12, 32), std::nullopt);
    EXPECT_EQ(calendar.day(1, 1, 2),
              std::nullopt); // The last day of year 0, in the Julian calendar.
    EXPECT_EQ(calendar.day(-5, 1, 1), std::nullopt);
    EXPECT_EQ(calendarIn("UTC", "fa_IR").day(9999, 1, 1), std::nullopt);
    EXPECT_EQ(calendarIn("UTC", "he_IL@calendar=hebrew").day(2025, 1, 1), std::nullopt);
    constexpr int largest = std::numeric_limits<int>::max();
    constexpr int smallest = std::numeric_limits<int>::min();
    for (const int number : {10'000, -10'000, largest, smallest}) {
        EXPECT_EQ(calendar.day(number, 1, 1), std::nullopt) << number;
        EXPECT_EQ(calendar.day(2025, number, 1), std::nullopt) << number;
        EXPECT_EQ(calendar.day(2025, 1, number), std::nullopt) << number;
    }
}

TEST(UserCalendar, NamesADayInTheEraOfNowWhateverItCountedBefore) {
    const UserCalendar calendar = calendarIn("UTC", "ja_JP@calendar=japanese");
    EXPECT_EQ(calendar.adding(year, civilDay("1950-03-08")), civilDay("1951-03-08"));
    EXPECT_EQ(calendar.day(7, 3, 8), civilDay("2025-03-08"));
}

TEST(UserCalendar, NamesTheDaysThatItStepsOn) {
    for (const char *locale : {"en_US", "fa_IR"}) {
        const UserCalendar calendar = calendarIn("UTC", locale);
        const int first = locale == std::string_view("en_US") ? 1900 : 1279;
        CivilDay expected = calendar.day(first, 1, 1).value();
        for (int yearNumber = first; yearNumber < first + 200; ++yearNumber) {
            for (int number = 1; number <= 12; ++number) {
                ASSERT_EQ(calendar.day(yearNumber, number, 1), expected) << yearNumber;
                ASSERT_EQ(calendar.day(yearNumber, number, 15), expected + days(14)) << yearNumber;
                expected = calendar.adding(month, expected).value();
            }
            ASSERT_EQ(calendar.day(yearNumber, 13, 1), expected) << yearNumber;
        }
    }
}

TEST(UserCalendar, StartsANamedDayWhereItsMidnightIsMissing) {
    const UserCalendar saoPaulo = calendarIn("America/Sao_Paulo", "pt_BR");
    EXPECT_EQ(saoPaulo.startOfDay(saoPaulo.day(2018, 11, 4).value()),
              instant("2018-11-04T03:00:00Z"));
    const UserCalendar havana = calendarIn("America/Havana", "es_CU");
    EXPECT_EQ(havana.startOfDay(havana.day(2025, 3, 9).value()), instant("2025-03-09T05:00:00Z"));
    const UserCalendar kiritimati = calendarIn("Pacific/Kiritimati");
    EXPECT_EQ(kiritimati.startOfDay(kiritimati.day(2025, 3, 8).value()),
              instant("2025-03-07T10:00:00Z"));
}

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
