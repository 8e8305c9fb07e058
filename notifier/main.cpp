// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// tovarin-notifier: keeps the notifications that Tovarin wants shown later, and shows them in time
// whether or not Tovarin runs. The session bus starts it when it is called, the desktop at login,
// Tovarin where neither is set up. It leaves when it has nothing to wait for. It reads no arguments
// and writes nothing; without a session bus, or when another one runs, it ends at once.

#include "notifier/DesktopNotifications.h"
#include "notifier/Notifier.h"
#include "notifier/NotifierInterface.h"
#include "platform/ApplicationSupport.h"
#include "platform/FileLock.h"
#include "platform/ProgramFinder.h"
#include "platform/ZoneWatch.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDir>
#include <QProcess>
#include <QThread>
#include <QTimer>
#include <QVariantMap>

#include <chrono>
#include <cstdlib>
#include <malloc.h>
#include <unistd.h>

using namespace tovarin;
using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString applicationId = u"app.tovarin.Tovarin"_s;

/// Whoever has started it wants something of it, which may take a moment to arrive.
constexpr auto graceTime = 3s;

/// Longer than a bus takes that answers at all.
constexpr unsigned mostStartTime = 30; // seconds

/// What a notifier that has just died may still hold its lock.
constexpr int lockAttempts = 200;
constexpr unsigned long lockInterval = 5; // milliseconds

/// Nobody reads what Qt complains of.
void keepSilent(QtMsgType, const QMessageLogContext &, const QString &) {}

bool takeLock(FileLock &lock) {
    FileLock::Result result = lock.take();
    for (int i = 0; i < lockAttempts && result == FileLock::Result::heldElsewhere; ++i) {
        QThread::msleep(lockInterval);
        result = lock.take();
    }
    return result != FileLock::Result::heldElsewhere;
}

/// Starts Tovarin where the bus does not know how to.
void startTovarin(const QString &activationToken) {
    const QString program = findProgram(u"tovarin"_s, QCoreApplication::applicationDirPath(),
                                        {u"."_s, u"../../bin"_s, u"../app"_s});
    if (program.isEmpty())
        return;
    QProcess tovarin;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(u"QT_NO_GLIB"_s);
    if (!activationToken.isEmpty())
        environment.insert(u"XDG_ACTIVATION_TOKEN"_s, activationToken);
    tovarin.setProcessEnvironment(environment);
    tovarin.setProgram(program);
    tovarin.setWorkingDirectory(QDir::homePath());
    tovarin.setStandardInputFile(QProcess::nullDevice());
    tovarin.setStandardOutputFile(QProcess::nullDevice());
    tovarin.setStandardErrorFile(QProcess::nullDevice());
    tovarin.startDetached();
}

/// Brings Tovarin to the front: the one that runs, or the one that the bus starts.
void activateTovarin(const QDBusConnection &bus, const QString &activationToken) {
    QVariantMap platformData;
    if (!activationToken.isEmpty())
        platformData[u"activation-token"_s] = activationToken;
    QDBusMessage call = QDBusMessage::createMethodCall(
        applicationId, u"/app/tovarin/Tovarin"_s, u"org.freedesktop.Application"_s, u"Activate"_s);
    call << platformData;
    auto *const watcher = new QDBusPendingCallWatcher(bus.asyncCall(call));
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [watcher, activationToken] {
                         watcher->deleteLater();
                         const QDBusPendingReply<> reply = *watcher;
                         if (reply.isError() && reply.error().type() == QDBusError::ServiceUnknown)
                             startTovarin(activationToken);
                     });
}

} // namespace

int main(int argc, char **argv) {
    qInstallMessageHandler(keepSilent);
    // Qt's own event loop does, and is smaller than GLib's.
    qputenv("QT_NO_GLIB", "1");
    mallopt(M_ARENA_MAX, 1);
    QCoreApplication application(argc, argv);

    // Qt waits for ever for a bus that goes away in the moment when it is asked something.
    alarm(mostStartTime);
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return EXIT_SUCCESS;
    bus.connect(QString(), u"/org/freedesktop/DBus/Local"_s, u"org.freedesktop.DBus.Local"_s,
                u"Disconnected"_s, &application, SLOT(quit()));

    QTimer grace;
    grace.setSingleShot(true);
    // The object first: with the name come the calls, which wait for the event loop.
    NotifierInterface interface([&grace] {
        grace.start(graceTime);
        // A long list leaves much behind.
        QTimer::singleShot(0, [] { malloc_trim(0); });
    });
    bus.registerObject(NotificationMessages::objectPath, &interface,
                       QDBusConnection::ExportScriptableSlots);
    if (!bus.registerService(NotificationMessages::service))
        return EXIT_SUCCESS;

    // One user may have two sessions, with a bus each, and one file.
    const QString folder = stateFolder(processEnvironment()) + u"/Tovarin"_s;
    QDir().mkpath(folder);
    FileLock lock(folder + u"/notifier.lock"_s);
    if (!takeLock(lock))
        return EXIT_SUCCESS;

    const SystemClock clock;
    DesktopNotifications desktop(bus, applicationId);
    Notifier notifier(clock, UserZone::current(), folder, desktop);
    interface.setNotifier(notifier);
    const ZoneWatch zone(processEnvironment(), u"/etc"_s);
    QObject::connect(&zone, &ZoneWatch::changed, &notifier,
                     [&notifier] { notifier.setZone(UserZone::current()); });
    QObject::connect(&desktop, &DesktopNotifications::clicked, &application,
                     [&bus](const QString &token) { activateTovarin(bus, token); });
    QObject::connect(&notifier, &Notifier::becameIdle, &grace,
                     [&grace] { grace.start(graceTime); });
    QObject::connect(&grace, &QTimer::timeout, &application, [&] {
        if (notifier.isIdle())
            QCoreApplication::quit();
    });
    alarm(0);
    notifier.look();
    return QCoreApplication::exec();
}
