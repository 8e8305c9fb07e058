// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/FileLock.h"
#include "platform/SessionNotificationCenter.h"
#include "tests/platform/PrivateBus.h"
#include "tests/support/NotificationPrinting.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"
#include "tests/support/ScopedVariable.h"
#include "tests/support/WaitFor.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingReply>
#include <QDBusVirtualObject>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <memory>
#include <optional>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

using NotificationMessages::service;

constexpr PresentationOptions everything{PresentationOption::banner | PresentationOption::list |
                                         PresentationOption::sound};

NotificationRequest after(std::chrono::milliseconds interval, const QString &identifier,
                          const QString &body) {
    return {.identifier = identifier,
            .title = u"订阅即将续费"_s,
            .body = body,
            .presentation = everything,
            .trigger = TimeIntervalTrigger{interval}};
}

/// A desktop's notification service, and an application that can be activated.
class Desktop final : public QDBusVirtualObject {
public:
    explicit Desktop(const QByteArray &address)
        : bus(QDBusConnection::connectToBus(QString::fromLatin1(address), u"desktop"_s)) {
        EXPECT_TRUE(bus.registerVirtualObject(u"/org/freedesktop/Notifications"_s, this));
        EXPECT_TRUE(bus.registerVirtualObject(u"/app/tovarin/Tovarin"_s, this));
    }
    ~Desktop() override {
        bus = QDBusConnection(QString());
        QDBusConnection::disconnectFromBus(u"desktop"_s);
    }
    Desktop(const Desktop &) = delete;
    Desktop &operator=(const Desktop &) = delete;

    void appear() { EXPECT_TRUE(bus.registerService(u"org.freedesktop.Notifications"_s)); }
    void leave() { EXPECT_TRUE(bus.unregisterService(u"org.freedesktop.Notifications"_s)); }
    void haveTovarin() { EXPECT_TRUE(bus.registerService(u"app.tovarin.Tovarin"_s)); }

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &) override {
        if (message.member() == u"GetCapabilities") {
            ++questions;
            bus.send(error.isEmpty() ? message.createReply(capabilities)
                                     : message.createErrorReply(error, u"No"_s));
        } else if (message.member() == u"Notify") {
            EXPECT_EQ(message.signature(), u"susssasa{sv}i"_s);
            posts.append(message.arguments());
            if (!holdsAnswers)
                bus.send(message.createReply(static_cast<uint>(posts.size())));
        } else if (message.member() == u"Activate") {
            EXPECT_EQ(message.interface(), u"org.freedesktop.Application"_s);
            activations.append(qdbus_cast<QVariantMap>(message.arguments().first())
                                   .value(u"activation-token"_s)
                                   .toString());
            bus.send(message.createReply());
        } else {
            ADD_FAILURE() << message.member().toStdString();
        }
        return true;
    }

    void tell(const QString &signal, const QVariantList &arguments) {
        QDBusMessage message = QDBusMessage::createSignal(
            u"/org/freedesktop/Notifications"_s, u"org.freedesktop.Notifications"_s, signal);
        message.setArguments(arguments);
        EXPECT_TRUE(bus.send(message));
    }
    void close(uint id) { tell(u"NotificationClosed"_s, {id, 2U}); }

    QStringList bodies() const {
        QStringList bodies;
        for (const QVariantList &post : posts)
            bodies.append(post[4].toString());
        return bodies;
    }

    QDBusConnection bus;
    QStringList capabilities{u"actions"_s, u"body"_s, u"body-markup"_s};
    QString error; ///< The answer to GetCapabilities, if any.
    bool holdsAnswers = false;
    int questions = 0;
    QList<QVariantList> posts;
    QStringList activations; ///< The tokens.
};

class NotifierProgramTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_NE(bus.address(), "");
        connection = std::make_unique<QDBusConnection>(
            QDBusConnection::connectToBus(QString::fromLatin1(bus.address()), u"center"_s));
        desktop = std::make_unique<Desktop>(bus.address());
        open();
    }
    void TearDown() override {
        center.reset();
        if (isRunning())
            kill();
        desktop.reset();
        connection.reset();
        QDBusConnection::disconnectFromBus(u"center"_s);
    }

    void open() {
        center = std::make_unique<SessionNotificationCenter>(u"app.tovarin.Tovarin"_s, *connection,
                                                             QString::fromUtf8(TOVARIN_NOTIFIER));
    }

    bool isRunning() const { return connection->interface()->isServiceRegistered(service); }
    bool waitForStart() const {
        return waitFor([this] { return isRunning(); });
    }
    bool waitForEnd() const {
        return waitFor([this] { return !isRunning(); });
    }
    pid_t pid() const {
        return static_cast<pid_t>(connection->interface()->servicePid(service).value());
    }
    /// The center would start another one; as if Tovarin had quit, it is taken away first.
    void kill() {
        center.reset();
        ASSERT_EQ(::kill(pid(), SIGKILL), 0);
        ASSERT_TRUE(waitForEnd());
    }
    bool waitForPosts(qsizetype count) const {
        return waitFor([&] { return desktop->posts.size() >= count; });
    }
    QStringList pending() const {
        std::optional<QStringList> told;
        center->pending([&](const QList<NotificationRequest> &requests) {
            told = QStringList();
            for (const NotificationRequest &request : requests)
                told->append(request.identifier);
        });
        EXPECT_TRUE(waitFor([&] { return told.has_value(); }));
        return told.value_or(QStringList(u"no answer"_s));
    }
    /// Whether the bus is to tell the notifier of this signal.
    bool listensTo(const QString &signal) const {
        const QDBusMessage reply = connection->call(QDBusMessage::createMethodCall(
            u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
            u"org.freedesktop.DBus.Debug.Stats"_s, u"GetAllMatchRules"_s));
        EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage);
        const auto rules = qdbus_cast<QMap<QString, QStringList>>(
            reply.arguments().value(0).value<QDBusArgument>());
        const QString owner = connection->interface()->serviceOwner(service);
        EXPECT_TRUE(rules.contains(owner));
        return std::ranges::any_of(rules[owner],
                                   [&](const QString &rule) { return rule.contains(signal); });
    }

    QDBusPendingCall send(const QString &method, const QVariantList &arguments) const {
        QDBusMessage message = QDBusMessage::createMethodCall(
            service, NotificationMessages::objectPath, NotificationMessages::interface, method);
        message.setArguments(arguments);
        return connection->asyncCall(message);
    }
    /// The name of the error that is the answer; empty for a good one.
    QString call(const QString &method, const QVariantList &arguments) const {
        const QDBusPendingCall call = send(method, arguments);
        EXPECT_TRUE(waitFor([&] { return call.isFinished(); }));
        return call.error().name();
    }

    QTemporaryDir state;
    ScopedVariable stateHome{"XDG_STATE_HOME", QFile::encodeName(state.path())};
    PrivateBus bus;
    ScopedVariable busAddress{"DBUS_SESSION_BUS_ADDRESS", bus.address()};
    std::unique_ptr<QDBusConnection> connection;
    std::unique_ptr<Desktop> desktop;
    std::unique_ptr<SessionNotificationCenter> center;
};

} // namespace

TEST_F(NotifierProgramTest, PostsWithNameIconSoundAndAction) {
    desktop->appear();
    center->add(after(10ms, u"a"_s, u"AT&T <1> will be charged ¥30."_s));
    ASSERT_TRUE(waitForPosts(1));
    const QVariantList post = desktop->posts.first();
    EXPECT_EQ(post[0].toString(), u"Tovarin"_s);
    EXPECT_EQ(post[1].toUInt(), 0U);
    EXPECT_EQ(post[2].toString(), u"app.tovarin.Tovarin"_s);
    EXPECT_EQ(post[3].toString(), u"订阅即将续费"_s);
    EXPECT_EQ(post[4].toString(), u"AT&amp;T &lt;1&gt; will be charged ¥30."_s);
    EXPECT_EQ(post[5].toStringList(), (QStringList{u"default"_s, u"Tovarin"_s}));
    const auto hints = qdbus_cast<QVariantMap>(post[6]);
    EXPECT_EQ(hints, (QVariantMap{{u"desktop-entry"_s, u"app.tovarin.Tovarin"_s},
                                  {u"sound-name"_s, u"message-new-instant"_s},
                                  {u"urgency"_s, QVariant::fromValue<uchar>(1)}}));
    EXPECT_EQ(hints[u"urgency"_s].typeId(), QMetaType::UChar);
    EXPECT_EQ(post[7].toInt(), -1);
}

TEST_F(NotifierProgramTest, KeepsToWhatTheServiceCan) {
    desktop->capabilities = {u"body"_s};
    desktop->appear();
    NotificationRequest request = after(10ms, u"a"_s, u"AT&T <1>"_s + QChar(u'\0') + u"\n"_s);
    request.presentation = {};
    center->add(request);
    ASSERT_TRUE(waitForPosts(1));
    const QVariantList post = desktop->posts.first();
    EXPECT_EQ(post[4].toString(), u"AT&T <1>\uFFFD\n"_s);
    EXPECT_EQ(post[5].toStringList(), QStringList());
    EXPECT_EQ(qdbus_cast<QVariantMap>(post[6]),
              (QVariantMap{{u"desktop-entry"_s, u"app.tovarin.Tovarin"_s},
                           {u"suppress-sound"_s, true},
                           {u"transient"_s, true},
                           {u"urgency"_s, QVariant::fromValue<uchar>(0)}}));
}

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

TEST_F(NotifierProgramTest, WaitsForTheService) {
    center->add(after(10ms, u"a"_s, u"one"_s));
    EXPECT_TRUE(waitFor([this] { return pending().isEmpty(); }));
    kill();
    open();
    EXPECT_EQ(pending(), QStringList());
    desktop->appear();
    ASSERT_TRUE(waitForPosts(1));
    EXPECT_EQ(pending(), QStringList());
    EXPECT_EQ(desktop->bodies(), QStringList(u"one"_s));
}

TEST_F(NotifierProgramTest, KeepsWhatAServiceThatAnswersWithErrorsCannotShow) {
    desktop->error = u"org.freedesktop.DBus.Error.Failed"_s;
    desktop->appear();
    center->add(after(10ms, u"a"_s, u"one"_s));
    EXPECT_TRUE(waitFor([this] { return desktop->questions > 0; }));
    EXPECT_EQ(pending(), QStringList());
    EXPECT_EQ(desktop->bodies(), QStringList());
    desktop->error.clear();
    desktop->leave();
    desktop->appear();
    ASSERT_TRUE(waitForPosts(1));
    EXPECT_EQ(desktop->bodies(), QStringList(u"one"_s));
}

TEST_F(NotifierProgramTest, PostsAgainWhenTheServiceDiesBeforeItAnswers) {
    desktop->holdsAnswers = true;
    desktop->appear();
    center->add(after(10ms, u"a"_s, u"one"_s));
    ASSERT_TRUE(waitForPosts(1));
    desktop = nullptr;
    desktop = std::make_unique<Desktop>(bus.address());
    desktop->appear();
    ASSERT_TRUE(waitForPosts(1));
    EXPECT_EQ(desktop->bodies(), QStringList(u"one"_s));
}

TEST_F(NotifierProgramTest, LeavesWhenTheServiceTakesWhatItShowsWithIt) {
    desktop->appear();
    center->add(after(10ms, u"a"_s, u"one"_s));
    ASSERT_TRUE(waitForPosts(1));
    EXPECT_EQ(pending(), QStringList());
    desktop->leave();
    EXPECT_TRUE(waitForEnd());
}

TEST_F(NotifierProgramTest, BringsTovarinToTheFrontWhenClicked) {
    desktop->appear();
    desktop->haveTovarin();
    center->add(after(10ms, u"a"_s, u"one"_s));
    center->add(after(20ms, u"b"_s, u"two"_s));
    ASSERT_TRUE(waitForPosts(2));
    EXPECT_EQ(pending(), QStringList());
    desktop->tell(u"ActionInvoked"_s, {99U, u"default"_s}); // another program's
    desktop->tell(u"ActionInvoked"_s, {1U, u"other"_s});
    desktop->tell(u"ActivationToken"_s, {1U, u"token"_s});
    desktop->tell(u"ActionInvoked"_s, {1U, u"default"_s});
    EXPECT_TRUE(waitFor([this] { return !desktop->activations.isEmpty(); }));
    desktop->tell(u"ActionInvoked"_s, {2U, u"default"_s});
    EXPECT_TRUE(waitFor([this] { return desktop->activations.size() == 2; }));
    EXPECT_EQ(desktop->activations, (QStringList{u"token"_s, QString()}));
    EXPECT_TRUE(waitForEnd());
}

TEST_F(NotifierProgramTest, ListensToTheServiceOnlyWhileSomethingIsShown) {
    desktop->appear();
    center->add(after(1h, u"later"_s, u"later"_s));
    EXPECT_EQ(pending(), QStringList(u"later"_s));
    EXPECT_FALSE(listensTo(u"NotificationClosed"_s));
    center->add(after(10ms, u"a"_s, u"one"_s));
    ASSERT_TRUE(waitForPosts(1));
    EXPECT_EQ(pending(), QStringList(u"later"_s));
    for (const auto &signal : {u"NotificationClosed"_s, u"ActionInvoked"_s, u"ActivationToken"_s})
        EXPECT_TRUE(listensTo(signal)) << signal.toStdString();
    desktop->close(1);
    EXPECT_TRUE(waitFor([this] {
        return !listensTo(u"NotificationClosed"_s) && !listensTo(u"ActionInvoked"_s) &&
               !listensTo(u"ActivationToken"_s);
    })) << "everybody's notifications would wake it";
}

TEST_F(NotifierProgramTest, RefusesWhatIsNoChange) {
    center->add(after(1h, u"a"_s, u"one"_s));
    ASSERT_EQ(pending(), QStringList(u"a"_s));
    const QString invalid = u"org.freedesktop.DBus.Error.InvalidArgs"_s;
    const QString unknown = u"org.freedesktop.DBus.Error.UnknownMethod"_s;
    for (const QString &text :
         {QString(), u"x"_s, u"[{}]"_s, u"[{\"removeAll\":true},1]"_s, QString(1'000'000, u'['),
          u'[' + QString(NotificationMessages::longestChanges, u' ') + u']'})
        EXPECT_EQ(call(u"Change"_s, {text}), invalid) << text.left(30).toStdString();
    EXPECT_EQ(call(u"Change"_s, {}), unknown);
    EXPECT_EQ(call(u"Change"_s, {1}), unknown);
    EXPECT_EQ(call(u"Change"_s, {QStringList{u"[]"_s}}), unknown);
    EXPECT_EQ(call(u"Change"_s, {QVariantMap{{u"removeAll"_s, true}}}), unknown);
    EXPECT_EQ(call(u"Other"_s, {}), unknown);
    EXPECT_EQ(call(u"quit"_s, {}), unknown);
    EXPECT_EQ(call(u"deleteLater"_s, {}), unknown);
    EXPECT_EQ(pending(), QStringList(u"a"_s));
    EXPECT_EQ(call(u"Change"_s, {u"[]"_s}), QString());
}

TEST_F(NotifierProgramTest, RefusesWhatWouldBeTooMuchForIt) {
    ASSERT_EQ(pending(), QStringList());
    QByteArray one = NotificationMessages::encodeChanges({after(1h, u"a"_s, u"one"_s)}).json;
    one = one.sliced(1, one.size() - 2);
    QByteArray tooMany = "[" + one;
    for (int i = 0; i < 100'000; ++i)
        tooMany += ',' + one;
    EXPECT_EQ(call(u"Change"_s, {QString::fromUtf8(tooMany + ']')}),
              u"org.freedesktop.DBus.Error.LimitsExceeded"_s);
    EXPECT_EQ(pending(), QStringList());
}

TEST_F(NotifierProgramTest, TakesTenThousandAtOnce) {
    for (int i = 0; i < 10'000; ++i)
        center->add(after(1h, QString::number(i), u"a body of the usual length, more or less"_s));
    EXPECT_EQ(pending().size(), 10'000);
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
