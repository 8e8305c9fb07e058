// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/notifier/NotifierProgramTest.h"

#include "tests/support/NotificationPrinting.h"
#include "tests/support/Printing.h"
#include "tests/support/WaitFor.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>

#include <algorithm>
#include <csignal>
#include <optional>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace tovarin {

using NotificationMessages::service;

NotificationRequest after(std::chrono::milliseconds interval, const QString &identifier,
                          const QString &body) {
    return {.identifier = identifier,
            .title = u"订阅即将续费"_s,
            .body = body,
            .presentation =
                PresentationOption::banner | PresentationOption::list | PresentationOption::sound,
            .trigger = TimeIntervalTrigger{interval}};
}

void NotifierProgramTest::SetUp() {
    ASSERT_NE(bus.address(), "");
    connection = std::make_unique<QDBusConnection>(
        QDBusConnection::connectToBus(QString::fromLatin1(bus.address()), u"center"_s));
    desktop = std::make_unique<FakeDesktop>(bus.address());
    open();
}

void NotifierProgramTest::TearDown() {
    center.reset();
    if (isRunning())
        kill();
    desktop.reset();
    connection.reset();
    QDBusConnection::disconnectFromBus(u"center"_s);
}

void NotifierProgramTest::open() {
    center = std::make_unique<SessionNotificationCenter>(u"app.tovarin.Tovarin"_s, *connection,
                                                         QString::fromUtf8(TOVARIN_NOTIFIER));
}

bool NotifierProgramTest::isRunning() const {
    return connection->interface()->isServiceRegistered(service);
}
bool NotifierProgramTest::waitForEnd() const {
    return waitFor([this] { return !isRunning(); });
}

pid_t NotifierProgramTest::pid() const {
    return static_cast<pid_t>(connection->interface()->servicePid(service).value());
}

void NotifierProgramTest::kill() {
    center.reset();
    ASSERT_EQ(::kill(pid(), SIGKILL), 0);
    ASSERT_TRUE(waitForEnd());
}

bool NotifierProgramTest::waitForPosts(qsizetype count) const {
    return waitFor([&] { return desktop->posts.size() >= count; });
}

QStringList NotifierProgramTest::pending() const {
    std::optional<QStringList> told;
    center->pending([&](const QList<NotificationRequest> &requests) {
        told = QStringList();
        for (const NotificationRequest &request : requests)
            told->append(request.identifier);
    });
    EXPECT_TRUE(waitFor([&] { return told.has_value(); }));
    return told.value_or(QStringList(u"no answer"_s));
}

bool NotifierProgramTest::listensTo(const QString &signal) const {
    const QDBusMessage reply = connection->call(QDBusMessage::createMethodCall(
        u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
        u"org.freedesktop.DBus.Debug.Stats"_s, u"GetAllMatchRules"_s));
    EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage);
    const auto rules =
        qdbus_cast<QMap<QString, QStringList>>(reply.arguments().value(0).value<QDBusArgument>());
    const QString owner = connection->interface()->serviceOwner(service);
    EXPECT_TRUE(rules.contains(owner));
    return std::ranges::any_of(rules[owner],
                               [&](const QString &rule) { return rule.contains(signal); });
}

QString NotifierProgramTest::call(const QString &method, const QVariantList &arguments) const {
    QDBusMessage message = QDBusMessage::createMethodCall(service, NotificationMessages::objectPath,
                                                          NotificationMessages::interface, method);
    message.setArguments(arguments);
    const QDBusPendingCall call = connection->asyncCall(message);
    EXPECT_TRUE(waitFor([&] { return call.isFinished(); }));
    return call.error().name();
}

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
    desktop = std::make_unique<FakeDesktop>(bus.address());
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

} // namespace tovarin
