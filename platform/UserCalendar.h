// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Clock.h"
#include "platform/Environment.h"
#include "platform/UserZone.h"

#include <memory>
#include <optional>

namespace tovarin {

/// One step of calendar arithmetic, added as calendar components.
struct CalendarStep {
    enum class Unit { Day, Month, Year };

    int count;
    Unit unit;
};

/// The user's calendar: the time zone, and the rules by which months and years are counted. They
/// come from the locale's region, so it need not be the Gregorian calendar (ICU's calendars).
/// Movable, not copyable; not for use by two threads at once.
class UserCalendar {
public:
    /// `locale` is a locale name such as "zh_CN" or "fa_IR"; an empty one means the C locale's
    /// Gregorian calendar.
    UserCalendar(const QString &locale, const UserZone &zone);
    UserCalendar(UserCalendar &&) noexcept;
    UserCalendar &operator=(UserCalendar &&) noexcept;
    ~UserCalendar();

    /// By LC_ALL, LC_TIME, LANG, TZ and the system's zone. It does not follow later changes of
    /// them: ask again.
    static UserCalendar current(const Environment &environment);

    /// The civil day, in the user's zone, that holds the instant.
    CivilDay day(Instant instant) const { return m_zone.day(instant); }

    /// The first moment of a civil day in the user's zone.
    Instant startOfDay(CivilDay day) const { return m_zone.startOfDay(day); }

    /// When the user's clocks show so much time since midnight on the day: see UserZone::instantOf.
    std::optional<Instant> instantOf(CivilDay day, std::chrono::milliseconds time) const {
        return m_zone.instantOf(day, time);
    }

    /// The day that the numbers name in the user's calendar, month and day counted from 1, the year
    /// in the calendar's own count (2025 is 1482 by the Gregorian calendar for the Buddhist one); a
    /// calendar with eras takes the one it is in now. Numbers out of range roll over into the
    /// neighbouring months and years: month 13 is the next January, day 0 the day before the first.
    /// No value for a day outside the Gregorian years 1 to 9999, or for a number of more than four
    /// digits.
    std::optional<CivilDay> day(int year, int month, int day) const;

    /// The day one step later. Where the month reached has no such day, its last day is taken. No
    /// value when the calendar cannot count that far.
    std::optional<CivilDay> adding(CalendarStep step, CivilDay day) const;

    /// Adds `step` to `start`, then to each result in turn, until a result is on or after `target`
    /// or `limit` steps are done, and gives the last result. At least one step is taken. No value
    /// when the calendar cannot add a step. The step's count is positive.
    std::optional<CivilDay> steppingUntil(CivilDay target, CivilDay start, CalendarStep step,
                                          int limit) const;

private:
    struct Rules;

    UserZone m_zone;
    std::unique_ptr<Rules> m_rules;
};

} // namespace tovarin
