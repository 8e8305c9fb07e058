// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/TrayHost.h"

#include "tests/support/WaitFor.h"

#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

const QString watcherName = u"org.kde.StatusNotifierWatcher"_s;
const QString otherName = u"app.tovarin.Other"_s;
const QString watcherPath = u"/StatusNotifierWatcher"_s;

/// A message bus that nobody else is on. It would start, for a message to the watcher or to another
/// service, a program that leaves a file behind.
class PrivateBus {
public:
    PrivateBus() {
        for (const QString &service : {watcherName, otherName}) {
            const QString program = path(service + u".sh"_s);
            write(program, u"#!/bin/sh\ntouch '%1'\n"_s.arg(path(service)));
            QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
            write(path(service + u".service"_s),
                  u"[D-BUS Service]\nName=%1\nExec=%2\n"_s.arg(service, program));
        }
        write(path(u"bus.conf"_s),
              u"<busconfig><type>session</type><listen>unix:path=%1/bus</listen>"
              u"<servicedir>%1</servicedir><policy context='default'>"
              u"<allow send_destination='*' eavesdrop='true'/><allow eavesdrop='true'/>"
              u"<allow own='*'/></policy></busconfig>"_s.arg(m_folder.path()));
        m_daemon.start(u"dbus-daemon"_s, {u"--nofork"_s, u"--print-address"_s, u"--config-file"_s,
                                          path(u"bus.conf"_s)});
        while (!m_daemon.canReadLine() && m_daemon.waitForReadyRead(10000)) {
        }
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
    }

    ~PrivateBus() {
        for (const QString &name : m_names)
            QDBusConnection::disconnectFromBus(name);
        m_daemon.kill();
        m_daemon.waitForFinished();
    }

    /// A connection of its own for each who asks.
    QDBusConnection connection() {
        static int number = 0;
        m_names.append(u"private-%1"_s.arg(++number));
        return QDBusConnection::connectToBus(m_address, m_names.last());
    }

    bool started(const QString &service) const { return QFile::exists(path(service)); }

private:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    static void write(const QString &path, const QString &text) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
    }

    QTemporaryDir m_folder;
    QProcess m_daemon;
    QString m_address;
    QStringList m_names;
};

/// A watcher whose host may come later than itself.
class Watcher : public QDBusVirtualObject {
public:
    explicit Watcher(const QDBusConnection &bus) : m_bus(bus) {
        m_bus.registerVirtualObject(watcherPath, this);
    }

    void start() { EXPECT_TRUE(m_bus.registerService(watcherName)); }
    void stop() { EXPECT_TRUE(m_bus.unregisterService(watcherName)); }

    void setHost(const QVariant &registered) { m_registered = registered; }
    void tellOfHost() {
        m_bus.send(QDBusMessage::createSignal(watcherPath, watcherName,
                                              u"StatusNotifierHostRegistered"_s));
    }

    int questions() const { return m_questions; }

    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override {
        if (message.arguments() != QVariantList({watcherName, u"IsStatusNotifierHostRegistered"_s}))
            return false;
        ++m_questions;
        return bus.send(m_registered.isValid()
                            ? message.createReply(QVariant::fromValue(QDBusVariant(m_registered)))
                            : message.createErrorReply(QDBusError::UnknownProperty, u"none"_s));
    }

private:
    QDBusConnection m_bus;
    QVariant m_registered = true;
    int m_questions = 0;
};

class TrayHostTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(m_ours.isConnected()); }

    /// Whatever was sent to the connection before this is answered after it.
    static void settle(const QDBusConnection &bus) {
        for (int i = 0; i < 3; ++i) {
            bus.call(QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/"_s,
                                                    u"org.freedesktop.DBus"_s, u"GetId"_s));
            QCoreApplication::processEvents();
        }
    }

    PrivateBus m_private;
    QDBusConnection m_ours = m_private.connection();
    Watcher m_watcher{m_private.connection()};
};

} // namespace

TEST_F(TrayHostTest, NoticesAHostThatIsThere) {
    m_watcher.start();
    const TrayHost host(m_ours);
    QSignalSpy appeared(&host, &TrayHost::appeared);
    EXPECT_TRUE(waitFor([&] { return !appeared.isEmpty(); }));
}

TEST_F(TrayHostTest, NoticesEachStartOfAHost) {
    const TrayHost host(m_ours);
    QSignalSpy appeared(&host, &TrayHost::appeared);
    settle(m_ours);
    EXPECT_TRUE(appeared.isEmpty());
    for (int start = 1; start <= 3; ++start) {
        m_watcher.start();
        EXPECT_TRUE(waitFor([&] { return appeared.size() == start; }));
        m_watcher.stop();
        settle(m_ours);
        EXPECT_EQ(appeared.size(), start);
    }
    EXPECT_EQ(m_watcher.questions(), 3);
}

TEST_F(TrayHostTest, WaitsForTheHostOfAWatcher) {
    m_watcher.setHost(false);
    m_watcher.start();
    const TrayHost host(m_ours);
    QSignalSpy appeared(&host, &TrayHost::appeared);
    EXPECT_TRUE(waitFor([&] { return m_watcher.questions() == 1; }));
    m_watcher.tellOfHost();
    EXPECT_TRUE(waitFor([&] { return m_watcher.questions() == 2; }));
    settle(m_ours);
    EXPECT_TRUE(appeared.isEmpty()) << "the watcher's word counts, not the signal";

    m_watcher.setHost(true);
    m_watcher.tellOfHost();
    EXPECT_TRUE(waitFor([&] { return !appeared.isEmpty(); }));
}

TEST_F(TrayHostTest, BearsAWatcherThatDoesNotAnswerWell) {
    for (const QVariant &answer : {QVariant(), QVariant(u""_s), QVariant(0)}) {
        m_watcher.setHost(answer);
        const int before = m_watcher.questions();
        m_watcher.start();
        const TrayHost host(m_ours);
        QSignalSpy appeared(&host, &TrayHost::appeared);
        EXPECT_TRUE(waitFor([&] { return m_watcher.questions() > before; }));
        settle(m_ours);
        EXPECT_TRUE(appeared.isEmpty());
        m_watcher.stop();
    }
}

TEST_F(TrayHostTest, StartsNoWatcher) {
    const TrayHost host(m_ours);
    QSignalSpy appeared(&host, &TrayHost::appeared);
    settle(m_ours);
    // Asked later, the bus starts this after a watcher that it was made to start.
    m_ours.send(QDBusMessage::createMethodCall(otherName, u"/"_s, otherName, u"Any"_s));
    EXPECT_TRUE(waitFor([this] { return m_private.started(otherName); }));
    EXPECT_FALSE(m_private.started(watcherName));
    EXPECT_TRUE(appeared.isEmpty());

    m_ours.send(QDBusMessage::createMethodCall(watcherName, u"/"_s, watcherName, u"Any"_s));
    EXPECT_TRUE(waitFor([this] { return m_private.started(watcherName); }));
}

TEST_F(TrayHostTest, IsSilentWithoutABus) {
    static QStringList warnings;
    warnings.clear();
    const auto before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &text) { warnings << text; });
    {
        const QDBusConnection none =
            QDBusConnection::connectToBus(u"unix:path=/nonexistent"_s, u"none"_s);
        EXPECT_FALSE(none.isConnected());
        const TrayHost host(none);
        QSignalSpy appeared(&host, &TrayHost::appeared);
        QCoreApplication::processEvents();
        EXPECT_TRUE(appeared.isEmpty());
    }
    qInstallMessageHandler(before);
    EXPECT_EQ(warnings, QStringList());
    QDBusConnection::disconnectFromBus(u"none"_s);
}

} // namespace tovarin
