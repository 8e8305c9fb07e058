// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/ActivationRequest.h"
#include "platform/Environment.h"
#include "platform/FileLock.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QUrl>

#include <chrono>

class QDBusConnection;
class QDeadlineTimer;

namespace tovarin {

/// Sees to it that a user has one Tovarin: a second start brings the first to the front and ends.
///
/// The session bus decides who is first, by giving the application's name to one process; the first
/// also answers for the desktop there as `org.freedesktop.Application` (freedesktop.org's "D-Bus
/// Activation" of desktop entries), which is what the second start calls.
///
/// One user may have two sessions, or none with a bus, and they share the data file. So the first
/// holds a FileLock besides, and a start that cannot have it is refused. The lock's file is
/// "Tovarin.lock" in the application-support folder, beside the folder of the data: any process
/// that finds the same data finds the same lock there, which does not hold for $XDG_RUNTIME_DIR.
/// Where no lock can be had, Tovarin goes on without.
///
/// For the main thread only, like all its objects; the application object must exist.
class SingleInstance final : public QObject {
    Q_OBJECT

public:
    enum class Outcome {
        first,      ///< This process goes on.
        handedOver, ///< The running one has taken the files and comes to the front.
        refused,    ///< Another one is running that cannot be brought to the front: see refusal().
    };

    /// How long a running instance may take to answer.
    static constexpr std::chrono::seconds defaultPatience{25};

    explicit SingleInstance(Environment environment = processEnvironment(),
                            std::chrono::milliseconds patience = defaultPatience,
                            QObject *parent = nullptr);

    /// Lets the next start be the first. A start that waits for this process then takes its place.
    ~SingleInstance() override;

    /// Decides; to be called once, before the data file is read. Blocks while a running instance
    /// does not answer, at the longest as long as the patience lasts; the call stays with that
    /// instance, which comes to the front when it is able to. The files go with it, local ones with
    /// their absolute paths, and so does the environment's activation token.
    Outcome claim(const QList<QUrl> &files);

    /// One line in English that says why claim() refused; empty otherwise.
    QString refusal() const { return m_refusal; }

    /// From now on the signals come, each from the event loop; first those for the calls that came
    /// since claim(), in their order. Nothing is told before, so that no call meets an application
    /// that is not yet complete.
    void start();

Q_SIGNALS:
    /// The window is wanted in front. The token allows that to a window under Wayland or X11; it is
    /// empty when the caller has none.
    void activated(const QString &activationToken);

    /// These are wanted open, and the window in front. They are as the caller gave them, which may
    /// be anything: no file, no local file, a file twice. Never an empty list.
    void openRequested(const QList<QUrl> &files, const QString &activationToken);

private:
    Outcome lockData(const QDeadlineTimer &deadline, const QString &refusal);
    Outcome refuse(const QString &refusal);
    QDBusConnection joinBus();
    void leaveBus();
    void keep(const ActivationRequest &request);
    void tellKept();

    const Environment m_environment;
    const std::chrono::milliseconds m_patience;
    FileLock m_lock;
    QString m_connection; ///< The name of the bus connection within this process; empty without.
    QString m_refusal;
    QList<ActivationRequest> m_requests; ///< Not yet told.
    bool m_started = false;
};

} // namespace tovarin
