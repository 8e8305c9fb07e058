// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/SessionNotificationCenter.h"

#include "tests/platform/PrivateBus.h"
#include "tests/support/NotificationPrinting.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"
#include "tests/support/WaitFor.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

using NotificationMessages::Change;
using NotificationMessages::RemoveAllPending;
using NotificationMessages::RemovePending;

const QString bundle = u"app.tovarin.Tovarin"_s;

NotificationRequest request(const QString &identifier) {
    return {.identifier = identifier,
            .title = u"订阅即将续费"_s,
            .body = u"b"_s,
            .presentation = PresentationOption::banner,
            .trigger = CalendarTrigger{civilDay("2025-06-09"), 10h}};
}

/// Answers in the notifier's stead, on a connection of its own.
class Stand final : public QDBusVirtualObject {
public:
    explicit Stand(const QByteArray &address)
        : bus(QDBusConnection::connectToBus(QString::fromLatin1(address), u"stand"_s)) {
        EXPECT_TRUE(bus.registerVirtualObject(NotificationMessages::objectPath, this));
    }
    ~Stand() override {
        bus = QDBusConnection(QString());
        QDBusConnection::disconnectFromBus(u"stand"_s);
    }
    Stand(const Stand &) = delete;
    Stand &operator=(const Stand &) = delete;

    void appear() { EXPECT_TRUE(bus.registerService(NotificationMessages::service)); }
    void leave() { EXPECT_TRUE(bus.unregisterService(NotificationMessages::service)); }

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &) override {
        EXPECT_EQ(message.interface(), NotificationMessages::interface);
        if (message.member() == u"Pending") {
            calls.append(u"Pending"_s);
            bus.send(message.createReply(answerToPending));
            return true;
        }
        EXPECT_EQ(message.member(), u"Change"_s);
        EXPECT_EQ(message.signature(), u"s"_s);
        calls.append(u"Change"_s);
        const auto decoded =
            NotificationMessages::decodeChanges(message.arguments().first().toString().toUtf8());
        EXPECT_TRUE(decoded);
        changes.append(decoded.value_or(QList<Change>()));
        if (!error.isEmpty())
            bus.send(message.createErrorReply(error, u"No"_s));
        else if (holdsAnswers)
            held.append(message);
        else
            bus.send(message.createReply(pendingCount));
        return true;
    }
    void answer() { bus.send(held.takeFirst().createReply(pendingCount)); }

    QDBusConnection bus;
    QStringList calls;
    QList<QList<Change>> changes; ///< A list for each call.
    QList<QDBusMessage> held;
    QString answerToPending = u"[]"_s;
    QString error;
    bool holdsAnswers = false;
    uint pendingCount = 0;
};

class SessionNotificationCenterTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_NE(m_bus.address(), "");
        m_own = std::make_unique<QDBusConnection>(
            QDBusConnection::connectToBus(QString::fromLatin1(m_bus.address()), u"center"_s));
        m_stand = std::make_unique<Stand>(m_bus.address());
        // In the notifier's place, a program that only leaves a line for each start.
        QFile program(m_disk.filePath(u"program"_s));
        ASSERT_TRUE(program.open(QIODevice::WriteOnly));
        program.write("#!/bin/sh\necho started >> '" + QFile::encodeName(starts()) + "'\n");
        program.setPermissions(QFile::ReadOwner | QFile::ExeOwner | QFile::WriteOwner);
    }
    void TearDown() override {
        m_own.reset();
        QDBusConnection::disconnectFromBus(u"center"_s);
    }

    std::unique_ptr<SessionNotificationCenter> center(const QString &program = {}) const {
        return std::make_unique<SessionNotificationCenter>(bundle, *m_own, program);
    }
    QString program() const { return m_disk.filePath(u"program"_s); }
    QString starts() const { return m_disk.filePath(u"starts"_s); }
    int startCount() const {
        QFile file(starts());
        return file.open(QIODevice::ReadOnly) ? static_cast<int>(file.readAll().count('\n')) : 0;
    }
    bool waitForCalls(qsizetype count) const {
        return waitFor([&] { return m_stand->calls.size() >= count; });
    }
    /// Everything that was sent until now has been dealt with.
    void ping(SessionNotificationCenter &center) const {
        bool isAnswered = false;
        center.pending([&](const QList<NotificationRequest> &) { isAnswered = true; });
        EXPECT_TRUE(waitFor([&] { return isAnswered; }));
    }

    PrivateBus m_bus;
    QTemporaryDir m_disk;
    std::unique_ptr<QDBusConnection> m_own;
    std::unique_ptr<Stand> m_stand;
};

} // namespace

TEST_F(SessionNotificationCenterTest, SendsWhatBelongsTogetherAsOne) {
    m_stand->appear();
    const auto c = center();
    c->removePending({});
    c->add(request(u"forgotten"_s));
    c->removeAllPending();
    c->add(request(u"a"_s));
    c->removePending({u"x"_s, u"y"_s});
    c->add(request(u"b"_s));
    EXPECT_EQ(m_stand->calls.size(), 0) << "nothing waits";
    ping(*c);
    EXPECT_EQ(m_stand->calls, (QStringList{u"Change"_s, u"Pending"_s}));
    EXPECT_EQ(m_stand->changes.first(),
              (QList<Change>{RemoveAllPending(), request(u"a"_s), RemovePending{{u"x"_s, u"y"_s}},
                             request(u"b"_s)}));
}

TEST_F(SessionNotificationCenterTest, SendsOneAfterTheOther) {
    m_stand->appear();
    m_stand->holdsAnswers = true;
    const auto c = center();
    c->add(request(u"a"_s));
    ASSERT_TRUE(waitForCalls(1));
    c->add(request(u"b"_s));
    settle();
    c->add(request(u"c"_s));
    settle();
    EXPECT_EQ(m_stand->calls.size(), 1);
    m_stand->answer();
    ASSERT_TRUE(waitForCalls(2));
    EXPECT_EQ(m_stand->changes[1], (QList<Change>{request(u"b"_s), request(u"c"_s)}));
    m_stand->answer();
    ping(*c);
}

TEST_F(SessionNotificationCenterTest, TellsWhatIsPending) {
    m_stand->appear();
    m_stand->answerToPending =
        QString::fromUtf8(NotificationMessages::encodeRequests({request(u"a"_s), request(u"b"_s)}));
    const auto c = center();
    QList<NotificationRequest> told;
    c->pending([&](const QList<NotificationRequest> &requests) { told = requests; });
    EXPECT_EQ(told.size(), 0) << "only from the event loop";
    EXPECT_TRUE(waitFor([&] { return !told.isEmpty(); }));
    EXPECT_EQ(told, (QList{request(u"a"_s), request(u"b"_s)}));
    for (const char *odd : {"", "{}", "[1]"}) {
        m_stand->answerToPending = QString::fromLatin1(odd);
        bool isEmpty = false;
        c->pending(
            [&](const QList<NotificationRequest> &requests) { isEmpty = requests.isEmpty(); });
        EXPECT_TRUE(waitFor([&] { return isEmpty; })) << odd;
    }
}

TEST_F(SessionNotificationCenterTest, GrantsLeaveWhereThereIsABus) {
    const AuthorizationOptions all =
        AuthorizationOption::alert | AuthorizationOption::sound | AuthorizationOption::badge;
    const QDBusConnection none{QString()};
    SessionNotificationCenter withoutBus(bundle, none, {});
    SessionNotificationCenter withoutBundle(QString(), *m_own, {});
    const auto c = center();
    QStringList answers;
    const auto note = [&](const QString &who) {
        return [&answers, who](bool granted) {
            answers.append(who + (granted ? u" yes"_s : u" no"_s));
        };
    };
    c->requestAuthorization(all, note(u"center"_s));
    withoutBus.requestAuthorization(all, note(u"no bus"_s));
    withoutBundle.requestAuthorization(all, note(u"no bundle"_s));
    EXPECT_EQ(answers, QStringList()) << "only from the event loop";
    settle();
    EXPECT_EQ(answers, (QStringList{u"center yes"_s, u"no bus no"_s, u"no bundle no"_s}));
}

TEST_F(SessionNotificationCenterTest, DropsEverythingWithoutBusOrBundle) {
    m_stand->appear();
    const QDBusConnection none{QString()};
    SessionNotificationCenter withoutBus(bundle, none, program());
    SessionNotificationCenter withoutBundle(QString(), *m_own, program());
    EXPECT_EQ(withoutBus.bundleIdentifier(), bundle);
    EXPECT_EQ(withoutBundle.bundleIdentifier(), QString());
    for (SessionNotificationCenter *const c : {&withoutBus, &withoutBundle}) {
        c->removeAllPending();
        c->removePending({u"a"_s});
        c->add(request(u"a"_s));
        ping(*c);
    }
    ping(*center());
    EXPECT_EQ(m_stand->calls, QStringList(u"Pending"_s)) << "the last one's";
    EXPECT_EQ(startCount(), 0);
}

TEST_F(SessionNotificationCenterTest, DropsRequestsThatAreNotValid) {
    m_stand->appear();
    const auto c = center();
    c->add(request(QString()));
    c->add(request(u"a"_s));
    ping(*c);
    EXPECT_EQ(m_stand->changes, QList<QList<Change>>{QList<Change>{request(u"a"_s)}});
}

TEST_F(SessionNotificationCenterTest, ShortensTextsThatAreTooLong) {
    m_stand->appear();
    const auto c = center();
    NotificationRequest longest = request(u"a"_s);
    longest.title = QString(65'536, u't');
    longest.body = QString(65'534, u'b') + u"😀"_s;
    NotificationRequest longer = longest;
    longer.title += u't';
    longer.body.prepend(u'b');
    c->add(longest);
    c->add(longer);
    ping(*c);
    NotificationRequest shortened = longest;
    shortened.body = QString(65'535, u'b');
    EXPECT_TRUE(m_stand->changes == QList<QList<Change>>{(QList<Change>{longest, shortened})});
}

TEST_F(SessionNotificationCenterTest, SendsWhatIsTooLongForOneMessageInSeveral) {
    m_stand->appear();
    QList<Change> changes{RemoveAllPending()};
    for (int i = 0; i < 300; ++i) {
        NotificationRequest each = request(QString::number(i));
        each.body = QString(60'000, u'b');
        changes.append(each);
    }
    const auto c = center();
    c->removeAllPending();
    for (qsizetype i = 1; i < changes.size(); ++i)
        c->add(std::get<NotificationRequest>(changes[i]));
    ping(*c);
    ASSERT_EQ(m_stand->changes.size(), 2);
    // Too long to be printed.
    EXPECT_TRUE(m_stand->changes[0] + m_stand->changes[1] == changes);
}

TEST_F(SessionNotificationCenterTest, StartsTheNotifierAndKeepsEverythingForIt) {
    const auto c = center(program());
    c->add(request(u"a"_s));
    EXPECT_TRUE(waitFor([this] { return startCount() == 1; }));
    c->add(request(u"b"_s));
    settle();
    EXPECT_EQ(m_stand->calls.size(), 0);
    m_stand->appear();
    ASSERT_TRUE(waitForCalls(1));
    EXPECT_EQ(m_stand->changes.first(), (QList<Change>{request(u"a"_s), request(u"b"_s)}));
    ping(*c);
    EXPECT_EQ(startCount(), 1);
}

TEST_F(SessionNotificationCenterTest, KeepsOnlyWhatCounts) {
    const auto c = center(program());
    c->add(request(u"a"_s));
    EXPECT_TRUE(waitFor([this] { return startCount() == 1; }));
    c->add(request(u"b"_s));
    c->removeAllPending();
    c->add(request(u"c"_s));
    m_stand->appear();
    ASSERT_TRUE(waitForCalls(1));
    EXPECT_EQ(m_stand->changes.first(), (QList<Change>{RemoveAllPending(), request(u"c"_s)}));
}

TEST_F(SessionNotificationCenterTest, SendsAgainWhatADyingNotifierDidNotAnswer) {
    m_stand->appear();
    m_stand->holdsAnswers = true;
    const auto c = center(program());
    c->add(request(u"a"_s));
    ASSERT_TRUE(waitForCalls(1));
    m_stand = nullptr;
    EXPECT_TRUE(waitFor([this] { return startCount() == 1; }));
    m_stand = std::make_unique<Stand>(m_bus.address());
    m_stand->appear();
    ASSERT_TRUE(waitForCalls(1));
    EXPECT_EQ(m_stand->changes.first(), QList<Change>{request(u"a"_s)});
}

TEST_F(SessionNotificationCenterTest, DoesNotRepeatWhatIsRefused) {
    m_stand->appear();
    m_stand->error = u"org.freedesktop.DBus.Error.InvalidArgs"_s;
    const auto c = center(program());
    c->add(request(u"a"_s));
    ASSERT_TRUE(waitForCalls(1));
    ping(*c);
    m_stand->error.clear();
    c->add(request(u"b"_s));
    ping(*c);
    EXPECT_EQ(m_stand->changes, (QList<QList<Change>>{QList<Change>{request(u"a"_s)},
                                                      QList<Change>{request(u"b"_s)}}));
    EXPECT_EQ(startCount(), 0);
}

TEST_F(SessionNotificationCenterTest, StartsADeadNotifierAgainWhileSomethingIsPending) {
    m_stand->appear();
    m_stand->pendingCount = 2;
    const auto c = center(program());
    c->add(request(u"a"_s));
    ping(*c);
    m_stand->leave();
    EXPECT_TRUE(waitFor([this] { return startCount() == 1; }));
    // Once; it may be dying again and again.
    m_stand->appear();
    ping(*c);
    m_stand->leave();
    m_stand->appear();
    ping(*c);
    EXPECT_EQ(startCount(), 1);

    m_stand->pendingCount = 0;
    c->add(request(u"b"_s));
    ping(*c);
    m_stand->leave();
    m_stand->appear();
    ping(*c);
    EXPECT_EQ(startCount(), 1) << "it had nothing to wait for";
}

TEST_F(SessionNotificationCenterTest, AnswersWhereThereIsNoNotifierToBeHad) {
    for (const QString &path : {QString(), m_disk.filePath(u"none"_s)}) {
        const auto c = center(path);
        QElapsedTimer time;
        time.start();
        ping(*c);
        EXPECT_LT(time.elapsed(), 9000);
    }
}

TEST_F(SessionNotificationCenterTest, PartsAtOnceWithNothingToTell) {
    QElapsedTimer time;
    time.start();
    m_stand->appear();
    auto c = center(program());
    c->add(request(u"a"_s));
    ping(*c);
    c.reset();
    c = center();
    c->add(request(u"b"_s));
    m_stand->leave();
    c.reset();
    EXPECT_LT(time.elapsed(), SessionNotificationCenter::parting.count())
        << "nobody is there, and nobody can be started";
    EXPECT_EQ(startCount(), 0);
}

TEST_F(SessionNotificationCenterTest, WaitsAtPartingForSomeTimeOnly) {
    auto c = center(program());
    c->add(request(u"a"_s));
    QElapsedTimer time;
    time.start();
    c.reset();
    EXPECT_GE(time.elapsed(), SessionNotificationCenter::parting.count());
    EXPECT_LT(time.elapsed(), 20000);
    EXPECT_EQ(startCount(), 1);
}

TEST_F(SessionNotificationCenterTest, FindsTheNotifierBesideWhereInstalledAndInTheBuildTree) {
    const QString bin = m_disk.filePath(u"bin"_s);
    EXPECT_EQ(SessionNotificationCenter::notifierProgram(bin), QString());
    for (const QString &folder : {u"notifier"_s, u"libexec/tovarin"_s, u"bin"_s}) {
        ASSERT_TRUE(QDir(m_disk.path()).mkpath(folder));
        const QString path = m_disk.filePath(folder + u"/tovarin-notifier"_s);
        ASSERT_TRUE(QFile::copy(program(), path));
        EXPECT_EQ(SessionNotificationCenter::notifierProgram(bin), path);
    }
}

} // namespace tovarin
