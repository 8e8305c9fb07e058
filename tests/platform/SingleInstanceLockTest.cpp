// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// The lock beside the data, which is what there is without a bus or in another session.

#include "platform/FileLock.h"
#include "platform/SingleInstance.h"
#include "tests/platform/InstancePeers.h"
#include "tests/platform/SingleInstanceTest.h"
#include "tests/support/Printing.h"
#include "tests/support/WaitFor.h"

#include <QDir>
#include <QFile>

#include <chrono>
#include <memory>
#include <optional>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

using enum SingleInstance::Outcome;

namespace {

const QString withoutBus = u"Tovarin is already running, and without a session bus it cannot be "
                           "brought to the front."_s;
const QString otherSession = u"Tovarin is already running in another session of yours."_s;

} // namespace

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

TEST_F(SingleInstanceTest, KnowsTheRunningOneWithoutABusByItsLock) {
    const QList<VariableTable> noBus = {{},
                                        {{"DBUS_SESSION_BUS_ADDRESS", "unix:path=/no/such/socket"}},
                                        {{"DBUS_SESSION_BUS_ADDRESS", "nonsense"}},
                                        {{"XDG_RUNTIME_DIR", home().toUtf8()}}};
    for (const VariableTable &variant : noBus) {
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
    const VariableTable there = table({{"DBUS_SESSION_BUS_ADDRESS", otherBus.address()}});
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

TEST_F(SingleInstanceTest, GoesOnWhereNoLockCanBe) {
    QFile file(home() + u"/file"_s);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    const VariableTable nowhere = table({{"XDG_DATA_HOME", home().toUtf8() + "/file/data"}});
    SingleInstance instance(variables(nowhere));
    EXPECT_EQ(instance.claim({}), first);
    SingleInstance second(variables(nowhere));
    EXPECT_EQ(second.claim({}), first);
}

} // namespace tovarin
