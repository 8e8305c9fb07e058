// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// When the notifier's process begins and ends, and what outlives it.

#include "platform/FileLock.h"
#include "tests/notifier/NotifierProgramTest.h"
#include "tests/support/Printing.h"
#include "tests/support/WaitFor.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingReply>
#include <QDir>
#include <QProcess>

#include <csignal>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace tovarin {

using NotificationMessages::service;

TEST_F(NotifierProgramTest, LeavesWithNothingToWaitForAndComesBackWhenAsked) {
    desktop->appear();
    center->add(after(10ms, u"a"_s, u"one"_s));
    ASSERT_TRUE(waitForPosts(1));
    EXPECT_EQ(pending(), QStringList());
    const pid_t first = pid();
    desktop->tell(u"NotificationClosed"_s, {99U, 2U}); // another program's
    desktop->close(1);
    ASSERT_TRUE(waitForEnd());
    center->add(after(10ms, u"b"_s, u"two"_s));
    ASSERT_TRUE(waitForPosts(2));
    EXPECT_NE(pid(), first);
    EXPECT_EQ(desktop->bodies(), (QStringList{u"one"_s, u"two"_s}));
}

TEST_F(NotifierProgramTest, LeavesWhenWhatItShowsIsClosedBeforeTheAnswer) {
    desktop->closesFirst = true;
    desktop->appear();
    center->add(after(10ms, u"a"_s, u"one"_s));
    ASSERT_TRUE(waitForPosts(1));
    ASSERT_TRUE(waitForEnd());
}

TEST_F(NotifierProgramTest, TakesAClickThatComesBeforeTheAnswer) {
    desktop->clicksFirst = true;
    desktop->appear();
    desktop->haveTovarin();
    center->add(after(10ms, u"a"_s, u"one"_s));
    ASSERT_TRUE(waitFor([this] { return desktop->activations.size() == 1; }));
    ASSERT_TRUE(waitForEnd());
}

TEST_F(NotifierProgramTest, KeepsWhatIsPendingWhenKilled) {
    desktop->appear();
    center->add(after(1h, u"a"_s, u"later"_s));
    center->add(after(1s, u"b"_s, u"soon"_s));
    EXPECT_EQ(pending(), (QStringList{u"a"_s, u"b"_s}));
    kill();
    open();
    EXPECT_EQ(pending().first(), u"a"_s);
    ASSERT_TRUE(waitForPosts(1));
    EXPECT_EQ(pending(), QStringList(u"a"_s));
    kill();
    open();
    EXPECT_EQ(pending(), QStringList(u"a"_s));
    center->removeAllPending();
    EXPECT_EQ(pending(), QStringList());
    EXPECT_EQ(desktop->bodies(), QStringList(u"soon"_s));
}

TEST_F(NotifierProgramTest, DeliversOnceWhenKilledBeforeTheAnswer) {
    desktop->holdsAnswers = true;
    desktop->appear();
    center->add(after(10ms, u"a"_s, u"one"_s));
    center->add(after(1h, u"b"_s, u"two"_s));
    ASSERT_TRUE(waitForPosts(1));
    kill();
    open();
    EXPECT_EQ(pending(), QStringList(u"b"_s));
    center->add(after(10ms, u"c"_s, u"three"_s));
    ASSERT_TRUE(waitForPosts(2));
    EXPECT_EQ(desktop->bodies(), (QStringList{u"one"_s, u"three"_s}));
}

TEST_F(NotifierProgramTest, IsStartedAgainWhenItDiesWhileTovarinRuns) {
    desktop->appear();
    center->add(after(1s, u"a"_s, u"one"_s));
    EXPECT_EQ(pending(), QStringList(u"a"_s));
    const pid_t first = pid();
    ASSERT_EQ(::kill(first, SIGKILL), 0);
    ASSERT_TRUE(waitForPosts(1));
    EXPECT_NE(pid(), first);
    EXPECT_EQ(desktop->bodies(), QStringList(u"one"_s));
}

TEST_F(NotifierProgramTest, HearsWhatTheUserDidLastBeforeQuitting) {
    center->add(after(1h, u"a"_s, u"one"_s));
    center.reset();
    EXPECT_TRUE(isRunning());
    open();
    EXPECT_EQ(pending(), QStringList(u"a"_s));
    center->removeAllPending();
    center->add(after(1h, u"b"_s, u"two"_s));
    center.reset();
    open();
    EXPECT_EQ(pending(), QStringList(u"b"_s));
}

TEST_F(NotifierProgramTest, IsThereOnce) {
    center->add(after(1h, u"a"_s, u"one"_s));
    ASSERT_EQ(pending(), QStringList(u"a"_s));
    const pid_t first = pid();
    QProcess second;
    second.start(QString::fromUtf8(TOVARIN_NOTIFIER), QStringList());
    EXPECT_TRUE(waitFor([&] { return second.state() == QProcess::NotRunning; }));
    EXPECT_EQ(second.exitCode(), 0);
    EXPECT_EQ(second.readAllStandardError(), "");
    EXPECT_EQ(pid(), first);
}

TEST_F(NotifierProgramTest, LeavesTheFileToTheOneOfAnotherSession) {
    ASSERT_TRUE(QDir().mkpath(state.filePath(u"Tovarin"_s)));
    FileLock lock(state.filePath(u"Tovarin/notifier.lock"_s));
    ASSERT_EQ(lock.take(), FileLock::Result::taken);
    // Whoever reads this sets it aside.
    QFile file(state.filePath(u"Tovarin/notifications.json"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("damaged");
    file.close();
    QProcess program;
    program.start(QString::fromUtf8(TOVARIN_NOTIFIER), QStringList());
    EXPECT_TRUE(waitFor([&] { return program.state() == QProcess::NotRunning; }));
    EXPECT_EQ(program.exitCode(), 0);
    EXPECT_FALSE(isRunning());
    EXPECT_EQ(QDir(state.filePath(u"Tovarin"_s)).entryList(QDir::Files),
              (QStringList{u"notifications.json"_s, u"notifier.lock"_s}));
}

TEST_F(NotifierProgramTest, IsStartedByTheBusThatKnowsIt) {
    const ScopedVariable data("XDG_DATA_HOME", QFile::encodeName(state.path()));
    ASSERT_TRUE(QDir().mkpath(state.filePath(u"dbus-1/services"_s)));
    QFile file(state.filePath(u"dbus-1/services/notifier.service"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[D-BUS Service]\nName=app.tovarin.Tovarin.Notifier\nExec=" TOVARIN_NOTIFIER "\n");
    file.close();
    const PrivateBus knowing;
    QDBusConnection own =
        QDBusConnection::connectToBus(QString::fromLatin1(knowing.address()), u"own"_s);
    {
        SessionNotificationCenter withoutProgram(u"app.tovarin.Tovarin"_s, own, QString());
        withoutProgram.add(after(1h, u"a"_s, u"one"_s));
        QStringList told;
        withoutProgram.pending([&](const QList<NotificationRequest> &requests) {
            for (const NotificationRequest &request : requests)
                told.append(request.identifier);
        });
        EXPECT_TRUE(waitFor([&] { return !told.isEmpty(); }));
        EXPECT_EQ(told, QStringList(u"a"_s));
    }
    own = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(u"own"_s);
}

TEST_F(NotifierProgramTest, EndsWithoutABusAndWithItsBus) {
    {
        const ScopedVariable none("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
        QProcess program;
        program.start(QString::fromUtf8(TOVARIN_NOTIFIER), QStringList());
        EXPECT_TRUE(waitFor([&] { return program.state() == QProcess::NotRunning; }));
        EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(program.readAllStandardError(), "");
    }
    auto other = std::make_unique<PrivateBus>();
    const ScopedVariable address("DBUS_SESSION_BUS_ADDRESS", other->address());
    QDBusConnection peer =
        QDBusConnection::connectToBus(QString::fromLatin1(other->address()), u"peer"_s);
    QProcess program;
    program.start(QString::fromUtf8(TOVARIN_NOTIFIER), QStringList());
    EXPECT_TRUE(waitFor([&] { return peer.interface()->isServiceRegistered(service).value(); }));
    QDBusMessage message = QDBusMessage::createMethodCall(
        service, NotificationMessages::objectPath, NotificationMessages::interface, u"Change"_s);
    message << QString::fromUtf8(
        NotificationMessages::encodeChanges({after(1h, u"a"_s, u"one"_s)}).json);
    const QDBusPendingReply<uint> reply = peer.asyncCall(message);
    EXPECT_TRUE(waitFor([&] { return reply.isFinished(); }));
    EXPECT_EQ(reply.value(), 1U);
    peer = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(u"peer"_s);
    EXPECT_EQ(program.state(), QProcess::Running);
    other.reset();
    EXPECT_TRUE(waitFor([&] { return program.state() == QProcess::NotRunning; }));
    EXPECT_EQ(program.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(program.readAllStandardError(), "");
}

} // namespace tovarin
