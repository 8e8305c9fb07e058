// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "notifier/NotificationService.h"

#include <QDBusConnection>
#include <QHash>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace tovarin {

/// The desktop's notifications: freedesktop.org's "Desktop Notifications" 1.2, over
/// the session bus. The bus starts the service where it can.
///
/// A notification comes from "Tovarin", with its icon and its `desktop-entry`. Its sound is the
/// sound theme's "message-new-instant" (`sound-name`), or `suppress-sound`; one that is not to stay
/// in the list is `transient`; one that is not to pop up has the low urgency, which is as near as
/// its rules come to that. Where the service reads markup, the body is escaped: a name may
/// hold "<" and "&". A click is the action "default", offered where the service has actions; its
/// label, which few show, is the program's name, the same in every language.
///
/// Its signals are listened to only while something is shown, because the service tells them of
/// everybody's notifications. What it never reports as closed counts as shown until it goes away.
class DesktopNotifications final : public NotificationService {
    Q_OBJECT

public:
    /// `applicationId` names icon and desktop entry.
    DesktopNotifications(const QDBusConnection &bus, QString applicationId,
                         QObject *parent = nullptr);

    void prepare(std::function<void(Presence presence)> answer) override;
    void post(const NotificationRequest &request,
              std::function<void(Outcome outcome)> answer) override;
    bool isShowing() const override { return !m_shown.isEmpty(); }

Q_SIGNALS:
    /// The user has clicked on a notification. The token allows a window to come to the front; it
    /// is empty where the service gives none.
    void clicked(const QString &activationToken);

private Q_SLOTS:
    void takeToken(uint id, const QString &token);
    void takeAction(uint id, const QString &action);
    void takeClosing(uint id);

private:
    void listen();
    void stopListening();
    /// The service may tell of a notification before Qt has told its answer, the id: what concerns
    /// an id that is not known is kept while an answer is on its way, and heard when it is there.
    void keepEarly(std::function<void()> told);
    void hearEarly();
    void forget(uint id);
    void forgetService();

    QDBusConnection m_bus;
    const QString m_applicationId;
    std::optional<QStringList> m_capabilities; ///< Of the service that is there, if one is.
    QSet<uint> m_shown;
    QHash<uint, QString> m_tokens;
    QList<std::function<void()>> m_early;
    bool m_listens = false;
    int m_posting = 0;
    int m_services = 0; ///< That have gone.
};

} // namespace tovarin
