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

class NotifierServiceTest : public MachineTest {};

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
    m.service.appear();
    settle();
    EXPECT_EQ(posted(), a);
    m.restart();
    EXPECT_EQ(posted(), nothing);
}

TEST_F(NotifierServiceTest, AsksAgainWhenTheServiceComesWhileItIsAsking) {
    m.service.holdsQuestions = true;
    m.change({atTen("2025-06-01", u"a"_s)});
    m.service.appear();
    m.service.holdsQuestions = false;
    m.service.answerQuestion(Presence::absent);
    settle();
    EXPECT_EQ(posted(), a);
}

TEST_F(NotifierServiceTest, WaitsForAnotherServiceWhenOneDies) {
    m.service.holdsAnswers = true;
    m.change({atTen("2025-06-01", u"a"_s)});
    EXPECT_EQ(posted(), a);
    m.service.isThere = false;
    m.service.answerPost(Outcome::absent);
    settle();
    m.restart();
    EXPECT_EQ(posted(), nothing);
    m.service.holdsAnswers = false;
    m.service.appear();
    settle();
    EXPECT_EQ(posted(), a) << "the first one was not shown";
}

TEST_F(NotifierServiceTest, TriesAgainWhereTheNextServiceIsThereAlready) {
    m.service.holdsAnswers = true;
    m.change({atTen("2025-06-01", u"a"_s)});
    m.service.appear();
    m.service.holdsAnswers = false;
    m.service.answerPost(Outcome::absent);
    settle();
    EXPECT_EQ(posted(), (QStringList{u"a"_s, u"a"_s}));
}

TEST_F(NotifierServiceTest, TriesAgainInFiveMinutesWhenRefused) {
    m.service.outcome = Outcome::refused;
    m.change({atTen("2025-06-01", u"a"_s)});
    EXPECT_EQ(posted(), a);
    m.set(m.clock.now() + 5min - 1ms);
    EXPECT_EQ(posted(), nothing);
    m.set(m.clock.now() + 1ms);
    EXPECT_EQ(posted(), a);
    EXPECT_FALSE(m.notifier().isIdle());
    m.set(m.clock.now() - 24h);
    m.service.outcome = Outcome::shown;
    EXPECT_EQ(posted(), nothing);
    m.set(m.clock.now() + 5min);
    EXPECT_EQ(posted(), a);
    EXPECT_TRUE(m.notifier().isIdle());
    m.restart();
    EXPECT_EQ(posted(), nothing);
}

TEST_F(NotifierServiceTest, HoldsUpNothingForARefusedOne) {
    m.service.holdsAnswers = true;
    m.change({atTen("2025-06-01", u"a"_s), atTen("2025-06-01", u"b"_s)});
    EXPECT_EQ(posted(), a);
    m.service.holdsAnswers = false;
    m.service.answerPost(Outcome::refused);
    settle();
    EXPECT_EQ(posted(), QStringList(u"b"_s));
    m.set(m.clock.now() + 1min);
    m.change({atTen("2025-06-01", u"c"_s)});
    EXPECT_EQ(posted(), QStringList(u"c"_s));
    m.set(m.clock.now() + 4min);
    EXPECT_EQ(posted(), a);
}

TEST_F(NotifierServiceTest, RestsWhileOneIsOnItsWayAndAnotherIsToBeTriedAgain) {
    m.service.outcome = Outcome::refused;
    m.change({atTen("2025-06-01", u"a"_s)});
    m.service.holdsAnswers = true;
    m.change({atTen("2025-06-01", u"b"_s)});
    EXPECT_EQ(posted(), (QStringList{u"a"_s, u"b"_s}));
    // Settling would never end if it woke up again and again.
    m.set(m.clock.now() + 5min);
    EXPECT_EQ(posted(), nothing);
    m.service.holdsAnswers = false;
    m.service.outcome = Outcome::shown;
    m.service.answerPost(Outcome::shown);
    settle();
    EXPECT_EQ(posted(), a);
}

TEST_F(NotifierServiceTest, ShowsTheLatestInTheSteadOfARefusedOne) {
    m.service.outcome = Outcome::refused;
    m.change({atTen("2025-06-01", u"a"_s), atTen("2025-06-01", u"b"_s)});
    EXPECT_EQ(posted(), (QStringList{u"a"_s, u"b"_s}));
    m.service.outcome = Outcome::shown;
    m.change({after(1ms, u"a"_s)});
    m.set(m.clock.now() + 1ms);
    EXPECT_EQ(posted(), a);
    m.set(m.clock.now() + 5min);
    EXPECT_EQ(posted(), QStringList(u"b"_s));
    EXPECT_TRUE(m.notifier().isIdle());
}

TEST_F(NotifierServiceTest, AsksASilentServiceAgainInFiveMinutes) {
    m.service.isSilent = true;
    m.change({atTen("2025-06-01", u"a"_s), atTen("2025-06-01", u"b"_s)});
    EXPECT_EQ(m.service.questions, 1);
    m.set(m.clock.now() + 5min - 1ms);
    EXPECT_EQ(m.service.questions, 1);
    EXPECT_FALSE(m.notifier().isIdle());
    m.set(m.clock.now() + 1ms);
    EXPECT_EQ(m.service.questions, 2);
    m.service.isSilent = false;
    m.set(m.clock.now() + 5min);
    EXPECT_EQ(posted(), (QStringList{u"a"_s, u"b"_s}));
}

TEST_F(NotifierServiceTest, DoesNotStartAServiceThatDiesAgainAndAgain) {
    m.service.isThere = false;
    m.service.isStartedByQuestions = true;
    m.service.diesOfPosts = true;
    m.change({atTen("2025-06-01", u"a"_s)});
    EXPECT_EQ(posted(), a);
    m.set(m.clock.now() + 5min - 1ms);
    EXPECT_EQ(posted(), nothing);
    m.set(m.clock.now() + 1ms);
    EXPECT_EQ(posted(), a);
    // Somebody else starts it at once.
    m.service.appear();
    settle();
    EXPECT_EQ(posted(), nothing);
    m.service.diesOfPosts = false;
    m.set(m.clock.now() + 5min);
    EXPECT_EQ(posted(), a);
    EXPECT_TRUE(m.notifier().isIdle());
}

TEST_F(NotifierServiceTest, HoldsAllThatAServiceDiesOf) {
    m.service.diesOfPosts = true;
    m.service.isStartedByQuestions = true;
    m.change(
        {atTen("2025-06-01", u"a"_s), atTen("2025-06-01", u"b"_s), atTen("2025-06-01", u"c"_s)});
    EXPECT_EQ(posted(), (QStringList{u"a"_s, u"b"_s}));
    m.service.diesOfPosts = false;
    m.set(m.clock.now() + 5min);
    EXPECT_EQ(posted(), (QStringList{u"c"_s, u"a"_s, u"b"_s}));
}

TEST_F(NotifierServiceTest, AsksOneThatDiesOfTheQuestionOnceMore) {
    m.service.holdsQuestions = true;
    m.change({atTen("2025-06-01", u"a"_s)});
    m.service.appear();
    m.service.answerQuestion(Presence::silent);
    settle();
    EXPECT_EQ(m.service.questions, 2);
    m.service.appear();
    m.service.answerQuestion(Presence::silent);
    settle();
    EXPECT_EQ(m.service.questions, 2);
    m.set(m.clock.now() + 5min);
    EXPECT_EQ(m.service.questions, 3);
    m.service.answerQuestion(Presence::there);
    settle();
    EXPECT_EQ(posted(), a);
}

TEST_F(NotifierServiceTest, HoldsAllAfterThreeRefusals) {
    m.service.outcome = Outcome::refused;
    m.change({atTen("2025-06-01", u"a"_s), atTen("2025-06-01", u"b"_s), atTen("2025-06-01", u"c"_s),
              atTen("2025-06-01", u"d"_s)});
    EXPECT_EQ(posted(), (QStringList{u"a"_s, u"b"_s, u"c"_s}));
    m.service.outcome = Outcome::shown;
    m.set(m.clock.now() + 5min);
    EXPECT_EQ(posted(), (QStringList{u"d"_s, u"a"_s, u"b"_s, u"c"_s}));
}

TEST_F(NotifierServiceTest, DropsARefusedOneThatALaterOneReplaces) {
    m.service.holdsAnswers = true;
    m.change({atTen("2025-06-01", u"a"_s, u"old"_s)});
    m.change({after(1ms, u"a"_s)});
    m.set(m.clock.now() + 1ms);
    EXPECT_EQ(posted(), QStringList(u"old"_s));
    m.service.holdsAnswers = false;
    m.service.answerPost(Outcome::refused);
    settle();
    EXPECT_EQ(posted(), a);
    EXPECT_TRUE(m.notifier().isIdle());
    m.restart();
    EXPECT_EQ(posted(), nothing);
}

TEST_F(NotifierServiceTest, TriesAllAgainWhenAServiceComesWhileOneIsRefused) {
    m.service.outcome = Outcome::refused;
    m.change({atTen("2025-06-01", u"a"_s)});
    m.service.holdsAnswers = true;
    m.change({atTen("2025-06-01", u"b"_s)});
    EXPECT_EQ(posted(), (QStringList{u"a"_s, u"b"_s}));
    m.service.appear();
    m.service.holdsAnswers = false;
    m.service.outcome = Outcome::shown;
    m.service.answerPost(Outcome::refused);
    settle();
    EXPECT_EQ(posted(), a);
    m.set(m.clock.now() + 5min);
    EXPECT_EQ(posted(), QStringList(u"b"_s));
}

TEST_F(NotifierServiceTest, WakesByItselfToTryARefusedOneAgain) {
    const Instant now = SystemClock().now();
    m.clock.set(now - 5min + 50ms);
    m.service.outcome = Outcome::refused;
    m.change({atTen("2025-06-01", u"a"_s)});
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
    m.change({atTen("2025-06-01", u"a"_s)});
    EXPECT_EQ(m.service.questions, 1);
    m.service.isSilent = false;
    m.clock.set(now + 50ms);
    EXPECT_TRUE(waitFor([this] { return !m.service.posted.isEmpty(); }));
    EXPECT_EQ(posted(), a);
}

TEST_F(NotifierServiceTest, KeepsWhatASilentServiceDidNotTake) {
    m.service.isSilent = true;
    m.change({atTen("2025-06-01", u"a"_s)});
    m.restart();
    EXPECT_EQ(posted(), nothing);
    m.service.isSilent = false;
    m.service.appear();
    settle();
    EXPECT_EQ(posted(), a);
    m.restart();
    EXPECT_EQ(posted(), nothing);
}

TEST_F(NotifierServiceTest, AsksForTheOneThatDiedAgainInFiveMinutes) {
    m.service.holdsAnswers = true;
    m.change({atTen("2025-06-01", u"a"_s)});
    EXPECT_EQ(posted(), a);
    m.service.holdsAnswers = false;
    m.service.answerPost(Outcome::absent);
    settle();
    EXPECT_EQ(posted(), nothing);
    m.set(m.clock.now() + 5min);
    EXPECT_EQ(posted(), a) << "the bus has started it again";
}

TEST_F(NotifierServiceTest, TriesARefusedOneAgainAtTheNextStartOrService) {
    m.service.outcome = Outcome::refused;
    m.change({atTen("2025-06-01", u"a"_s)});
    EXPECT_EQ(posted(), a);
    m.restart();
    EXPECT_EQ(posted(), a);
    m.service.outcome = Outcome::shown;
    m.service.appear();
    settle();
    EXPECT_EQ(posted(), a);
}

TEST_F(NotifierServiceTest, PostsOneAfterTheOther) {
    m.service.holdsAnswers = true;
    m.change({atTen("2025-06-01", u"a"_s), atTen("2025-06-01", u"b"_s)});
    EXPECT_EQ(posted(), a);
    m.look();
    EXPECT_EQ(posted(), nothing);
    m.service.answerPost(Outcome::shown);
    settle();
    EXPECT_EQ(posted(), QStringList(u"b"_s));
}

} // namespace tovarin
