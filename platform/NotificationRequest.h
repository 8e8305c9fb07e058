// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Clock.h"

#include <QByteArray>
#include <QFlags>
#include <QJsonObject>
#include <QString>

#include <chrono>
#include <cstdint>
#include <optional>
#include <variant>

namespace tovarin {

/// Fires when the user's clocks show a time on a day, in the zone they are in then: a notification
/// for ten in the morning comes at ten also after a journey. The day is a civil day, whichever
/// calendar the user counts by. See UserZone::instantOf for a time that does not exist or comes
/// twice.
struct CalendarTrigger {
    CivilDay day;
    std::chrono::minutes time; ///< Since midnight, less than 24 hours.

    bool operator==(const CalendarTrigger &) const = default;
};

/// Fires so long after the request was added. More than nothing.
struct TimeIntervalTrigger {
    std::chrono::milliseconds interval;

    bool operator==(const TimeIntervalTrigger &) const = default;
};

/// How a notification is shown, whether or not Tovarin is in front.
enum class PresentationOption {
    sound = 1,  ///< The desktop's own sound for a message.
    list = 2,   ///< It stays in the list of notifications.
    banner = 4, ///< It pops up.
};
Q_DECLARE_FLAGS(PresentationOptions, PresentationOption)
Q_DECLARE_OPERATORS_FOR_FLAGS(PresentationOptions)

/// A notification to be shown once, later. A plain value; it repeats never.
struct NotificationRequest {
    QString identifier; ///< Among the pending requests there is one of each.
    QString title;
    QString body;
    PresentationOptions presentation;
    std::variant<CalendarTrigger, TimeIntervalTrigger> trigger;

    bool operator==(const NotificationRequest &) const = default;

    static constexpr qsizetype longestIdentifier = 200; ///< In UTF-16 units, and never empty.
    static constexpr qsizetype longestText = 65'536;    ///< The same, of title and body each.

    /// The moment at which the longest is over is still a number that JSON has.
    static constexpr std::chrono::milliseconds longestInterval{std::int64_t{1} << 52};

    /// Whether it keeps to what is said here of its parts. Nobody takes one that does not.
    bool isValid() const;

    /// `{"identifier":"renew-…","title":"…","body":"…","presentation":["sound","list","banner"],
    /// "calendar":{"year":2025,"month":3,"day":9,"hour":10,"minute":0}}`; an interval is
    /// `"milliseconds":3000` in the place of the calendar.
    QByteArray toJson() const;

    /// No value for an object that is not exactly that, further keys aside, or that isn't valid.
    static std::optional<NotificationRequest> fromJson(const QJsonObject &object);
};

} // namespace tovarin
