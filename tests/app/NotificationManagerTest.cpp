// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/NotificationManager.h"

#include "app/LocalizationManager.h"
#include "tests/app/RenewalSamples.h"
#include "tests/support/ManualClock.h"
#include "tests/support/MemoryDefaults.h"
#include "tests/support/NotificationPrinting.h"
#include "tests/support/Printing.h"
#include "tests/support/RecordingCenter.h"
#include "tests/support/Samples.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

class NotificationManagerTest : public testing::Test {
protected:
    void speak(LocalizationManager::Lang lang) { m_loc.setLang(lang); }

    MemoryDefaults m_defaults;
    LocalizationManager m_loc{m_defaults, [] { return QStringList(u"en"_s); }};
    ManualClock m_clock{instant("2025-06-01T12:00:00Z")};
    UserCalendar m_calendar = calendarIn("UTC");
    RecordingCenter m_center;
    NotificationManager m_manager{m_center, m_clock, m_calendar, m_loc};
};

} // namespace

TEST_F(NotificationManagerTest, AsksForAlertSoundAndBadge) {
    m_manager.requestAuthorization();
    EXPECT_EQ(m_center.calls, QStringList(u"authorize"_s));
    EXPECT_EQ(m_center.askedFor,
              AuthorizationOption::alert | AuthorizationOption::sound | AuthorizationOption::badge);
}

TEST_F(NotificationManagerTest, PutsTheRemindersInThePlaceOfEverythingPending) {
    m_manager.reschedule({musicPlus(), startingOn("2025-03-20T00:00:00Z")}, 3);
    EXPECT_EQ(m_center.calls, (QStringList{u"remove "_s, u"remove all"_s, u"add"_s, u"add"_s}));
    ASSERT_EQ(m_center.requests.size(), 2);
    EXPECT_NE(m_center.requests[0].identifier, m_center.requests[1].identifier);
    EXPECT_EQ(m_center.requests.first(),
              renewalReminders({musicPlus()}, 3, m_clock.now(), m_calendar, false).first());
}

TEST_F(NotificationManagerTest, MakesNoDuplicates) {
    const QList<Subscription> list{musicPlus(), startingOn("2025-03-20T00:00:00Z")};
    m_manager.reschedule(list, 3);
    const QList<NotificationRequest> once = m_center.requests;
    m_manager.reschedule(list, 3);
    EXPECT_EQ(m_center.requests, once);
    EXPECT_EQ(once.size(), 2);
}

TEST_F(NotificationManagerTest, ForgetsWhatIsPausedOrDeleted) {
    Subscription sub = musicPlus();
    m_manager.reschedule({sub}, 3);
    EXPECT_EQ(m_center.requests.size(), 1);
    sub.isActive = false;
    m_manager.reschedule({sub}, 3);
    EXPECT_EQ(m_center.requests.size(), 0);
    sub.isActive = true;
    m_manager.reschedule({sub}, 3);
    EXPECT_EQ(m_center.requests.size(), 1);
    m_manager.reschedule({}, 3);
    EXPECT_EQ(m_center.requests.size(), 0);
}

TEST_F(NotificationManagerTest, TakesClockAndZoneAndLanguageOfTheMoment) {
    m_clock.set(instant("2025-06-09T09:59:59Z"));
    m_manager.reschedule({musicPlus()}, 3);
    EXPECT_EQ(m_center.requests.size(), 1);

    m_clock.set(instant("2025-06-09T10:00:00Z"));
    m_manager.reschedule({musicPlus()}, 3);
    EXPECT_EQ(m_center.requests.size(), 0);

    m_calendar = calendarIn("America/Los_Angeles");
    m_manager.reschedule({musicPlus()}, 3);
    EXPECT_EQ(m_center.requests.size(), 1);

    speak(LocalizationManager::Lang::zh);
    EXPECT_EQ(m_center.requests.first().title, u"Subscription renewing soon"_s)
        << "the text stays as it was planned";
    m_manager.reschedule({musicPlus()}, 3);
    EXPECT_EQ(m_center.requests.first().title, u"订阅即将续费"_s);
}

TEST_F(NotificationManagerTest, SendsATestInThreeSeconds) {
    struct {
        LocalizationManager::Lang lang;
        QString title;
        QString body;
    } const cases[] = {
        {LocalizationManager::Lang::en, u"Tovarin test notification"_s,
         u"If you can see this, reminders are working ✅"_s},
        {LocalizationManager::Lang::zh, u"Tovarin 测试通知"_s,
         u"看到这条就说明续费提醒能正常工作 ✅"_s},
    };
    for (const auto &[lang, title, body] : cases) {
        speak(lang);
        m_center.calls.clear();
        m_center.requests.clear();
        m_manager.sendTest();
        EXPECT_EQ(m_center.calls, QStringList(u"add"_s)) << "it does not ask for leave";
        ASSERT_EQ(m_center.requests.size(), 1);
        const NotificationRequest request = m_center.requests.first();
        EXPECT_EQ(request, (NotificationRequest{.identifier = request.identifier,
                                                .title = title,
                                                .body = body,
                                                .presentation = everything,
                                                .trigger = TimeIntervalTrigger{3s}}));
    }
}

TEST_F(NotificationManagerTest, NamesEachTestAnew) {
    m_manager.sendTest();
    m_manager.sendTest();
    ASSERT_EQ(m_center.requests.size(), 2);
    for (const NotificationRequest &request : m_center.requests) {
        EXPECT_EQ(request.identifier.first(5), u"test-"_s);
        const QString id = request.identifier.sliced(5);
        EXPECT_FALSE(QUuid::fromString(id).isNull());
        EXPECT_EQ(id, QUuid::fromString(id).toString(QUuid::WithoutBraces).toUpper());
    }
}

TEST_F(NotificationManagerTest, WipesATestThatHasNotComeYet) {
    m_manager.sendTest();
    m_manager.reschedule({musicPlus()}, 3);
    ASSERT_EQ(m_center.requests.size(), 1);
    EXPECT_EQ(m_center.requests.first().identifier, musicPlusReminder);
}

TEST_F(NotificationManagerTest, DoesNothingWithoutABundleIdentifier) {
    RecordingCenter center{QString()};
    NotificationManager manager(center, m_clock, m_calendar, m_loc);
    manager.requestAuthorization();
    manager.reschedule({musicPlus()}, 3);
    manager.sendTest();
    EXPECT_EQ(center.calls, QStringList());
}

} // namespace tovarin
