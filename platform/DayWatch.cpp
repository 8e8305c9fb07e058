// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/DayWatch.h"

#include <utility>

using namespace std::chrono;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

// Clocks are set back by an hour at most places, so an evening that comes again is not missed.
constexpr milliseconds step = 30min;

} // namespace

Instant nextOtherDay(const UserCalendar &calendar, Instant now) {
    const CivilDay today = calendar.day(now);
    Instant same = now;
    Instant other = now + step;
    while (calendar.day(other) == today) {
        same = other;
        other += step;
    }
    while (other - same > 1ms) {
        const Instant middle = same + (other - same) / 2;
        (calendar.day(middle) == today ? same : other) = middle;
    }
    return other;
}

DayWatch::DayWatch(const Clock &clock, UserCalendar &calendar, ZoneSource source, QObject *parent)
    : QObject(parent)
    , m_clock(clock)
    , m_calendar(calendar)
    , m_source(std::move(source))
    , m_timer(clock)
    , m_zone(m_source.environment, m_source.folder) {
    connect(&m_timer, &WallTimer::rang, this, &DayWatch::look);
    connect(&m_zone, &ZoneWatch::changed, this, &DayWatch::readZone);
    arm();
}

void DayWatch::look() {
    const CivilDay before = m_today;
    arm();
    if (m_today != before)
        Q_EMIT changed();
}

void DayWatch::readZone() {
    m_calendar = m_source.read(m_source.environment);
    arm();
    Q_EMIT changed();
}

void DayWatch::arm() {
    const Instant now = m_clock.now();
    m_today = m_calendar.day(now);
    m_timer.ringAt(nextOtherDay(m_calendar, now));
}

} // namespace tovarin
