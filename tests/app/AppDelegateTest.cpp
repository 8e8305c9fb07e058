// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"

#include "app/LocalizationManager.h"
#include "app/NotificationManager.h"
#include "platform/UserMonths.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/LanguageTest.h"
#include "tests/support/ManualClock.h"
#include "tests/support/ManualDelay.h"
#include "tests/support/MemoryDefaults.h"
#include "tests/support/Printing.h"
#include "tests/support/RecordingCenter.h"
#include "tests/support/Samples.h"
#include "tests/ui/Texts.h"

#include <QAccessible>
#include <QCursor>
#include <QQuickItem>
#include <QQuickView>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QtPlugin>

#include <gtest/gtest.h>

Q_IMPORT_PLUGIN(TovarinPlugin)

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

class AppDelegateTest : public LanguageTest {
protected:
    static void settle(QQuickWindow &window) {
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        ASSERT_FALSE(window.grabWindow().isNull());
    }

    void openPanel() {
        delegate.togglePopover({50, 50});
        ASSERT_TRUE(delegate.popover());
        settle(*delegate.popover());
    }

    QStringList panelTexts() const { return textsOf(*delegate.popover()->contentItem()); }

    QStringList windowTexts() const { return textsOf(*delegate.window()->contentItem()); }

    void closeSheet() {
        QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
        QCoreApplication::sendEvent(delegate.window(), &escape);
    }

    /// Presses a button of the panel.
    void press(const QString &title) { pressIn(*delegate.popover(), title); }

    static void pressIn(const QQuickWindow &window, const QString &title) {
        QList<QQuickItem *> waiting{window.contentItem()};
        while (!waiting.isEmpty()) {
            QQuickItem *const item = waiting.takeFirst();
            if (item->property("title") == title) {
                QMetaObject::invokeMethod(item, "clicked");
                QCoreApplication::processEvents();
                return;
            }
            waiting.append(item->childItems());
        }
        FAIL() << title.toStdString();
    }

    QTemporaryDir folder;
    LanguageScope language{GetParam()};
    ManualClock clock{instant("2025-06-10T04:00:00Z")};
    UserCalendar calendar = calendarIn("Asia/Shanghai");
    MemoryDefaults defaults;
    UserMonths months{u"en_US"_s};
    ManualDelay delays;
    RecordingCenter center;
    NotificationManager notifications{center, clock, calendar, LocalizationManager::shared()};
    AppDelegate::Surroundings surroundings{
        folder.path(), QString(),     clock,
        calendar,      months,        LocalizationManager::shared(),
        defaults,      notifications, QDBusConnection(u"no bus"_s),
        delays.delay()};
    AppDelegate delegate{surroundings};
    QSignalSpy shown{&delegate, &AppDelegate::mainWindowDidShow};
};

} // namespace

TEST_P(AppDelegateTest, ShowsOneWindow) {
    EXPECT_EQ(delegate.window(), nullptr);
    delegate.applicationDidFinishLaunching();
    QQuickWindow *const window = delegate.window();
    ASSERT_TRUE(window);
    settle(*window);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(window->title(), pair(u"Tovarin · 订阅管家"_s, u"Tovarin · Subscription Manager"_s));
    EXPECT_EQ(window->size(), QSize(960, 640).boundedTo(window->screen()->availableSize()));
    EXPECT_EQ(shown.size(), 1);
    // In sight already: it is told all the same.
    delegate.showMainWindow();
    EXPECT_EQ(delegate.window(), window);
    EXPECT_EQ(shown.size(), 2);
}

TEST_P(AppDelegateTest, BringsTheWindowBack) {
    delegate.applicationDidFinishLaunching();
    QQuickWindow *const window = delegate.window();
    settle(*window);
    window->resize(800, 500);
    settle(*window);
    window->close();
    EXPECT_FALSE(window->isVisible());
    delegate.showMainWindow();
    settle(*window);
    EXPECT_EQ(delegate.window(), window);
    EXPECT_EQ(window->size(), QSize(800, 500));
    delegate.hide();
    EXPECT_FALSE(window->isVisible());
    delegate.showMainWindow();
    EXPECT_TRUE(window->isVisible());
    window->showMinimized();
    delegate.showMainWindow();
    EXPECT_FALSE(window->windowStates().testFlag(Qt::WindowMinimized));
    EXPECT_EQ(shown.size(), 4);
}

TEST_P(AppDelegateTest, StaysInSightBelowADialog) {
    delegate.applicationDidFinishLaunching();
    settle(*delegate.window());
    QWindow dialog;
    dialog.setModality(Qt::WindowModal);
    dialog.setTransientParent(delegate.window());
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog));
    delegate.hide();
    EXPECT_TRUE(delegate.window()->isVisible());
    dialog.close();
    delegate.hide();
    EXPECT_FALSE(delegate.window()->isVisible());
}

TEST_P(AppDelegateTest, OpensThePanelWithWhatIsTrueNow) {
    delegate.applicationDidFinishLaunching();
    openPanel();
    EXPECT_EQ(delegate.popover()->width(), 300);
    EXPECT_EQ(panelTexts(), (QStringList{u"Tovarin"_s, pair(u"每月订阅支出"_s, u"Monthly spend"_s),
                                         pair(u"¥0"_s, u"$0"_s),
                                         pair(u"每年约 ¥0 · 进行中 0 个"_s, u"≈$0/yr · 0 active"_s),
                                         pair(u"近 7 天待扣费"_s, u"Due in the next 7 days"_s),
                                         pair(u"近期没有要扣费的订阅"_s, u"Nothing due soon"_s),
                                         pair(u"打开 Tovarin"_s, u"Open Tovarin"_s),
                                         pair(u"退出"_s, u"Quit"_s)}));
    delegate.togglePopover({50, 50});
    EXPECT_EQ(delegate.popover(), nullptr);

    Subscription sub = sampleSubscription(u"Morning Run"_s);
    sub.startDate = clock.now();
    delegate.store().add(sub);
    const LanguageScope other(otherLang());
    openPanel();
    EXPECT_EQ(
        panelTexts(),
        (QStringList{u"Tovarin"_s, pair(u"Monthly spend"_s, u"每月订阅支出"_s),
                     pair(u"$4.17"_s, u"¥30"_s),
                     pair(u"≈$50/yr · 1 active"_s, u"每年约 ¥360 · 进行中 1 个"_s),
                     pair(u"Due in the next 7 days"_s, u"近 7 天待扣费"_s), u"Morning Run"_s,
                     pair(u"Today"_s, u"今天"_s), u"-¥30"_s,
                     pair(u"Open Tovarin"_s, u"打开 Tovarin"_s), pair(u"Quit"_s, u"退出"_s)}));
}

TEST_P(AppDelegateTest, ShowsTheNextDayInAPanelThatIsOpenAtMidnight) {
    delegate.applicationDidFinishLaunching();
    delegate.noticeDay();
    Subscription sub = sampleSubscription(u"Morning Run"_s);
    sub.startDate = clock.now() + 24h;
    delegate.store().add(sub);
    openPanel();
    EXPECT_EQ(panelTexts().value(6), pair(u"1天后"_s, u"1d"_s));
    clock.set(clock.now() + 24h);
    delegate.noticeDay();
    settle(*delegate.popover());
    EXPECT_EQ(panelTexts().value(6), pair(u"今天"_s, u"Today"_s));
}

TEST_P(AppDelegateTest, ClosesThePanelByEscapeAndWhenItLosesTheKeyboard) {
    delegate.applicationDidFinishLaunching();
    openPanel();
    QTest::keyClick(delegate.popover(), Qt::Key_Escape);
    EXPECT_EQ(delegate.popover(), nullptr);

    openPanel();
    delegate.window()->requestActivate();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !delegate.popover(); }));
    // The press on the item that took the keyboard away does not open it again; the next one does.
    delegate.togglePopover(QCursor::pos());
    EXPECT_EQ(delegate.popover(), nullptr);
    delegate.togglePopover(QCursor::pos());
    EXPECT_NE(delegate.popover(), nullptr);

    // A press elsewhere took it away; the one on the item is another.
    delegate.window()->requestActivate();
    ASSERT_TRUE(QTest::qWaitFor([this] { return !delegate.popover(); }));
    delegate.togglePopover(QCursor::pos() + QPoint(9, 0));
    EXPECT_NE(delegate.popover(), nullptr);
}

TEST_P(AppDelegateTest, ClosesThePanelWhenTheWindowIsShown) {
    delegate.applicationDidFinishLaunching();
    openPanel();
    delegate.showMainWindow();
    EXPECT_EQ(delegate.popover(), nullptr);
}

TEST_P(AppDelegateTest, LeadsFromThePanelToTheWindow) {
    delegate.applicationDidFinishLaunching();
    settle(*delegate.window());
    delegate.window()->close();
    openPanel();
    press(pair(u"打开 Tovarin"_s, u"Open Tovarin"_s));
    EXPECT_EQ(delegate.popover(), nullptr);
    EXPECT_TRUE(delegate.window()->isVisible());
    EXPECT_EQ(shown.size(), 2);
}

TEST_P(AppDelegateTest, QuitsFromThePanel) {
    delegate.applicationDidFinishLaunching();
    openPanel();
    QSignalSpy quitting(qApp, &QCoreApplication::aboutToQuit);
    QTimer::singleShot(0, qApp, [this] { press(pair(u"退出"_s, u"Quit"_s)); });
    QCoreApplication::exec();
    EXPECT_EQ(quitting.size(), 1);
}

TEST_P(AppDelegateTest, SaysWhatTheItemIsFor) {
    delegate.applicationDidFinishLaunching();
    const QString zh = u"Tovarin · 点击查看订阅支出"_s;
    const QString en = u"Tovarin · Click to view subscription spend"_s;
    EXPECT_EQ(delegate.statusToolTip(), pair(zh, en));
    const LanguageScope other(otherLang());
    // Only with the next change of the list.
    EXPECT_EQ(delegate.statusToolTip(), pair(zh, en));
    delegate.store().add(sampleSubscription());
    EXPECT_TRUE(QTest::qWaitFor([&] { return delegate.statusToolTip() == pair(en, zh); }));
}

TEST_P(AppDelegateTest, OffersTheQuickPickWheneverTheWindowIsShown) {
    using Sheet = ContentSheets::Sheet;
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(delegate.sheets().sheet(), Sheet::None);
    delays.pass(400ms);
    EXPECT_EQ(delegate.sheets().sheet(), Sheet::QuickPick);
    defaults.setBoolean(u"didCompleteQuickPick"_s, true);
    settle(*delegate.window());
    closeSheet();
    delegate.showMainWindow();
    delays.pass(1s);
    EXPECT_EQ(delegate.sheets().sheet(), Sheet::None);
    defaults.setBoolean(u"didCompleteQuickPick"_s, false);
    delegate.showMainWindow();
    delays.pass(400ms);
    EXPECT_EQ(delegate.sheets().sheet(), Sheet::QuickPick);
}

TEST_P(AppDelegateTest, KeepsAnOpenSheetWhileTheWindowIsAway) {
    defaults.setBoolean(u"didCompleteQuickPick"_s, true);
    delegate.applicationDidFinishLaunching();
    settle(*delegate.window());
    pressIn(*delegate.window(), isZh() ? u"设置"_s : u"Settings"_s);
    EXPECT_EQ(delegate.sheets().sheet(), ContentSheets::Sheet::Settings);
    delegate.window()->close();
    delegate.showMainWindow();
    settle(*delegate.window());
    EXPECT_EQ(delegate.sheets().sheet(), ContentSheets::Sheet::Settings);
    EXPECT_TRUE(windowTexts().contains(isZh() ? u"[ 设置 ]"_s : u"[ SETTINGS ]"_s));
}

TEST_P(AppDelegateTest, TellsTheOpenSheetOfAnotherDay) {
    defaults.setBoolean(u"didCompleteQuickPick"_s, true);
    delegate.applicationDidFinishLaunching();
    settle(*delegate.window());
    pressIn(*delegate.window(), isZh() ? u"添加订阅"_s : u"Add"_s);
    ASSERT_TRUE(delegate.sheets().editor());
    const QSignalSpy dates(delegate.sheets().editor(), &SubscriptionEditModel::startDateChanged);
    delegate.noticeDay();
    EXPECT_EQ(dates.size(), 1);
}

TEST_P(AppDelegateTest, ShowsAScreenReaderTheSheetOnTop) {
    defaults.setBoolean(u"didCompleteQuickPick"_s, true);
    delegate.applicationDidFinishLaunching();
    settle(*delegate.window());
    pressIn(*delegate.window(), isZh() ? u"设置"_s : u"Settings"_s);
    settle(*delegate.window());
    QAccessibleInterface *const window = QAccessible::queryAccessibleInterface(delegate.window());
    ASSERT_TRUE(window);
    const QPoint middle = delegate.window()->geometry().center();
    QAccessibleInterface *hit = window->childAt(middle.x(), middle.y());
    while (hit && hit->role() != QAccessible::Dialog)
        hit = hit->parent();
    ASSERT_TRUE(hit);
    EXPECT_EQ(hit->text(QAccessible::Name), isZh() ? u"设置"_s : u"Settings"_s);
}

TEST_P(AppDelegateTest, PlansTheRemindersWheneverTheyChange) {
    defaults.setInteger(u"remindDaysBefore"_s, 5);
    delegate.store().add(sampleSubscription(u"Morning Run"_s));
    EXPECT_TRUE(center.requests.isEmpty());
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(center.calls.first(), u"authorize"_s);
    // For the window that appears, and for the start.
    EXPECT_EQ(center.calls.count(u"authorize"_s), 2);
    // Once for both, when the window is there.
    EXPECT_EQ(center.calls.count(u"remove all"_s), 0);
    delays.pass(100ms);
    EXPECT_EQ(center.calls.count(u"remove all"_s), 1);
    ASSERT_EQ(center.requests.size(), 1);
    EXPECT_TRUE(center.requests.first().body.contains(u"Morning Run"_s));
    EXPECT_TRUE(center.requests.first().body.contains(isZh() ? u"5 天后"_s : u"in 5 days"_s))
        << center.requests.first().body.toStdString();

    delegate.store().add(sampleSubscription(u"Evening Swim"_s));
    EXPECT_EQ(center.requests.size(), 2);
    delegate.store().toggleActive(delegate.store().subscriptions().first());
    ASSERT_EQ(center.requests.size(), 1);
    EXPECT_TRUE(center.requests.first().body.contains(u"Evening Swim"_s));

    // The window that is shown again plans nothing anew, nor does another day or language.
    const qsizetype calls = center.calls.size();
    delegate.showMainWindow();
    delegate.noticeDay();
    LocalizationManager::shared().setLang(otherLang());
    EXPECT_EQ(center.calls.size(), calls);
}

TEST_P(AppDelegateTest, PlansTheRemindersBeforeItGoes) {
    delegate.store().add(sampleSubscription(u"Morning Run"_s));
    {
        AppDelegate brief(surroundings);
        brief.applicationDidFinishLaunching();
        EXPECT_TRUE(center.requests.isEmpty());
    }
    EXPECT_EQ(center.requests.size(), 1);
}

TEST_P(AppDelegateTest, PlansTheRemindersAnewForAnotherDayCount) {
    defaults.setBoolean(u"didCompleteQuickPick"_s, true);
    delegate.store().add(sampleSubscription(u"Morning Run"_s));
    delegate.applicationDidFinishLaunching();
    settle(*delegate.window());
    delays.pass(100ms);
    ASSERT_EQ(center.requests.size(), 1);
    EXPECT_TRUE(center.requests.first().body.contains(isZh() ? u"3 天后"_s : u"in 3 days"_s));
    pressIn(*delegate.window(), isZh() ? u"设置"_s : u"Settings"_s);
    settle(*delegate.window());
    delegate.sheets().settings()->chooseDays(0);
    ASSERT_EQ(center.requests.size(), 1);
    EXPECT_TRUE(center.requests.first().body.contains(isZh() ? u"今天"_s : u"today"_s));
    delegate.sheets().settings()->sendTest();
    EXPECT_EQ(center.requests.size(), 2);
}

INSTANTIATE_TEST_SUITE_P(, AppDelegateTest, bothLanguages(), languageName);

} // namespace tovarin
