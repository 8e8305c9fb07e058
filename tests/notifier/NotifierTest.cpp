// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "notifier/Notifier.h"

#include "tests/notifier/MachineTest.h"
#include "tests/support/NotificationPrinting.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

using Outcome = NotificationService::Outcome;

class NotifierTest : public MachineTest {
protected:
    int idleSignals() {
        int signalled = 0;
        const auto connection =
            QObject::connect(&m.notifier(), &Notifier::becameIdle, [&] { ++signalled; });
        m.look();
        QObject::disconnect(connection);
        return signalled;
    }
};

} // namespace

TEST_F(NotifierTest, PostsWhenTheMomentComes) {
    m.change({atTen("2025-06-09", u"a"_s)});
    EXPECT_EQ(m.pending(), a);
    m.set("2025-06-09T09:59:59Z");
    EXPECT_EQ(posted(), nothing);
    m.set(instant("2025-06-09T10:00:00Z") - 1ms);
    EXPECT_EQ(posted(), nothing);
    m.set("2025-06-09T10:00:00Z");
    EXPECT_EQ(posted(), a);
    EXPECT_EQ(m.pending(), nothing);
    m.set("2026-06-09T10:00:00Z");
    m.restart();
    EXPECT_EQ(posted(), nothing);
}

TEST_F(NotifierTest, WakesByItself) {
    const SystemClock clock;
    m.clock.set(clock.now());
    m.change({after(50ms, u"a"_s)});
    EXPECT_EQ(posted(), nothing);
    m.clock.set(clock.now() + 50ms);
    EXPECT_TRUE(waitFor([this] { return !m.service.posted.isEmpty(); }));
    settle();
    EXPECT_EQ(posted(), a);
}

TEST_F(NotifierTest, PostsAnIntervalAfterTheAdding) {
    m.change({after(3s, u"a"_s)});
    m.set(m.clock.now() + 2999ms);
    EXPECT_EQ(posted(), nothing);
    m.set(m.clock.now() + 1ms);
    EXPECT_EQ(posted(), a);
}

TEST_F(NotifierTest, PostsInTheOrderOfTheMoments) {
    m.change({atTen("2025-06-09", u"c"_s), atTen("2025-06-08", u"b"_s), after(3s, u"a"_s),
              atTen("2025-06-09", u"d"_s), atTen("2025-06-10", u"e"_s)});
    EXPECT_EQ(m.pending(), (QStringList{u"c"_s, u"b"_s, u"a"_s, u"d"_s, u"e"_s}));
    m.set("2025-06-09T18:00:00Z");
    EXPECT_EQ(posted(), (QStringList{u"a"_s, u"b"_s, u"c"_s, u"d"_s}));
    EXPECT_EQ(m.pending(), QStringList(u"e"_s));
}

TEST_F(NotifierTest, PostsAtOnceWhatIsAddedTooLate) {
    m.change({atTen("2025-06-01", u"a"_s)});
    EXPECT_EQ(posted(), a);
    EXPECT_EQ(m.pending(), nothing);
}

TEST_F(NotifierTest, HandsOverTheWholeRequest) {
    NotificationRequest seen;
    class Listener final : public NotificationService {
    public:
        explicit Listener(NotificationRequest &to) : NotificationService(nullptr), m_to(to) {}
        void prepare(std::function<void(Presence)> answer) override { answer(Presence::there); }
        void post(const NotificationRequest &request,
                  std::function<void(Outcome)> answer) override {
            m_to = request;
            answer(Outcome::shown);
        }
        bool isShowing() const override { return false; }

    private:
        NotificationRequest &m_to;
    } listener(seen);
    Notifier notifier(m.clock, m.zone, m.folder(), listener);
    const NotificationRequest request = atTen("2025-06-01", u"a"_s, u"body"_s);
    notifier.change({request});
    EXPECT_EQ(seen, request);
}

TEST_F(NotifierTest, TakesAPlanThatArrivesLateForTheOneThatCameDue) {
    m.change({atTen("2025-06-09", u"a"_s)});
    m.set("2025-06-09T10:00:00Z");
    EXPECT_EQ(posted(), a);
    // Made just before ten, in another language perhaps.
    const NotificationRequest again = atTen("2025-06-09", u"a"_s, u"again"_s);
    const NotificationMessages::RemoveAllPending removeAll;
    m.change({removeAll, again, atTen("2025-06-10", u"b"_s)});
    EXPECT_EQ(posted(), nothing);
    EXPECT_EQ(m.pending(), QStringList(u"b"_s));
    m.set("2025-06-09T10:01:00Z");
    m.change({removeAll, again});
    EXPECT_EQ(posted(), nothing);
    m.set(m.clock.now() + 1ms);
    m.change({again});
    EXPECT_EQ(posted(), QStringList(u"again"_s)) << "somebody wants it";
}

TEST_F(NotifierTest, TakesNoOtherPlanForTheOneThatCameDue) {
    m.change({atTen("2025-06-09", u"a"_s), after(1h, u"i"_s)});
    m.set("2025-06-09T10:00:00Z");
    EXPECT_EQ(posted(), (QStringList{u"i"_s, u"a"_s}));
    NotificationRequest earlier = atTen("2025-06-09", u"a"_s, u"earlier"_s);
    earlier.trigger = CalendarTrigger{civilDay("2025-06-09"), 10h - 1min};
    m.change({atTen("2025-06-09", u"b"_s), earlier});
    EXPECT_EQ(posted(), (QStringList{u"earlier"_s, u"b"_s}));
    const NotificationRequest again = atTen("2025-06-09", u"b"_s, u"again"_s);
    // A clock that was a little fast: ten comes twice, the notification does not.
    m.set(m.clock.now() - 1min);
    m.change({again});
    EXPECT_EQ(m.pending(), nothing);
    m.set(m.clock.now() - 1ms);
    m.change({again});
    EXPECT_EQ(m.pending(), QStringList(u"b"_s)) << "it was wrong, and ten is still to come";
    m.set("2025-06-09T10:00:00Z");
    EXPECT_EQ(posted(), QStringList(u"again"_s));
}

TEST_F(NotifierTest, TakesALatePlanForTheOneThatCameDueDuringSleep) {
    m.change({atTen("2025-06-09", u"a"_s)});
    m.set("2025-06-09T10:30:00Z");
    EXPECT_EQ(posted(), a);
    m.set("2025-06-09T10:30:10Z");
    m.change({atTen("2025-06-09", u"a"_s, u"again"_s)});
    EXPECT_EQ(posted(), nothing);
    EXPECT_EQ(m.pending(), nothing);
}

TEST_F(NotifierTest, ALatePlanReplacesWhatIsPending) {
    m.change({atTen("2025-06-09", u"a"_s)});
    m.set("2025-06-09T10:00:00Z");
    EXPECT_EQ(posted(), a);
    m.change({atTen("2025-07-09", u"a"_s), atTen("2025-06-09", u"a"_s)});
    EXPECT_EQ(m.pending(), nothing);
    EXPECT_EQ(posted(), nothing);
}

TEST_F(NotifierTest, ReplacesWhatHasTheSameIdentifier) {
    m.change({atTen("2025-06-09", u"a"_s, u"old"_s), atTen("2025-06-09", u"b"_s)});
    m.change({atTen("2025-06-10", u"a"_s, u"new"_s)});
    EXPECT_EQ(m.pending(), (QStringList{u"b"_s, u"a"_s}));
    m.set("2025-06-11T00:00:00Z");
    EXPECT_EQ(posted(), (QStringList{u"b"_s, u"new"_s}));
}

TEST_F(NotifierTest, RemovesWhatIsPending) {
    m.change(
        {atTen("2025-06-09", u"a"_s), atTen("2025-06-09", u"b"_s), atTen("2025-06-09", u"c"_s)});
    m.remove({});
    EXPECT_EQ(m.pending().size(), 3);
    m.remove({u"b"_s, u"no such"_s, u"c"_s});
    EXPECT_EQ(m.pending(), a);
    m.removeAll();
    EXPECT_EQ(m.pending(), nothing);
    m.change({atTen("2025-06-09", u"a"_s), NotificationMessages::RemoveAllPending(),
              atTen("2025-06-09", u"d"_s), NotificationMessages::RemovePending{{u"e"_s}},
              atTen("2025-06-09", u"e"_s)});
    m.restart();
    EXPECT_EQ(m.pending(), (QStringList{u"d"_s, u"e"_s}));
    m.set("2025-06-11T00:00:00Z");
    EXPECT_EQ(posted(), (QStringList{u"d"_s, u"e"_s}));
}

TEST_F(NotifierTest, CatchesUpOnceWithWhatItMissed) {
    m.change({atTen("2025-06-09", u"a"_s), after(3s, u"test"_s), atTen("2025-06-30", u"b"_s)});
    m.kill();
    m.clock.set(instant("2025-06-20T12:00:00Z"));
    m.start();
    EXPECT_EQ(posted(), (QStringList{u"test"_s, u"a"_s}));
    m.restart();
    EXPECT_EQ(posted(), nothing);
    EXPECT_EQ(m.pending(), QStringList(u"b"_s));
}

TEST_F(NotifierTest, FollowsTheClockForwardAndBack) {
    m.change({atTen("2025-06-09", u"a"_s), atTen("2025-06-20", u"b"_s)});
    m.set("2025-06-10T00:00:00Z");
    EXPECT_EQ(posted(), a);
    m.set("2025-06-01T00:00:00Z");
    m.set("2025-06-10T00:00:00Z");
    EXPECT_EQ(posted(), nothing) << "once";
    m.set("1970-01-01T00:00:00Z");
    EXPECT_EQ(m.pending(), QStringList(u"b"_s));
    m.set("2025-06-20T10:00:00Z");
    EXPECT_EQ(posted(), QStringList(u"b"_s));
}

TEST_F(NotifierTest, LetsNoIntervalTakeLongerForAClockSetBack) {
    m.change({after(3s, u"a"_s), after(1h, u"b"_s)});
    m.set(m.clock.now() - hours(24));
    m.set(m.clock.now() + 2999ms);
    EXPECT_EQ(posted(), nothing);
    m.set(m.clock.now() + 1ms);
    EXPECT_EQ(posted(), a);
    m.kill();
    m.clock.set(m.clock.now() - hours(24));
    m.start();
    m.set(m.clock.now() + 1h - 1ms);
    EXPECT_EQ(posted(), nothing);
    m.set(m.clock.now() + 1ms);
    EXPECT_EQ(posted(), QStringList(u"b"_s));
}

TEST_F(NotifierTest, FollowsTheUserIntoAnotherZone) {
    m.change({atTen("2025-06-09", u"a"_s), atTen("2025-06-10", u"b"_s)});
    m.travel("America/Los_Angeles");
    m.set("2025-06-09T16:59:59Z");
    EXPECT_EQ(posted(), nothing);
    m.set("2025-06-09T17:00:00Z");
    EXPECT_EQ(posted(), a);
    // It is ten there already.
    m.set("2025-06-10T02:00:00Z");
    EXPECT_EQ(posted(), nothing);
    m.travel("Asia/Shanghai");
    EXPECT_EQ(posted(), QStringList(u"b"_s));
    m.travel("America/Los_Angeles");
    EXPECT_EQ(posted(), nothing) << "once";
}

TEST_F(NotifierTest, ReadsTheZoneOfItsStart) {
    m.change({atTen("2025-06-09", u"a"_s)});
    m.kill();
    m.zone = UserZone(QTimeZone("Asia/Shanghai"));
    m.clock.set(instant("2025-06-09T01:59:59Z"));
    m.start();
    EXPECT_EQ(posted(), nothing);
    m.set("2025-06-09T02:00:00Z");
    EXPECT_EQ(posted(), a);
}

TEST_F(NotifierTest, PostsAtATimeThatTheClocksSkipOrShowTwice) {
    m.set("2011-12-01T00:00:00Z");
    m.travel("Pacific/Apia");
    m.change({atTen("2011-12-30", u"a"_s)});
    m.set("2011-12-30T19:59:59Z");
    EXPECT_EQ(posted(), nothing);
    m.set("2011-12-30T20:00:00Z");
    EXPECT_EQ(posted(), a);

    m.set("1969-09-01T00:00:00Z");
    m.travel("Pacific/Kwajalein");
    m.change({atTen("1969-09-30", u"b"_s)});
    m.set("1969-09-29T22:59:59Z");
    EXPECT_EQ(posted(), nothing);
    m.set("1969-09-29T23:00:00Z");
    EXPECT_EQ(posted(), QStringList(u"b"_s));
    m.set("1969-09-30T22:00:00Z");
    EXPECT_EQ(posted(), nothing) << "ten again, the same day";
}

TEST_F(NotifierTest, DoesNotCallBackWhatIsDue) {
    m.service.isThere = false;
    m.change({atTen("2025-06-09", u"a"_s)});
    m.clock.set(instant("2025-06-09T10:00:00Z"));
    m.removeAll();
    EXPECT_EQ(m.pending(), nothing);
    m.remove(a);
    m.restart();
    m.set("2025-06-08T10:00:00Z");
    m.removeAll();
    m.service.appear();
    settle();
    EXPECT_EQ(posted(), a);
}

TEST_F(NotifierTest, ShowsTheLatestOfEachIdentifier) {
    m.service.isThere = false;
    for (const char *day : {"2025-06-02", "2025-06-03", "2025-06-04"}) {
        m.change({atTen(day, u"a"_s, QString::fromLatin1(day)), atTen("2025-06-02", u"b"_s)});
        m.set("2025-06-04T12:00:00Z");
    }
    m.change({atTen("2025-06-09", u"a"_s, u"pending"_s)});
    m.service.appear();
    settle();
    EXPECT_EQ(posted(), (QStringList{u"b"_s, u"2025-06-04"_s}));
    EXPECT_EQ(m.pending(), a);
}

TEST_F(NotifierTest, KeepsWhatIsOnItsWayBesideALaterOne) {
    m.service.holdsAnswers = true;
    m.change({atTen("2025-06-01", u"a"_s, u"first"_s)});
    m.change({atTen("2025-05-31", u"a"_s, u"second"_s)});
    EXPECT_EQ(posted(), QStringList(u"first"_s));
    m.service.answerPost(Outcome::shown);
    settle();
    EXPECT_EQ(posted(), QStringList(u"second"_s));
}

TEST_F(NotifierTest, IsIdleWithNothingToWaitFor) {
    EXPECT_EQ(idleSignals(), 1);
    m.change({atTen("2025-06-09", u"a"_s)});
    EXPECT_FALSE(m.notifier().isIdle());
    EXPECT_EQ(idleSignals(), 0);
    m.service.showing = true;
    int signalled = 0;
    QObject::connect(&m.notifier(), &Notifier::becameIdle, [&] { ++signalled; });
    m.set("2025-06-09T10:00:00Z");
    EXPECT_FALSE(m.notifier().isIdle()) << "it can be clicked on";
    EXPECT_EQ(signalled, 0);
    m.service.showNothing();
    EXPECT_TRUE(m.notifier().isIdle());
    EXPECT_EQ(signalled, 1);
    m.change({atTen("2025-06-10", u"a"_s)});
    EXPECT_EQ(signalled, 1);
    m.removeAll();
    EXPECT_EQ(signalled, 2);
}

TEST_F(NotifierTest, TellsThatItIsIdleAfterTheLastIsShown) {
    m.service.holdsAnswers = true;
    int signalled = 0;
    m.change({atTen("2025-06-01", u"a"_s)});
    QObject::connect(&m.notifier(), &Notifier::becameIdle, [&] { ++signalled; });
    EXPECT_EQ(signalled, 0);
    m.service.answerPost(Outcome::shown);
    EXPECT_EQ(signalled, 1);
}

TEST_F(NotifierTest, NeverPostsForADayThatNoClockReaches) {
    NotificationRequest request = atTen("2025-06-09", u"a"_s);
    request.trigger = CalendarTrigger{CivilDay(days(200'000'000'000)), 10h};
    m.change({request});
    EXPECT_EQ(m.pending(), a);
    m.set("9999-12-31T00:00:00Z");
    m.restart();
    EXPECT_EQ(posted(), nothing);
    EXPECT_EQ(m.pending(), a);
}

TEST_F(NotifierTest, KeepsNoMoreThanSoMany) {
    QList<NotificationMessages::Change> changes;
    for (qsizetype i = 0; i < Notifier::mostPending; ++i)
        changes.append(atTen("2025-06-09", QString::number(i)));
    ASSERT_TRUE(m.notifier().change(changes));
    EXPECT_FALSE(m.notifier().change(
        {NotificationMessages::RemovePending{{u"0"_s}}, atTen("2025-06-10", u"1"_s)}));
    EXPECT_EQ(m.pending().size(), Notifier::mostPending);
    EXPECT_EQ(m.pending().first(), u"0") << "all or nothing";
    EXPECT_TRUE(m.notifier().change(
        {NotificationMessages::RemoveAllPending(), atTen("2025-06-10", u"a"_s)}));
    EXPECT_EQ(m.pending(), a);
    changes.append(NotificationMessages::RemoveAllPending());
    EXPECT_FALSE(m.notifier().change(changes)) << "on the way";
    EXPECT_EQ(m.pending(), a);
}

TEST_F(NotifierTest, KeepsTenThousand) {
    QList<NotificationMessages::Change> changes;
    for (int i = 0; i < 10'000; ++i)
        changes.append(atTen(i % 2 == 0 ? "2025-06-09" : "2025-06-10", QString::number(i)));
    m.change(changes);
    m.restart();
    EXPECT_EQ(m.pending().size(), 10'000);
    m.set("2025-06-09T10:00:00Z");
    EXPECT_EQ(m.service.posted.size(), 5'000);
    m.kill();
    m.clock.set(instant("2025-06-10T10:00:00Z"));
    m.start();
    ASSERT_EQ(m.service.posted.size(), 10'000);
    for (int i = 0; i < 5'000; ++i) {
        ASSERT_EQ(m.service.posted[i], QString::number(2 * i));
        ASSERT_EQ(m.service.posted[5'000 + i], QString::number(2 * i + 1));
    }
    m.restart();
    EXPECT_EQ(m.service.posted.size(), 10'000);
}

} // namespace tovarin
