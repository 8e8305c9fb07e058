// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/WallTimer.h"

#include "tests/support/ManualClock.h"
#include "tests/support/Samples.h"
#include "tests/support/WaitFor.h"

#include <QTimer>

#include <gtest/gtest.h>

#include <sys/resource.h>

using namespace std::chrono_literals;

namespace tovarin {

namespace {

class WallTimerTest : public testing::Test {
protected:
    void countRings(const WallTimer &timer) {
        QObject::connect(&timer, &WallTimer::rang, [this] { ++m_rings; });
    }

    int m_rings = 0;
};

} // namespace

TEST_F(WallTimerTest, RingsWhenTheMomentComes) {
    const SystemClock clock;
    WallTimer timer(clock);
    countRings(timer);
    const Instant moment = clock.now() + 50ms;
    Instant rang;
    QObject::connect(&timer, &WallTimer::rang, [&] { rang = clock.now(); });
    timer.ringAt(moment);
    EXPECT_TRUE(waitFor([this] { return m_rings > 0; }));
    EXPECT_GE(rang, moment);
}

TEST_F(WallTimerTest, RingsOnceAndAtOnceForAMomentThatIsPast) {
    const SystemClock clock;
    for (const Instant moment :
         {clock.now(), clock.now() - 1ms, clock.now() - 1h, instant("1970-01-01T00:00:00Z"),
          instant("1969-12-31T23:59:59Z"), instant("0001-01-01T00:00:00Z")}) {
        WallTimer timer(clock);
        m_rings = 0;
        countRings(timer);
        timer.ringAt(moment);
        EXPECT_EQ(m_rings, 0) << "only from the event loop";
        EXPECT_TRUE(waitFor([this] { return m_rings > 0; }));
        settle();
        EXPECT_EQ(m_rings, 1);
    }
}

TEST_F(WallTimerTest, ForgetsTheMomentBefore) {
    const SystemClock clock;
    WallTimer timer(clock);
    countRings(timer);
    timer.ringAt(clock.now() - 1h);
    timer.ringAt(clock.now() + 24h);
    settle();
    EXPECT_EQ(m_rings, 0);
    timer.ringAt(clock.now());
    EXPECT_TRUE(waitFor([this] { return m_rings > 0; }));
}

TEST_F(WallTimerTest, DoesNotSpinWhereTheKernelHasAnotherTime) {
    const ManualClock clock(instant("2017-10-14T12:00:00Z"));
    WallTimer timer(clock);
    countRings(timer);
    timer.ringAt(instant("2017-10-15T03:00:00Z"));
    // Once to know what is missing, and once when the kernel calls too early.
    EXPECT_TRUE(waitFor([&] { return clock.readings() > 1; }));
    settle();
    EXPECT_EQ(m_rings, 0);
    EXPECT_LE(clock.readings(), 2);
}

TEST_F(WallTimerTest, GoesByTheGivenClockWhereTheKernelHasAnotherTime) {
    ManualClock clock(instant("2017-10-14T12:00:00Z"));
    WallTimer timer(clock);
    countRings(timer);
    timer.ringAt(clock.now() + 20ms);
    EXPECT_TRUE(waitFor([&] { return clock.readings() > 4; })) << "it asks again";
    EXPECT_EQ(m_rings, 0);
    clock.set(clock.now() + 20ms);
    EXPECT_TRUE(waitFor([this] { return m_rings > 0; }));
    settle();
    EXPECT_EQ(m_rings, 1);
}

TEST_F(WallTimerTest, RingsWithoutATimerFromTheKernel) {
    const SystemClock clock;
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &before), 0);
    const rlimit none{0, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    WallTimer timer(clock);
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &before), 0);
    countRings(timer);

    timer.ringAt(clock.now() + 24h);
    settle();
    EXPECT_EQ(m_rings, 0);
    const Instant moment = clock.now() + 50ms;
    timer.ringAt(moment);
    EXPECT_TRUE(waitFor([this] { return m_rings > 0; }));
    EXPECT_GE(clock.now(), moment);
    settle();
    EXPECT_EQ(m_rings, 1);
}

TEST_F(WallTimerTest, WakesNobodyWhileItWaits) {
    const SystemClock clock;
    WallTimer timer(clock);
    countRings(timer);
    QTimer limit;
    limit.start(10s);
    timer.ringAt(clock.now() + 1s);
    settle();
    rusage before{};
    rusage after{};
    getrusage(RUSAGE_THREAD, &before);
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    getrusage(RUSAGE_THREAD, &after);
    EXPECT_EQ(m_rings, 1) << "the first thing to wake";
    // To have a page of the program read from the disk is to wait, too.
    EXPECT_LE(after.ru_nvcsw - before.ru_nvcsw, 1 + after.ru_majflt - before.ru_majflt);
}

} // namespace tovarin
