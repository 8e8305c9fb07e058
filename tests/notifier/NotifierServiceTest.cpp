// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "notifier/Notifier.h"
#include "tests/notifier/MachineTest.h"
#include "tests/support/Printing.h"

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

using Outcome = NotificationService::Outcome;
using Presence = NotificationService::Presence;

class NotifierServiceTest : public MachineTest {
protected:
    /// Asks for these, which are due.
    void plan(const QStringList &identifiers) {
        QList<NotificationMessages::Change> changes;
        for (const QString &identifier : identifiers)
            changes.append(atTen("2025-06-01", identifier));
        m.change(changes);
    }
    void appear() {
        m.service.appear();
        settle();
    }
    void answer(Presence presence) {
        m.service.answerQuestion(presence);
        settle();
    }
    void answer(Outcome outcome) {
        m.service.answerPost(outcome);
        settle();
    }
    void pass(std::chrono::milliseconds time) { m.set(m.clock.now() + time); }
};

} // namespace

TEST_F(NotifierServiceTest, WaitsForAService) {
    m.service.isThere = false;
    m.change({atTen("2025-06-09", u"a"_s)});
    m.set("2025-06-09T10:00:00Z");
    m.set("2025-06-09T12:00:00Z");
    EXPECT_EQ(posted(), nothing);
    EXPECT_FALSE(m.notifier().isIdle());
    m.restart();
    EXPECT_EQ(posted(), nothing);
    appear();
    EXPECT_EQ(posted(), a);
    m.restart();
    EXPECT_EQ(posted(), nothing);
}

TEST_F(NotifierServiceTest, AsksAgainWhenTheServiceComesWhileItIsAsking) {
    m.service.holdsQuestions = true;
    plan(a);
    m.service.appear();
    m.service.holdsQuestions = false;
    answer(Presence::absent);
    EXPECT_EQ(posted(), a);
}

TEST_F(NotifierServiceTest, WaitsForAnotherServiceWhenOneDies) {
    m.service.holdsAnswers = true;
    plan(a);
    EXPECT_EQ(posted(), a);
    m.service.isThere = false;
    answer(Outcome::absent);
    m.restart();
    EXPECT_EQ(posted(), nothing);
    m.service.holdsAnswers = false;
    appear();
    EXPECT_EQ(posted(), a) << "the first one was not shown";
}

TEST_F(NotifierServiceTest, TriesAgainWhereTheNextServiceIsThereAlready) {
    m.service.holdsAnswers = true;
    plan(a);
    m.service.appear();
    m.service.holdsAnswers = false;
    answer(Outcome::absent);
    EXPECT_EQ(posted(), (QStringList{u"a"_s, u"a"_s}));
}

TEST_F(NotifierServiceTest, TriesAgainInFiveMinutesWhenRefused) {
    m.service.outcome = Outcome::refused;
    plan(a);
    EXPECT_EQ(posted(), a);
    pass(5min - 1ms);
    EXPECT_EQ(posted(), nothing);
    pass(1ms);
    EXPECT_EQ(posted(), a);
    EXPECT_FALSE(m.notifier().isIdle());
    m.set(m.clock.now() - 24h);
    m.service.outcome = Outcome::shown;
    EXPECT_EQ(posted(), nothing);
    pass(5min);
    EXPECT_EQ(posted(), a);
    EXPECT_TRUE(m.notifier().isIdle());
    m.restart();
    EXPECT_EQ(posted(), nothing);
}

TEST_F(NotifierServiceTest, HoldsUpNothingForARefusedOne) {
    m.service.holdsAnswers = true;
    plan({u"a"_s, u"b"_s});
    EXPECT_EQ(posted(), a);
    m.service.holdsAnswers = false;
    answer(Outcome::refused);
    EXPECT_EQ(posted(), QStringList(u"b"_s));
    pass(1min);
    plan({u"c"_s});
    EXPECT_EQ(posted(), QStringList(u"c"_s));
    pass(4min);
    EXPECT_EQ(posted(), a);
}

TEST_F(NotifierServiceTest, RestsWhileOneIsOnItsWayAndAnotherIsToBeTriedAgain) {
    m.service.outcome = Outcome::refused;
    plan(a);
    m.service.holdsAnswers = true;
    plan({u"b"_s});
    EXPECT_EQ(posted(), (QStringList{u"a"_s, u"b"_s}));
    // Settling would never end if it woke up again and again.
    pass(5min);
    EXPECT_EQ(posted(), nothing);
    m.service.holdsAnswers = false;
    m.service.outcome = Outcome::shown;
    answer(Outcome::shown);
    EXPECT_EQ(posted(), a);
}

TEST_F(NotifierServiceTest, ShowsTheLatestInTheSteadOfARefusedOne) {
    m.service.outcome = Outcome::refused;
    plan({u"a"_s, u"b"_s});
    EXPECT_EQ(posted(), (QStringList{u"a"_s, u"b"_s}));
    m.service.outcome = Outcome::shown;
    m.change({after(1ms, u"a"_s)});
    pass(1ms);
    EXPECT_EQ(posted(), a);
    pass(5min);
    EXPECT_EQ(posted(), QStringList(u"b"_s));
    EXPECT_TRUE(m.notifier().isIdle());
}

TEST_F(NotifierServiceTest, AsksASilentServiceAgainInFiveMinutes) {
    m.service.isSilent = true;
    plan({u"a"_s, u"b"_s});
    EXPECT_EQ(m.service.questions, 1);
    pass(5min - 1ms);
    EXPECT_EQ(m.service.questions, 1);
    EXPECT_FALSE(m.notifier().isIdle());
    pass(1ms);
    EXPECT_EQ(m.service.questions, 2);
    m.service.isSilent = false;
    pass(5min);
    EXPECT_EQ(posted(), (QStringList{u"a"_s, u"b"_s}));
}

TEST_F(NotifierServiceTest, DoesNotStartAServiceThatDiesAgainAndAgain) {
    m.service.isThere = false;
    m.service.isStartedByQuestions = true;
    m.service.diesOfPosts = true;
    plan(a);
    EXPECT_EQ(posted(), a);
    pass(5min - 1ms);
    EXPECT_EQ(posted(), nothing);
    pass(1ms);
    EXPECT_EQ(posted(), a);
    // Somebody else starts it at once.
    appear();
    EXPECT_EQ(posted(), nothing);
    m.service.diesOfPosts = false;
    pass(5min);
    EXPECT_EQ(posted(), a);
    EXPECT_TRUE(m.notifier().isIdle());
}

TEST_F(NotifierServiceTest, HoldsAllThatAServiceDiesOf) {
    m.service.diesOfPosts = true;
    m.service.isStartedByQuestions = true;
    plan({u"a"_s, u"b"_s, u"c"_s});
    EXPECT_EQ(posted(), (QStringList{u"a"_s, u"b"_s}));
    m.service.diesOfPosts = false;
    pass(5min);
    EXPECT_EQ(posted(), (QStringList{u"c"_s, u"a"_s, u"b"_s}));
}

TEST_F(NotifierServiceTest, AsksOneThatDiesOfTheQuestionOnceMore) {
    m.service.holdsQuestions = true;
    plan(a);
    m.service.appear();
    answer(Presence::silent);
    EXPECT_EQ(m.service.questions, 2);
    m.service.appear();
    answer(Presence::silent);
    EXPECT_EQ(m.service.questions, 2);
    pass(5min);
    EXPECT_EQ(m.service.questions, 3);
    answer(Presence::there);
    EXPECT_EQ(posted(), a);
}

TEST_F(NotifierServiceTest, HoldsAllAfterThreeRefusals) {
    m.service.outcome = Outcome::refused;
    plan({u"a"_s, u"b"_s, u"c"_s, u"d"_s});
    EXPECT_EQ(posted(), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
    m.service.outcome = Outcome::shown;
    pass(5min);
    EXPECT_EQ(posted(), (QStringList{u"d"_s, u"a"_s, u"b"_s, u"c"_s}));
}

TEST_F(NotifierServiceTest, DropsARefusedOneThatALaterOneReplaces) {
    m.service.holdsAnswers = true;
    m.change({atTen("2025-06-01", u"a"_s, u"old"_s)});
    m.change({after(1ms, u"a"_s)});
    pass(1ms);
    EXPECT_EQ(posted(), QStringList(u"old"_s));
    m.service.holdsAnswers = false;
    answer(Outcome::refused);
    EXPECT_EQ(posted(), a);
    EXPECT_TRUE(m.notifier().isIdle());
    m.restart();
    EXPECT_EQ(posted(), nothing);
}

TEST_F(NotifierServiceTest, TriesAllAgainWhenAServiceComesWhileOneIsRefused) {
    m.service.outcome = Outcome::refused;
    plan(a);
    m.service.holdsAnswers = true;
    plan({u"b"_s});
    EXPECT_EQ(posted(), (QStringList{u"a"_s, u"b"_s}));
    m.service.appear();
    m.service.holdsAnswers = false;
    m.service.outcome = Outcome::shown;
    answer(Outcome::refused);
    EXPECT_EQ(posted(), a);
    pass(5min);
    EXPECT_EQ(posted(), QStringList(u"b"_s));
}

TEST_F(NotifierServiceTest, WakesByItselfToTryARefusedOneAgain) {
    const Instant now = SystemClock().now();
    m.clock.set(now - 5min + 50ms);
    m.service.outcome = Outcome::refused;
    plan(a);
    EXPECT_EQ(posted(), a);
    m.service.outcome = Outcome::shown;
    m.clock.set(now + 50ms);
    EXPECT_TRUE(waitFor([this] { return !m.service.posted.isEmpty(); }));
    EXPECT_EQ(posted(), a);
}

TEST_F(NotifierServiceTest, WakesByItselfToAskASilentServiceAgain) {
    const Instant now = SystemClock().now();
    m.clock.set(now - 5min + 50ms);
    m.service.isSilent = true;
    plan(a);
    EXPECT_EQ(m.service.questions, 1);
    m.service.isSilent = false;
    m.clock.set(now + 50ms);
    EXPECT_TRUE(waitFor([this] { return !m.service.posted.isEmpty(); }));
    EXPECT_EQ(posted(), a);
}

TEST_F(NotifierServiceTest, KeepsWhatASilentServiceDidNotTake) {
    m.service.isSilent = true;
    plan(a);
    m.restart();
    EXPECT_EQ(posted(), nothing);
    m.service.isSilent = false;
    appear();
    EXPECT_EQ(posted(), a);
    m.restart();
    EXPECT_EQ(posted(), nothing);
}

TEST_F(NotifierServiceTest, AsksForTheOneThatDiedAgainInFiveMinutes) {
    m.service.holdsAnswers = true;
    plan(a);
    EXPECT_EQ(posted(), a);
    m.service.holdsAnswers = false;
    answer(Outcome::absent);
    EXPECT_EQ(posted(), nothing);
    pass(5min);
    EXPECT_EQ(posted(), a) << "the bus has started it again";
}

TEST_F(NotifierServiceTest, TriesARefusedOneAgainAtTheNextStartOrService) {
    m.service.outcome = Outcome::refused;
    plan(a);
    EXPECT_EQ(posted(), a);
    m.restart();
    EXPECT_EQ(posted(), a);
    m.service.outcome = Outcome::shown;
    appear();
    EXPECT_EQ(posted(), a);
}

TEST_F(NotifierServiceTest, PostsOneAfterTheOther) {
    m.service.holdsAnswers = true;
    plan({u"a"_s, u"b"_s});
    EXPECT_EQ(posted(), a);
    m.look();
    EXPECT_EQ(posted(), nothing);
    answer(Outcome::shown);
    EXPECT_EQ(posted(), QStringList(u"b"_s));
}

} // namespace tovarin
