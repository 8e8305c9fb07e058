// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Clock.h"

#include <QTimeZone>

#include <optional>
#include <vector>

namespace tovarin {

/// The user's time zone, by the system's zone files: the edge at which instants become civil days.
class UserZone {
public:
    explicit UserZone(const QTimeZone &zone);

    /// The zone that TZ names, else the system's; UTC when neither can be read.
    static UserZone current();

    /// The civil day that holds the instant.
    CivilDay day(Instant instant) const;

    /// The first moment of the day. A day whose midnight the clocks skip starts when they go on; a
    /// day that the zone left out altogether starts where the next one does.
    Instant startOfDay(CivilDay day) const;

    /// When a wall clock shows so much time since midnight on the day, which is less than 24 hours.
    ///
    /// A time that the clocks skip is counted by the clock as it was before, so it comes as much
    /// later as they are put forward: for half past two, when three follows on two, half past
    /// three. A day that the zone left out gives the same time of the next one. Of a time that
    /// comes twice the first is taken. So says RFC 5545 (3.3.5) of local times, and so the
    /// notification centre reads a calendar trigger.
    ///
    /// No value when the day is so far away that no Instant can hold it.
    std::optional<Instant> instantOf(CivilDay day, std::chrono::milliseconds time) const;

private:
    /// From this instant on, until the next span begins, local time is UTC plus the offset.
    struct Span {
        Instant from;
        std::chrono::seconds offset;
    };

    std::chrono::seconds offsetAt(Instant instant) const;

    QTimeZone m_zone;
    // Asking QTimeZone costs about a microsecond each time, too much for lists of 10,000 entries,
    // so the spans of the years that entries usually fall into are looked up once.
    std::vector<Span> m_spans;
};

} // namespace tovarin
