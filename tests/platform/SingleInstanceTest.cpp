// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/platform/SingleInstanceTest.h"

#include "platform/SingleInstance.h"
#include "tests/platform/InstancePeers.h"
#include "tests/support/Printing.h"
#include "tests/support/WaitFor.h"

#include <QDir>

#include <chrono>
#include <memory>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

using enum SingleInstance::Outcome;

namespace {

const QString noAnswer = u"Tovarin is running, but does not answer."_s;
const QString badAnswer = u"Tovarin is running, but cannot be brought to the front."_s;

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
    const std::vector<std::pair<VariableTable, QString>> cases = {
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

TEST_F(SingleInstanceTest, IsOneInASessionWhateverTheData) {
    SingleInstance instance(variables(onBus()));
    ASSERT_EQ(instance.claim({}), first);
    Start start(onBus({{"XDG_DATA_HOME", home().toUtf8() + "/other"}}), home());
    ASSERT_EQ(start.outcome(), u"handed over"_s);
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

} // namespace tovarin
