// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/NotificationRequest.h"

#include <QObject>

#include <functional>

namespace tovarin {

/// What shows notifications on the desktop, if it is there. The desktop's is DesktopNotifications.
class NotificationService : public QObject {
    Q_OBJECT

public:
    enum class Outcome {
        shown,   ///< Handed over, or nobody can tell: what was not answered may have been shown.
        refused, ///< The service is there and would not have it now.
        absent,  ///< Certainly not shown: there is no service any more.
    };

    enum class Presence {
        there,
        absent, ///< It will tell with appeared() when it comes.
        silent, ///< It does not answer as it should, has just died or could not be started. Nobody
                ///< tells when it will; asking again later may help.
    };

    /// Finds out whether the service is there, and starts it where it can be started. The answer
    /// comes at once or from the event loop.
    virtual void prepare(std::function<void(Presence presence)> answer) = 0;

    /// Hands the notification over, before it returns, to a service that was there when asked. The
    /// outcome comes at once or from the event loop.
    virtual void post(const NotificationRequest &request,
                      std::function<void(Outcome outcome)> answer) = 0;

    /// Whether something is shown that the user can still click on.
    virtual bool isShowing() const = 0;

Q_SIGNALS:
    /// A service has come that was not there before.
    void appeared();

    /// Nothing is shown any more.
    void shownNothing();

protected:
    using QObject::QObject;
};

} // namespace tovarin
