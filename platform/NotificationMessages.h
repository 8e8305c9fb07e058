// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/NotificationRequest.h"

#include <QByteArray>
#include <QLatin1StringView>
#include <QList>
#include <QStringList>

#include <optional>
#include <variant>

/// What Tovarin and tovarin-notifier say to each other on the session bus.
///
/// The notifier has the name `service` and there the object `objectPath` with the interface
/// `interface`, which has two methods:
///
/// - `Change(in s changes, out u pending)`: does all the changes, in their order, or none; answers
///   with how many requests are pending then, once they are on the disk, if it takes them. What is
///   not a list of changes, or too long, gets the error org.freedesktop.DBus.Error.InvalidArgs;
///   what would leave too many pending (Notifier::mostPending),
///   org.freedesktop.DBus.Error.LimitsExceeded. Neither does anything.
/// - `Pending(out s requests)`: the pending requests in the order in which they were added.
///
/// Both texts are JSON; the functions here write and read them.
namespace tovarin::NotificationMessages {

inline constexpr QLatin1StringView service{"app.tovarin.Tovarin.Notifier"};
inline constexpr QLatin1StringView objectPath{"/app/tovarin/Tovarin/Notifier"};
inline constexpr QLatin1StringView interface { "app.tovarin.Tovarin.Notifier" };

/// Changes that are longer than that are none, whatever they say. In bytes of UTF-8.
inline constexpr qsizetype longestChanges = 16 * 1024 * 1024;

struct RemovePending {
    QStringList identifiers;

    bool operator==(const RemovePending &) const = default;
};

struct RemoveAllPending {
    bool operator==(const RemoveAllPending &) const = default;
};

/// A request is one to be added.
using Change = std::variant<NotificationRequest, RemovePending, RemoveAllPending>;

struct EncodedChanges {
    QByteArray json;
    qsizetype count; ///< So many of the changes, from the first.
};

/// `[{"removeAll":true},{"remove":["renew-…"]},{"add":{…}}]`; see NotificationRequest::toJson. As
/// many as `longestChanges` has room for, but the first in any case.
EncodedChanges encodeChanges(const QList<Change> &changes);

/// No value if any of it is something else, or is too long.
std::optional<QList<Change>> decodeChanges(const QByteArray &json);

/// `[{…},…]`
QByteArray encodeRequests(const QList<NotificationRequest> &requests);

/// No value if any of it is something else.
std::optional<QList<NotificationRequest>> decodeRequests(const QByteArray &json);

} // namespace tovarin::NotificationMessages
