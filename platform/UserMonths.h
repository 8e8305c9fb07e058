// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Clock.h"
#include "platform/Environment.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace tovarin {

/// The months and weeks of the user's locale as a calendar sheet shows them: where a month begins,
/// on which day a week does, and what both are called (ICU's calendars and date formats). All of it
/// follows the locale, never the program's language. Movable, not copyable; not for use by two
/// threads at once.
class UserMonths {
public:
    /// Days are numbered as calendars do: 1 is Sunday, 7 is Saturday.
    using Weekday = int;

    static constexpr int daysInWeek = 7;

    /// `locale` is a POSIX locale name such as "zh_CN.UTF-8" or "fa_IR"; one that names no language
    /// means the C locale.
    explicit UserMonths(const QString &locale);
    UserMonths(UserMonths &&) noexcept;
    UserMonths &operator=(UserMonths &&) noexcept;
    ~UserMonths();

    /// By LC_ALL, LC_TIME, LANG, as UserCalendar::current().
    static UserMonths current(const Environment &environment);

    /// The first day of the month that holds the day. No value when the calendar cannot tell.
    std::optional<CivilDay> start(CivilDay day) const;

    /// The number of the day in its month, from 1. No value when the calendar cannot tell.
    std::optional<int> dayOfMonth(CivilDay day) const;

    static Weekday weekday(CivilDay day);

    /// The day with which weeks begin in the locale's region.
    Weekday firstWeekday() const;

    /// The short stand-alone names, such as "Sun" and "周日", from Sunday to Saturday.
    QStringList weekdayNames() const;

    /// The month that holds the day, with its year: "March 2025", "2025年3月".
    QString title(CivilDay day) const;

    /// The day in full: "Wednesday, March 12, 2025".
    QString fullDate(CivilDay day) const;

private:
    struct Rules;

    const Rules &rules() const;

    QString m_locale;
    mutable std::unique_ptr<const Rules> m_rules; ///< Once something was asked.
};

} // namespace tovarin
