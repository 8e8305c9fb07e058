// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/UserCalendar.h"

#include <unicode/calendar.h>

#include <algorithm>
#include <string_view>

using namespace std::chrono;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

// ICU's Gregorian calendar is the Julian one before this day.
constexpr CivilDay gregorianBegin = local_days(1582y / October / 15);

// Beyond it ICU's arithmetic overflows; no date of the program's file can reach it.
constexpr CivilDay lastCountable = local_days(9999y / December / 31);
constexpr CivilDay firstNameable = local_days(1y / January / 1);
constexpr int largestNumber = 9999;

std::unique_ptr<icu::Calendar> makeCalendar(const QString &locale) {
    UErrorCode status = U_ZERO_ERROR;
    // The zone is left to UserZone: with UTC here, a day is a multiple of 24 hours to ICU. Its own
    // zone tables are older than the system's.
    std::unique_ptr<icu::Calendar> calendar(icu::Calendar::createInstance(
        icu::TimeZone::getGMT()->clone(), icu::Locale(locale.toLatin1().constData()), status));
    if (U_FAILURE(status))
        qFatal("ICU has no calendar: %s", u_errorName(status));
    return calendar;
}

/// The same months and days under other year numbers: there the standard library's arithmetic gives
/// what ICU gives, a hundred times faster.
bool countsLikeGregorian(const icu::Calendar &calendar) {
    const std::string_view type = calendar.getType();
    return type == "gregorian" || type == "buddhist";
}

/// The day of an ICU time.
CivilDay toDay(double time) {
    return CivilDay(floor<days>(milliseconds(static_cast<qint64>(time))));
}

CivilDay addingGregorian(CalendarStep step, CivilDay day) {
    const year_month_day from(day);
    const months distance =
        step.unit == CalendarStep::Unit::Year ? months(12 * step.count) : months(step.count);
    const year_month_day to = from + distance;
    return to.ok() ? local_days(to) : local_days(to.year() / to.month() / last);
}

} // namespace

struct UserCalendar::Rules {
    explicit Rules(const QString &locale)
        : calendar(makeCalendar(locale)), gregorian(countsLikeGregorian(*calendar)) {}

    std::optional<CivilDay> day(int year, int month, int dayOfMonth) {
        UErrorCode status = U_ZERO_ERROR;
        calendar->clear();
        calendar->set(UCAL_YEAR, year);
        calendar->set(UCAL_MONTH, month - 1);
        calendar->set(UCAL_DATE, dayOfMonth);
        const double midnight = calendar->getTime(status);
        if (U_FAILURE(status))
            return std::nullopt;
        const CivilDay named = toDay(midnight);
        return named >= firstNameable && named <= lastCountable ? std::optional(named)
                                                                : std::nullopt;
    }

    std::optional<CivilDay> adding(CalendarStep step, CivilDay day) {
        if (day > lastCountable)
            return std::nullopt;
        UErrorCode status = U_ZERO_ERROR;
        const auto field = step.unit == CalendarStep::Unit::Year ? UCAL_EXTENDED_YEAR : UCAL_MONTH;
        calendar->setTime(static_cast<double>(milliseconds(day.time_since_epoch()).count()),
                          status);
        calendar->add(field, step.count, status);
        const double moved = calendar->getTime(status);
        if (U_FAILURE(status))
            return std::nullopt;
        return toDay(moved);
    }

    std::unique_ptr<icu::Calendar> calendar; // its time is scratch space
    bool gregorian;
};

UserCalendar::UserCalendar(const QString &locale, const UserZone &zone)
    : m_zone(zone), m_rules(std::make_unique<Rules>(locale)) {}

UserCalendar::UserCalendar(UserCalendar &&) noexcept = default;
UserCalendar &UserCalendar::operator=(UserCalendar &&) noexcept = default;
UserCalendar::~UserCalendar() = default;

UserCalendar UserCalendar::current(const Environment &environment) {
    const QString locale = localeName(environment, "LC_TIME");
    return UserCalendar(isCLocale(locale) ? QStringLiteral("en_US_POSIX") : locale,
                        UserZone::current());
}

std::optional<CivilDay> UserCalendar::day(int year, int month, int day) const {
    for (const int number : {year, month, day})
        if (number < -largestNumber || number > largestNumber)
            return std::nullopt;
    return m_rules->day(year, month, day);
}

std::optional<CivilDay> UserCalendar::adding(CalendarStep step, CivilDay day) const {
    if (step.unit == CalendarStep::Unit::Day)
        return day + days(step.count);
    if (m_rules->gregorian && day >= gregorianBegin)
        return addingGregorian(step, day);
    return m_rules->adding(step, day);
}

std::optional<CivilDay> UserCalendar::steppingUntil(CivilDay target, CivilDay start,
                                                    CalendarStep step, int limit) const {
    if (step.unit == CalendarStep::Unit::Day) {
        // Days never clamp, so the steps are counted instead of taken.
        const auto missing = (target - start).count() + step.count - 1;
        const auto steps = std::clamp<qint64>(missing / step.count, 1, limit);
        return start + days(step.count * steps);
    }
    CivilDay day = start;
    for (int i = 0; i < limit; ++i) {
        const std::optional<CivilDay> next = adding(step, day);
        if (!next)
            return std::nullopt;
        day = *next;
        if (day >= target)
            break;
    }
    return day;
}

} // namespace tovarin
