// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/UserCalendar.h"
#include "platform/WallTimer.h"
#include "platform/ZoneWatch.h"

#include <QObject>
#include <QString>

#include <functional>

namespace tovarin {

/// The first instant after `now` that belongs to another day of the user's than `now` does. Nearly
/// always the next day's start; but where clocks are set back over midnight, the day before comes
/// again. A day that lasts for less than half an hour may be passed over.
Instant nextOtherDay(const UserCalendar &calendar, Instant now);

/// Where a DayWatch learns of the zone. A test puts its own here.
struct ZoneSource {
    Environment environment = processEnvironment();
    QString folder = QStringLiteral("/etc"); ///< See ZoneWatch.
    std::function<UserCalendar(const Environment &)> read = UserCalendar::current;
};

/// Tells as soon as it happens when today is another day, or when the time zone has changed, and
/// keeps the calendar up to date. Between, nothing wakes: see WallTimer, which is also the place
/// that says what holds without the kernel's help.
///
/// The clock and the calendar are the caller's and outlive it. For the main thread.
class DayWatch final : public QObject {
    Q_OBJECT

public:
    DayWatch(const Clock &clock, UserCalendar &calendar, ZoneSource source = {},
             QObject *parent = nullptr);

    /// Asks the clock now. Needed only by one who knows better than the kernel that the time has
    /// changed, as a test does.
    void look();

Q_SIGNALS:
    /// What was worked out for today, or for the user's zone, no longer holds: today is another day
    /// than when it was last told, later or earlier; or the zone's files changed, which moves the
    /// days of instants even where today stays the same. The calendar is the new one already.
    void changed();

private:
    void readZone();
    void arm();

    const Clock &m_clock;
    UserCalendar &m_calendar;
    const ZoneSource m_source;
    WallTimer m_timer;
    ZoneWatch m_zone;
    CivilDay m_today;
};

} // namespace tovarin
