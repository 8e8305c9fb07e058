// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/SingleInstance.h"

#include "tests/platform/PrivateBus.h"
#include "tests/support/Printing.h"
#include "tests/support/VariableTable.h"
#include "tests/support/WaitFor.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingReply>
#include <QDBusReply>
#include <QDBusVirtualObject>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <memory>
#include <optional>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

using enum SingleInstance::Outcome;
using Table = QMap<QByteArray, QByteArray>;

const QString name = u"app.tovarin.Tovarin"_s;
const QString path = u"/app/tovarin/Tovarin"_s;
const QString interface = u"org.freedesktop.Application"_s;

const QString withoutBus = u"Tovarin is already running, and without a session bus it cannot be "
                           "brought to the front."_s;
const QString otherSession = u"Tovarin is already running in another session of yours."_s;
const QString noAnswer = u"Tovarin is running, but does not answer."_s;
const QString badAnswer = u"Tovarin is running, but cannot be brought to the front."_s;

/// What an instance has told, as lines: "activated TOKEN", "open TOKEN URL URL".
class Listener {
public:
    explicit Listener(SingleInstance &instance) {
        QObject::connect(&instance, &SingleInstance::activated, &m_context,
                         [this](const QString &token) { told += u"activated "_s + token; });
        QObject::connect(&instance, &SingleInstance::openRequested, &m_context,
                         [this](const QList<QUrl> &files, const QString &token) {
                             opened = files;
                             told += u"open "_s + token;
                             for (const QUrl &file : files)
                                 told.last() += u' ' + file.toString(QUrl::FullyEncoded);
                         });
    }

    QStringList told;
    QList<QUrl> opened; ///< By the last call that opened any.

private:
    QObject m_context;
};

/// Another start of the program, in a process of its own.
class Start {
public:
    Start(const Table &table, const QString &folder, const QStringList &files = {}) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const auto *variable : {"DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR",
                                     "XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"})
            environment.remove(QString::fromLatin1(variable));
        environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
        for (const auto &[variable, value] : table.asKeyValueRange())
            environment.insert(QString::fromLatin1(variable), QString::fromUtf8(value));
        m_process.setProcessEnvironment(environment);
        m_process.setWorkingDirectory(folder);
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start(QString::fromUtf8(SINGLE_INSTANCE_PROBE), files);
        EXPECT_EQ(line(), u"ready"_s);
    }
    ~Start() {
        m_process.closeWriteChannel();
        EXPECT_TRUE(waitFor([this] { return m_process.state() == QProcess::NotRunning; }));
    }
    Start(const Start &) = delete;
    Start &operator=(const Start &) = delete;

    void go() { EXPECT_EQ(m_process.write("\n"), 1); }
    /// Empty when the process has ended instead.
    QString line() {
        EXPECT_TRUE(waitFor([this] {
            return m_process.canReadLine() || m_process.state() == QProcess::NotRunning;
        }));
        QString line = QString::fromUtf8(m_process.readLine());
        line.chop(1);
        return line;
    }
    QString outcome() {
        go();
        return line();
    }
    void stop() const { EXPECT_EQ(::kill(pid(), SIGSTOP), 0); }
    void resume() const { EXPECT_EQ(::kill(pid(), SIGCONT), 0); }
    void kill() const { EXPECT_EQ(::kill(pid(), SIGKILL), 0); }

private:
    pid_t pid() const { return static_cast<pid_t>(m_process.processId()); }

    QProcess m_process;
};

/// A program that calls an instance, or owns the name in its stead.
class Peer {
public:
    explicit Peer(const QByteArray &address)
        : bus(QDBusConnection::connectToBus(QString::fromLatin1(address), u"peer"_s)) {
        EXPECT_TRUE(bus.isConnected());
    }
    ~Peer() { leave(); }
    Peer(const Peer &) = delete;
    Peer &operator=(const Peer &) = delete;

    void leave() {
        bus = QDBusConnection(QString());
        QDBusConnection::disconnectFromBus(u"peer"_s);
    }

    QDBusConnectionInterface::RegisterServiceReply
    take(QDBusConnectionInterface::ServiceQueueOptions option) const {
        return bus.interface()
            ->registerService(name, option, QDBusConnectionInterface::AllowReplacement)
            .value();
    }
    bool isOwned() const { return bus.interface()->isServiceRegistered(name).value(); }
    QDBusPendingCall send(const QString &method, const QVariantList &arguments) const {
        QDBusMessage call = QDBusMessage::createMethodCall(name, path, interface, method);
        call.setArguments(arguments);
        return bus.asyncCall(call);
    }
    /// The name of the error that is the answer; empty for a good one.
    QString call(const QString &method, const QVariantList &arguments) const {
        const QDBusPendingCall call = send(method, arguments);
        EXPECT_TRUE(waitFor([&] { return call.isFinished(); }));
        return call.error().name();
    }

    QDBusConnection bus;
};

/// Owns the name, which it would give away, and has the application's object, and answers with an
/// error or not at all.
class OddOwner final : public QDBusVirtualObject {
public:
    OddOwner(Peer &peer, bool answers) : m_answers(answers) {
        EXPECT_TRUE(peer.bus.registerVirtualObject(path, this));
        EXPECT_EQ(peer.take(QDBusConnectionInterface::DontQueueService),
                  QDBusConnectionInterface::ServiceRegistered);
    }

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override {
        ++calls;
        arguments = message.arguments();
        if (m_answers)
            bus.send(message.createErrorReply(u"app.tovarin.Tovarin.Odd"_s, u"No"_s));
        return true;
    }

    int calls = 0;
    QVariantList arguments; ///< Of the last call.

private:
    const bool m_answers;
};

class SingleInstanceTest : public testing::Test {
protected:
    void SetUp() override { ASSERT_NE(bus.address(), ""); }

    QString home() const { return m_home.path(); }
    QString data() const { return m_home.filePath(u"data"_s); }
    Table table(const Table &more = {}) const {
        Table table{{"HOME", home().toUtf8()}, {"XDG_DATA_HOME", data().toUtf8()}};
        table.insert(more);
        return table;
    }
    Table onBus(const Table &more = {}) const {
        Table table = this->table({{"DBUS_SESSION_BUS_ADDRESS", bus.address()}});
        table.insert(more);
        return table;
    }
    static QVariantMap token(const QString &token) { return {{u"activation-token"_s, token}}; }

    PrivateBus bus;

private:
    const QTemporaryDir m_home;
};

} // namespace

TEST_F(SingleInstanceTest, GivesTheNameToTheFirst) {
    const Peer peer(bus.address());
    {
        SingleInstance instance(variables(onBus()));
        EXPECT_FALSE(peer.isOwned());
        EXPECT_EQ(instance.claim({}), first);
        EXPECT_EQ(instance.refusal(), QString());
        EXPECT_TRUE(peer.isOwned());
        EXPECT_EQ(peer.take(QDBusConnectionInterface::ReplaceExistingService),
                  QDBusConnectionInterface::ServiceNotRegistered);
    }
    EXPECT_TRUE(waitFor([&] { return !peer.isOwned(); }));
    SingleInstance next(variables(onBus()));
    EXPECT_EQ(next.claim({}), first);
}

TEST_F(SingleInstanceTest, LeavesTheFolderOfTheDataToTheStore) {
    SingleInstance instance(variables(onBus()));
    EXPECT_FALSE(QDir(data()).exists());
    EXPECT_EQ(instance.claim({}), first);
    EXPECT_EQ(QDir(data()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
              QStringList(u"Tovarin.lock"_s));
}

TEST_F(SingleInstanceTest, WaitsTwentyFiveSecondsAsARule) {
    EXPECT_EQ(SingleInstance::defaultPatience, std::chrono::seconds(25));
}

TEST_F(SingleInstanceTest, BringsTheFirstToTheFront) {
    SingleInstance instance(variables(onBus()));
    Listener listener(instance);
    ASSERT_EQ(instance.claim({}), first);
    instance.start();
    const std::vector<std::pair<Table, QString>> cases = {
        {{}, u"activated "_s},
        {{{"XDG_ACTIVATION_TOKEN", "token 账"}}, u"activated token 账"_s},
        {{{"DESKTOP_STARTUP_ID", "start_TIME1"}}, u"activated start_TIME1"_s},
        {{{"XDG_ACTIVATION_TOKEN", "token"}, {"DESKTOP_STARTUP_ID", "start_TIME1"}},
         u"activated token"_s},
    };
    for (const auto &[environment, told] : cases) {
        Start start(onBus(environment), home());
        ASSERT_EQ(start.outcome(), u"handed over"_s);
        EXPECT_TRUE(waitFor([&] { return !listener.told.isEmpty(); }));
        EXPECT_EQ(listener.told, QStringList(told));
        listener.told.clear();
    }
}

TEST_F(SingleInstanceTest, HandsFilesOver) {
    SingleInstance instance(variables(onBus()));
    Listener listener(instance);
    ASSERT_EQ(instance.claim({}), first);
    instance.start();
    Start start(onBus({{"XDG_ACTIVATION_TOKEN", "token"}}), home(),
                {u"/a b/账单 100%.png"_s, u"/%41#b?c&d;\n\"'.pdf"_s, u"here/bill.png"_s,
                 u"../up.png"_s, u"https://example.org/a%20b?c#d"_s, u"/twice"_s, u"/twice"_s});
    ASSERT_EQ(start.outcome(), u"handed over"_s);
    EXPECT_TRUE(waitFor([&] { return !listener.told.isEmpty(); }));
    const QString here = u"file://"_s + home();
    EXPECT_EQ(listener.told,
              QStringList(
                  QStringList({u"open token"_s, u"file:///a%20b/%E8%B4%A6%E5%8D%95%20100%25.png"_s,
                               u"file:///%2541%23b%3Fc&d;%0A%22'.pdf"_s, here + u"/here/bill.png"_s,
                               here + u"/../up.png"_s, u"https://example.org/a%20b?c#d"_s,
                               u"file:///twice"_s, u"file:///twice"_s})
                      .join(u' ')));
    EXPECT_EQ(listener.opened.value(0).toLocalFile(), u"/a b/账单 100%.png"_s);
    EXPECT_EQ(listener.opened.value(1).toLocalFile(), u"/%41#b?c&d;\n\"'.pdf"_s);
}

TEST_F(SingleInstanceTest, HandsNoMoreThanTenThousandFilesOver) {
    Peer peer(bus.address());
    OddOwner owner(peer, true);
    QStringList files;
    for (int i = 1; i <= 10001; ++i)
        files.append(u'/' + QString::number(i));
    Start start(onBus(), home(), files);
    EXPECT_EQ(start.outcome(), u"refused: "_s + badAnswer);
    const QStringList uris = owner.arguments.value(0).toStringList();
    EXPECT_EQ(uris.size(), 10000);
    EXPECT_EQ(uris.value(9999), u"file:///10000"_s);
}

TEST_F(SingleInstanceTest, LetsOneOfManyGoFirst) {
    for (int round = 0; round < 3; ++round) {
        std::vector<std::unique_ptr<Start>> starts;
        for (int i = 0; i < 8; ++i)
            starts.push_back(std::make_unique<Start>(onBus(), home()));
        for (const auto &start : starts)
            start->go();
        QStringList outcomes;
        for (const auto &start : starts)
            outcomes.append(start->line());
        ASSERT_EQ(outcomes.count(u"first"_s), 1) << outcomes.join(u", "_s).toStdString();
        ASSERT_EQ(outcomes.count(u"handed over"_s), 7) << outcomes.join(u", "_s).toStdString();
        const qsizetype one = outcomes.indexOf(u"first"_s);
        for (int i = 0; i < 7; ++i)
            EXPECT_EQ(starts[static_cast<std::size_t>(one)]->line(), u"activated "_s);
    }
}

TEST_F(SingleInstanceTest, LetsOneOfManyGoFirstWithoutABus) {
    std::vector<std::unique_ptr<Start>> starts;
    for (int i = 0; i < 8; ++i)
        starts.push_back(std::make_unique<Start>(table(), home()));
    for (const auto &start : starts)
        start->go();
    QStringList outcomes;
    for (const auto &start : starts)
        outcomes.append(start->line());
    EXPECT_EQ(outcomes.count(u"first"_s), 1) << outcomes.join(u", "_s).toStdString();
    EXPECT_EQ(outcomes.count(u"refused: "_s + withoutBus), 7)
        << outcomes.join(u", "_s).toStdString();
}

TEST_F(SingleInstanceTest, GivesUpOnOneThatHangs) {
    SingleInstance instance(variables(onBus()));
    Listener listener(instance);
    ASSERT_EQ(instance.claim({}), first);
    instance.start();
    // This thread cannot answer while it waits.
    SingleInstance second(variables(onBus()), std::chrono::milliseconds(100));
    EXPECT_EQ(second.claim({QUrl::fromLocalFile(u"/a"_s)}), refused);
    EXPECT_EQ(second.refusal(), noAnswer);
    // It is told nevertheless, when it wakes, and once.
    const Peer peer(bus.address());
    EXPECT_EQ(peer.call(u"Activate"_s, {token(u"last"_s)}), QString());
    EXPECT_TRUE(waitFor([&] { return listener.told.contains(u"activated last"_s); }));
    EXPECT_EQ(listener.told, QStringList({u"open  file:///a"_s, u"activated last"_s}));
}

TEST_F(SingleInstanceTest, BringsOneToTheFrontThatWasStopped) {
    Start stopped(onBus(), home());
    ASSERT_EQ(stopped.outcome(), u"first"_s);
    stopped.stop();
    SingleInstance second(variables(onBus({{"XDG_ACTIVATION_TOKEN", "token"}})),
                          std::chrono::milliseconds(100));
    EXPECT_EQ(second.claim({}), refused);
    EXPECT_EQ(second.refusal(), noAnswer);
    stopped.resume();
    EXPECT_EQ(stopped.line(), u"activated token"_s);
}

TEST_F(SingleInstanceTest, GivesUpOnOneThatRefusesTheCall) {
    Peer peer(bus.address());
    OddOwner owner(peer, true);
    Start start(onBus(), home());
    EXPECT_EQ(start.outcome(), u"refused: "_s + badAnswer);
    EXPECT_EQ(owner.calls, 1);
}

TEST_F(SingleInstanceTest, TakesThePlaceOfOneThatGoesAwayDuringTheCall) {
    Peer peer(bus.address());
    OddOwner owner(peer, false);
    Start start(onBus(), home());
    start.go();
    ASSERT_TRUE(waitFor([&] { return owner.calls > 0; }));
    peer.leave();
    EXPECT_EQ(start.line(), u"first"_s);
}

TEST_F(SingleInstanceTest, TakesThePlaceOfOneThatIsKilled) {
    for (int round = 0; round < 5; ++round) {
        Start killed(onBus(), home());
        ASSERT_EQ(killed.outcome(), u"first"_s);
        killed.stop();
        Start start(onBus(), home());
        start.go();
        killed.kill();
        EXPECT_EQ(start.line(), u"first"_s);
    }
}

TEST_F(SingleInstanceTest, WaitsAMomentForTheLockOfADyingOwner) {
    const Peer peer(bus.address());
    ASSERT_TRUE(QDir().mkpath(data()));
    FileLock lock(data() + u"/Tovarin.lock"_s);
    ASSERT_EQ(lock.take(), FileLock::Result::taken);
    Start start(onBus(), home());
    start.go();
    // The one that has the name then lacks the lock alone.
    ASSERT_TRUE(waitFor([&] { return peer.isOwned(); }));
    lock.release();
    EXPECT_EQ(start.line(), u"first"_s);
}

TEST_F(SingleInstanceTest, AnswersTheCallsThatItCannotTakeAnyMoreWithErrors) {
    const Peer peer(bus.address());
    auto instance = std::make_unique<SingleInstance>(variables(onBus()));
    ASSERT_EQ(instance->claim({}), first);
    instance->start();
    QDBusPendingCall call = peer.send(u"Activate"_s, {QVariantMap()});
    // Once this one is answered, which takes no event loop, the other has arrived as well.
    const QDBusMessage ping =
        QDBusMessage::createMethodCall(name, path, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s);
    ASSERT_EQ(peer.bus.call(ping).type(), QDBusMessage::ReplyMessage);
    instance.reset();
    // The caller that asks at once who is there now is not told of the old one.
    call.waitForFinished();
    EXPECT_FALSE(peer.isOwned());
    EXPECT_TRUE(call.isError());
}

TEST_F(SingleInstanceTest, KnowsTheRunningOneWithoutABusByItsLock) {
    const QList<Table> noBus = {{},
                                {{"DBUS_SESSION_BUS_ADDRESS", "unix:path=/no/such/socket"}},
                                {{"DBUS_SESSION_BUS_ADDRESS", "nonsense"}},
                                {{"XDG_RUNTIME_DIR", home().toUtf8()}}};
    for (const Table &variant : noBus) {
        std::optional<SingleInstance> instance(std::in_place, variables(table(variant)));
        EXPECT_EQ(instance->claim({}), first);
        SingleInstance second(variables(table(variant)));
        EXPECT_EQ(second.claim({QUrl::fromLocalFile(u"/a"_s)}), refused);
        EXPECT_EQ(second.refusal(), withoutBus);
        instance.reset();
        SingleInstance third(variables(table(variant)));
        EXPECT_EQ(third.claim({}), first);
    }
}

TEST_F(SingleInstanceTest, FindsTheLockFreeAfterACrash) {
    Start start(table(), home());
    ASSERT_EQ(start.outcome(), u"first"_s);
    {
        SingleInstance second(variables(table()));
        EXPECT_EQ(second.claim({}), refused);
    }
    start.kill();
    EXPECT_EQ(start.line(), QString());
    SingleInstance third(variables(table()));
    EXPECT_EQ(third.claim({}), first);
}

TEST_F(SingleInstanceTest, LeavesTheDataToAnotherSession) {
    const PrivateBus otherBus;
    ASSERT_NE(otherBus.address(), "");
    const Table there = table({{"DBUS_SESSION_BUS_ADDRESS", otherBus.address()}});
    const Peer peer(otherBus.address());
    {
        SingleInstance instance(variables(onBus()));
        ASSERT_EQ(instance.claim({}), first);
        SingleInstance second(variables(there), std::chrono::milliseconds(100));
        EXPECT_EQ(second.claim({}), refused);
        EXPECT_EQ(second.refusal(), otherSession);
        EXPECT_TRUE(waitFor([&] { return !peer.isOwned(); }));
    }
    SingleInstance third(variables(there));
    EXPECT_EQ(third.claim({}), first);
}

TEST_F(SingleInstanceTest, LeavesTheDataToASessionWithoutABus) {
    SingleInstance instance(variables(table()));
    ASSERT_EQ(instance.claim({}), first);
    SingleInstance second(variables(onBus()), std::chrono::milliseconds(100));
    EXPECT_EQ(second.claim({}), refused);
    EXPECT_EQ(second.refusal(), otherSession);
}

TEST_F(SingleInstanceTest, IsOneInASessionWhateverTheData) {
    SingleInstance instance(variables(onBus()));
    ASSERT_EQ(instance.claim({}), first);
    Start start(onBus({{"XDG_DATA_HOME", home().toUtf8() + "/other"}}), home());
    ASSERT_EQ(start.outcome(), u"handed over"_s);
}

TEST_F(SingleInstanceTest, GoesOnWhereNoLockCanBe) {
    QFile file(home() + u"/file"_s);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const Table nowhere = table({{"XDG_DATA_HOME", home().toUtf8() + "/file/data"}});
    SingleInstance instance(variables(nowhere));
    EXPECT_EQ(instance.claim({}), first);
    SingleInstance second(variables(nowhere));
    EXPECT_EQ(second.claim({}), first);
}

TEST_F(SingleInstanceTest, FindsTheBusInTheRuntimeFolder) {
    const QString folder = home() + u"/run ~%,"_s;
    ASSERT_TRUE(QDir().mkpath(folder));
    const PrivateBus here(u"unix:path="_s + home() + u"/run%20%7e%25%2c/bus"_s);
    ASSERT_NE(here.address(), "");
    const Peer peer(here.address());
    SingleInstance instance(variables(table({{"XDG_RUNTIME_DIR", folder.toUtf8()}})));
    EXPECT_EQ(instance.claim({}), first);
    EXPECT_TRUE(peer.isOwned());
}

TEST_F(SingleInstanceTest, PrefersTheNamedBusToThatOfTheRuntimeFolder) {
    const PrivateBus here(u"unix:path="_s + home() + u"/bus"_s);
    ASSERT_NE(here.address(), "");
    const Peer peer(bus.address());
    SingleInstance instance(variables(onBus({{"XDG_RUNTIME_DIR", home().toUtf8()}})));
    EXPECT_EQ(instance.claim({}), first);
    EXPECT_TRUE(peer.isOwned());
}

TEST_F(SingleInstanceTest, KeepsTheCallsThatComeBeforeItsStart) {
    const Peer peer(bus.address());
    SingleInstance instance(variables(onBus()));
    Listener listener(instance);
    ASSERT_EQ(instance.claim({}), first);
    EXPECT_EQ(peer.call(u"Activate"_s, {token(u"1"_s)}), QString());
    EXPECT_EQ(peer.call(u"Open"_s, {QStringList({u"file:///a"_s, u"file:///b"_s}), token(u"2"_s)}),
              QString());
    EXPECT_EQ(peer.call(u"Activate"_s, {token(u"3"_s)}), QString());
    EXPECT_EQ(listener.told, QStringList());
    instance.start();
    EXPECT_EQ(listener.told, QStringList());
    EXPECT_TRUE(waitFor([&] { return listener.told.size() >= 3; }));
    EXPECT_EQ(peer.call(u"Activate"_s, {token(u"4"_s)}), QString());
    EXPECT_TRUE(waitFor([&] { return listener.told.size() >= 4; }));
    EXPECT_EQ(listener.told, QStringList({u"activated 1"_s, u"open 2 file:///a file:///b"_s,
                                          u"activated 3"_s, u"activated 4"_s}));
}

TEST_F(SingleInstanceTest, AnswersBeforeItsReceiverIsThrough) {
    const Peer peer(bus.address());
    SingleInstance instance(variables(onBus()));
    Listener listener(instance);
    ASSERT_EQ(instance.claim({}), first);
    instance.start();
    std::optional<QDBusPendingCall> call;
    bool isAnswered = false;
    QObject::connect(&instance, &SingleInstance::activated, &instance, [&](const QString &text) {
        if (text != u"1")
            return;
        // As a dialog does: it stays, and more arrives meanwhile.
        EXPECT_TRUE(waitFor([&] { return call->isFinished(); }));
        EXPECT_EQ(peer.call(u"Activate"_s, {token(u"2"_s)}), QString());
        EXPECT_TRUE(waitFor([&] { return listener.told.size() >= 2; }));
        isAnswered = true;
    });
    call = peer.send(u"Activate"_s, {token(u"1"_s)});
    EXPECT_TRUE(waitFor([&] { return isAnswered; }));
    EXPECT_FALSE(call->isError());
    EXPECT_EQ(listener.told, QStringList({u"activated 1"_s, u"activated 2"_s}));
}

TEST_F(SingleInstanceTest, TakesWhateverTheBusBrings) {
    const Peer peer(bus.address());
    SingleInstance instance(variables(onBus()));
    Listener listener(instance);
    ASSERT_EQ(instance.claim({}), first);
    instance.start();
    QStringList many;
    for (int i = 1; i <= 10001; ++i)
        many.append(u"file:///"_s + QString::number(i));
    const QVariantMap number{{u"activation-token"_s, 5}, {u"desktop-startup-id"_s, u"start"_s}};
    const QVariantMap empty{{u"activation-token"_s, QString()},
                            {u"desktop-startup-id"_s, u"start"_s}};
    const QVariantMap map{{u"activation-token"_s, QVariantMap{{u"a"_s, 1}}}};
    struct Case {
        QVariant uris;
        QVariant data;
        QString told;
    };
    const std::vector<Case> cases = {
        {QStringList(), token(u"t"_s), u"activated t"_s},
        {QStringList(), number, u"activated start"_s},
        {QStringList(), empty, u"activated start"_s},
        {QStringList(), map, u"activated "_s},
        {QStringList({QString(), u"http://[::"_s}), QVariantMap(), u"activated "_s},
        {QStringList({u"http://[::"_s, u"file:///a"_s, QString()}), QVariantMap(),
         u"open  file:///a"_s},
        {QStringList({u"https://example.org/"_s, u"file://host/a"_s, u"a b"_s, u"data:,x"_s}),
         QVariantMap(), u"open  https://example.org/ file://host/a a%20b data:,x"_s},
        {QStringList({u"file:///%FF%00"_s, u"file:///%zz"_s, u"file:///账单 1"_s}), QVariantMap(),
         u"open  file:///%FF%00 file:///%25zz file:///%E8%B4%A6%E5%8D%95%201"_s},
        {many, QVariantMap(), u"open  "_s + QStringList(many.first(10000)).join(u' ')},
    };
    for (const Case &odd : cases) {
        EXPECT_EQ(peer.call(u"Open"_s, {odd.uris, odd.data}), QString());
        EXPECT_TRUE(waitFor([&] { return !listener.told.isEmpty(); }));
        EXPECT_EQ(listener.told, QStringList(odd.told));
        listener.told.clear();
    }
}

TEST_F(SingleInstanceTest, DoesNothingForActionsAndUnknownCalls) {
    const Peer peer(bus.address());
    SingleInstance instance(variables(onBus()));
    Listener listener(instance);
    ASSERT_EQ(instance.claim({}), first);
    instance.start();
    const QString unknown = u"org.freedesktop.DBus.Error.UnknownMethod"_s;
    EXPECT_EQ(peer.call(u"ActivateAction"_s, {u"quit"_s, QVariantList({1, u"a"_s}), token(u"t"_s)}),
              QString());
    EXPECT_EQ(peer.call(u"ActivateAction"_s, {QString(), QVariantList(), QVariantMap()}),
              QString());
    EXPECT_EQ(peer.call(u"Quit"_s, {}), unknown);
    EXPECT_EQ(peer.call(u"Open"_s, {u"file:///a"_s, QVariantMap()}), unknown);
    EXPECT_EQ(peer.call(u"Activate"_s, {}), unknown);
    // What they had caused would have come before this.
    EXPECT_EQ(peer.call(u"Activate"_s, {token(u"last"_s)}), QString());
    EXPECT_TRUE(waitFor([&] { return !listener.told.isEmpty(); }));
    EXPECT_EQ(listener.told, QStringList(u"activated last"_s));
}

TEST_F(SingleInstanceTest, ShowsItsInterface) {
    const Peer peer(bus.address());
    SingleInstance instance(variables(onBus()));
    ASSERT_EQ(instance.claim({}), first);
    const QDBusPendingReply<QString> xml = peer.bus.asyncCall(QDBusMessage::createMethodCall(
        name, path, u"org.freedesktop.DBus.Introspectable"_s, u"Introspect"_s));
    ASSERT_TRUE(waitFor([&] { return xml.isFinished(); }));
    QStringList methods;
    QString current;
    QXmlStreamReader reader(xml.value());
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QXmlStreamAttributes attributes = reader.attributes();
        const auto value = [&](const QString &key) { return attributes.value(key).toString(); };
        if (reader.name() == u"interface")
            current = value(u"name"_s);
        else if (current != interface)
            continue;
        else if (reader.name() == u"method")
            methods.append(value(u"name"_s));
        else if (reader.name() == u"arg")
            methods.last() +=
                u", "_s + value(u"direction"_s) + u' ' + value(u"type"_s) + u' ' + value(u"name"_s);
        else if (reader.name() != u"annotation")
            methods.append(reader.name().toString());
    }
    EXPECT_FALSE(reader.hasError());
    EXPECT_EQ(methods, QStringList({u"Activate, in a{sv} platform_data"_s,
                                    u"Open, in as uris, in a{sv} platform_data"_s,
                                    u"ActivateAction, in s action_name, in av parameter, "
                                    "in a{sv} platform_data"_s}));
}

} // namespace tovarin
