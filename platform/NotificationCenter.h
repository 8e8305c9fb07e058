// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/NotificationRequest.h"

#include <QFlags>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

namespace tovarin {

/// What an application may ask leave for.
enum class AuthorizationOption { badge = 1, sound = 2, alert = 4 };
Q_DECLARE_FLAGS(AuthorizationOptions, AuthorizationOption)
Q_DECLARE_OPERATORS_FOR_FLAGS(AuthorizationOptions)

/// Where an application leaves the notifications that are to be shown later, also when it does not
/// run any more. The desktop's is SessionNotificationCenter; a test puts its own here.
///
/// A request is pending from when it is added until its moment comes, and then it is delivered
/// once. What has come due is not pending any more: removing it does not stop it, and a new request
/// with its identifier comes besides, unless it is for the very moment that has just passed.
///
/// The operations take effect in the order in which they are called, and those called without going
/// back to the event loop between take effect together or not at all, if there are not tens of
/// thousands of them. None waits or fails: what
/// cannot be done is not done. A click on a notification brings the application to the front; the
/// center does that without the application.
class NotificationCenter {
public:
    virtual ~NotificationCenter() = default;

    /// The application's id, such as "app.tovarin.Tovarin". Empty where there is no application, as
    /// in a test; nothing is asked of the center then.
    virtual QString bundleIdentifier() const = 0;

    /// Asks the user for leave. The answer comes from the event loop.
    virtual void requestAuthorization(AuthorizationOptions options,
                                      std::function<void(bool granted)> answer) = 0;

    /// Takes the place of a pending request with the same identifier.
    virtual void add(const NotificationRequest &request) = 0;

    virtual void removePending(const QStringList &identifiers) = 0;
    virtual void removeAllPending() = 0;

    /// Tells the pending requests, in the order in which they were added; from the event loop. An
    /// empty list when nobody knows.
    virtual void
    pending(std::function<void(const QList<NotificationRequest> &requests)> answer) = 0;

protected:
    NotificationCenter() = default;
    NotificationCenter(const NotificationCenter &) = default;
    NotificationCenter &operator=(const NotificationCenter &) = default;
};

} // namespace tovarin
