// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/UserZone.h"

#include <QDateTime>

#include <algorithm>

using namespace std::chrono;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

constexpr Instant tableBegin = sys_days(1970y / January / 1);
// QTimeZone lists no transitions after 2037, though it knows the offsets of later years.
constexpr Instant tableEnd = sys_days(2037y / January / 1);

// The zones' own mean times, the farthest from UTC, are less than that away.
constexpr seconds widestOffset = 16h;
// Some 270 million years: an Instant holds a little more.
constexpr days farthest{100'000'000'000};

QDateTime toDateTime(Instant instant) {
    return QDateTime::fromMSecsSinceEpoch(instant.time_since_epoch().count(), Qt::UTC);
}

Instant toInstant(const QDateTime &dateTime) {
    return Instant(milliseconds(dateTime.toMSecsSinceEpoch()));
}

} // namespace

UserZone::UserZone(const QTimeZone &zone) : m_zone(zone.isValid() ? zone : QTimeZone::utc()) {
    m_spans.push_back({tableBegin, seconds(m_zone.offsetFromUtc(toDateTime(tableBegin)))});
    for (const auto &transition : m_zone.transitions(toDateTime(tableBegin), toDateTime(tableEnd)))
        m_spans.push_back({toInstant(transition.atUtc), seconds(transition.offsetFromUtc)});
}

UserZone UserZone::current() {
    return UserZone(QTimeZone::systemTimeZone());
}

CivilDay UserZone::day(Instant instant) const {
    return floor<days>(local_time<milliseconds>(instant.time_since_epoch() + offsetAt(instant)));
}

Instant UserZone::startOfDay(CivilDay day) const {
    constexpr qint64 julianDayOfEpoch = 2440588;
    QDate date = QDate::fromJulianDay(julianDayOfEpoch + day.time_since_epoch().count());
    QDateTime start = date.startOfDay(m_zone);
    while (date.isValid() && !start.isValid()) {
        date = date.addDays(1);
        start = date.startOfDay(m_zone);
    }
    // Where the clocks are set back over midnight, Qt gives the second one.
    const Instant found = toInstant(start);
    const Instant earlier(day.time_since_epoch() - offsetAt(found - 1ms));
    return earlier < found && this->day(earlier) == day ? earlier : found;
}

std::optional<Instant> UserZone::instantOf(CivilDay day, milliseconds time) const {
    if (day > CivilDay(farthest) || day < CivilDay(-farthest))
        return std::nullopt;
    // The moment is within that much of the one at which clocks in UTC show the time; where the
    // zone changes meanwhile, either its offset before or the one after has to be counted with.
    const Instant inUtc(day.time_since_epoch() + time);
    const seconds before = offsetAt(inUtc - widestOffset);
    const seconds after = offsetAt(inUtc + widestOffset);
    for (const seconds offset : {std::max(before, after), std::min(before, after)}) {
        if (offsetAt(inUtc - offset) == offset)
            return inUtc - offset;
    }
    return inUtc - before;
}

seconds UserZone::offsetAt(Instant instant) const {
    if (instant < tableBegin || instant >= tableEnd)
        return seconds(m_zone.offsetFromUtc(toDateTime(instant)));
    const auto after =
        std::upper_bound(m_spans.begin(), m_spans.end(), instant,
                         [](Instant at, const Span &span) { return at < span.from; });
    return std::prev(after)->offset;
}

} // namespace tovarin
