// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/NotificationCenter.h"
#include "platform/NotificationMessages.h"

#include <QDBusConnection>
#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>

class QDBusMessage;
class QDBusPendingCallWatcher;
class QDeadlineTimer;

namespace tovarin {

/// The notification center of the desktop: hands everything to tovarin-notifier, which does the
/// waiting and the showing, over the session bus (NotificationMessages.h).
///
/// The bus starts the notifier where its service file is installed. Where that is not so, as in a
/// build tree, this starts the program itself, apart from this process, which it outlives. It also
/// starts it again, once for each change, when it dies while something may be pending; one that has
/// delivered everything leaves, and then finds nothing to do and leaves again.
///
/// Calls never wait: what is asked for before the event loop runs again is sent in one message (in
/// several, one after the other, if it is too long for one), and stays here while there is nobody
/// to take it. Without a session bus, or without a bundle identifier, everything is dropped. No
/// desktop lets a program ask for leave; users forbid what they don't like in the desktop's
/// settings, and it is planned all the same. So leave is granted wherever there is a bus.
///
/// For the main thread.
class SessionNotificationCenter final : public QObject, public NotificationCenter {
    Q_OBJECT

public:
    /// How long the destructor may wait until the notifier has what it was not told yet.
    static constexpr std::chrono::milliseconds parting{700};

    /// `notifierProgram` is the path of tovarin-notifier, empty to leave starting it to the bus.
    SessionNotificationCenter(QString bundleIdentifier, const QDBusConnection &bus,
                              QString notifierProgram, QObject *parent = nullptr);

    /// Sees to it that what the user did last before quitting counts.
    ~SessionNotificationCenter() override;

    /// Where tovarin-notifier is, seen from the folder of the program that wants it: beside it,
    /// where it is installed, or in the build tree. Empty when it is nowhere.
    static QString notifierProgram(const QString &programFolder);

    QString bundleIdentifier() const override { return m_bundleIdentifier; }
    void requestAuthorization(AuthorizationOptions options,
                              std::function<void(bool granted)> answer) override;

    /// Title and body are cut to what a notification may have. One that is not valid even so is
    /// dropped, and so is a message that the notifier refuses because it has too many requests
    /// then.
    void add(const NotificationRequest &request) override;
    void removePending(const QStringList &identifiers) override;
    void removeAllPending() override;
    void pending(std::function<void(const QList<NotificationRequest> &requests)> answer) override;

private:
    using Change = NotificationMessages::Change;
    using Question = std::function<void(const QList<NotificationRequest> &requests)>;

    bool isUsable() const;
    void enqueue(const Change &change);
    void flush();
    /// From the event loop, once for all that is asked for until then.
    void flushSoon();
    void send();
    void ask();
    void finish(const QDBusPendingCallWatcher &call);
    void answerQuestions(const QList<NotificationRequest> &requests);
    void startNotifier();
    void tellBeforeParting();
    bool isTaken(const QDBusMessage &message, const QDeadlineTimer &deadline);

    const QString m_bundleIdentifier;
    QDBusConnection m_bus;
    const QString m_program;
    QList<Change> m_queue; ///< Not yet sent.
    QList<Change> m_sent;  ///< Not yet answered.
    QList<Question> m_questions;
    bool m_isToFlush = false;
    bool m_isCalling = false;
    bool m_mayHavePending = false; ///< The notifier, by its last answer.
    bool m_hasStarted = false;     ///< The notifier, for what is to be sent now.
    QTimer m_starting;             ///< Runs while it is expected to come up.
};

} // namespace tovarin
