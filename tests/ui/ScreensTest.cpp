// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// What stands on the main window, and what moves on it.

#include "tests/support/Printing.h"
#include "tests/ui/MainWindow.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

using Lang = LocalizationManager::Lang;

namespace {

class Screens : public MainWindow {};

} // namespace

TEST_P(Screens, ShowTheSampleList) {
    useFile(QStringLiteral(TEST_DATA "/sample-subscriptions.json"));
    open();
    EXPECT_EQ(window->title(), pair(u"Tovarin · 订阅管家"_s, u"Tovarin · Subscription Manager"_s));
    EXPECT_EQ(window->size(), QSize(960, 640));
    EXPECT_EQ(window->color(), QColor(15, 15, 17));
    const QStringList head = isZh() ? QStringList{u"Tovarin"_s,     u"[ 每月订阅支出 ]"_s,
                                                  u"¥391.38"_s,     u"本地数据 · CNY"_s,
                                                  u"每年支出"_s,    u"¥4696.61"_s,
                                                  u"进行中"_s,      u"6"_s,
                                                  u"近 7 天待扣"_s, u"2"_s,
                                                  u"添加订阅"_s,    u"快选"_s,
                                                  u"扫描识别"_s,    u"即将扣费"_s,
                                                  u"未来 7 天"_s,   u"晚灯影院"_s,
                                                  u"3 天后扣费"_s,  u"¥25"_s,
                                                  u"晨跑俱乐部"_s,  u"6 天后扣费"_s,
                                                  u"¥15"_s,         u"全部订阅"_s,
                                                  u"8 项"_s}
                                    : QStringList{u"Tovarin"_s,     u"[ MONTHLY SPEND ]"_s,
                                                  u"$54.36"_s,      u"LOCAL DATA · CNY"_s,
                                                  u"Yearly"_s,      u"$652.31"_s,
                                                  u"Active"_s,      u"6"_s,
                                                  u"Due in 7d"_s,   u"2"_s,
                                                  u"Add"_s,         u"Quick pick"_s,
                                                  u"Scan"_s,        u"Upcoming charges"_s,
                                                  u"Next 7 days"_s, u"晚灯影院"_s,
                                                  u"in 3 days"_s,   u"¥25"_s,
                                                  u"晨跑俱乐部"_s,  u"in 6 days"_s,
                                                  u"¥15"_s,         u"All subscriptions"_s,
                                                  u"8 items"_s};
    QStringList sorted = texts();
    for (const QString &text : head)
        EXPECT_TRUE(sorted.removeOne(text)) << text.toStdString();
    EXPECT_TRUE(sorted.contains(pair(u"AI/工具 · 每月 · 2025/07/06 扣费"_s,
                                     u"AI & Tools · Monthly · Charges 2025/07/06"_s)));
    EXPECT_TRUE(sorted.contains(pair(u"≈¥144/月"_s, u"≈$20/mo"_s)));
}

TEST_P(Screens, ShowTheEmptyState) {
    open();
    const QStringList expected =
        isZh() ? QStringList{u"Tovarin"_s,
                             u"编辑"_s,
                             u"Tovarin"_s,
                             u"[ 每月订阅支出 ]"_s,
                             u"¥0"_s,
                             u"本地数据 · CNY"_s,
                             u"每年支出"_s,
                             u"¥0"_s,
                             u"进行中"_s,
                             u"0"_s,
                             u"近 7 天待扣"_s,
                             u"0"_s,
                             u"添加订阅"_s,
                             u"快选"_s,
                             u"扫描识别"_s,
                             u"还没有任何订阅记录"_s,
                             u"从常见服务快选开始，或批量扫描账单截图"_s,
                             u"快选常见服务"_s,
                             u"手动添加"_s}
               : QStringList{u"Tovarin"_s,
                             u"Edit"_s,
                             u"Tovarin"_s,
                             u"[ MONTHLY SPEND ]"_s,
                             u"$0"_s,
                             u"LOCAL DATA · CNY"_s,
                             u"Yearly"_s,
                             u"$0"_s,
                             u"Active"_s,
                             u"0"_s,
                             u"Due in 7d"_s,
                             u"0"_s,
                             u"Add"_s,
                             u"Quick pick"_s,
                             u"Scan"_s,
                             u"No subscriptions yet"_s,
                             u"Start with quick pick, or batch-scan billing screenshots"_s,
                             u"Quick pick"_s,
                             u"Add manually"_s};
    EXPECT_EQ(texts(), expected);
}

TEST_P(Screens, BearManyEntriesWithLongNamesAtEverySize) {
    QList<Subscription> subs;
    for (int i = 0; i < 200; ++i) {
        Subscription sub =
            sampleSubscription(u"%1 a name that does not end "_s.arg(i).repeated(20));
        sub.amount = i * 1e9 + 0.99;
        sub.isActive = i % 3 != 0;
        sub.startDate += std::chrono::hours(24 * (i % 40));
        subs.append(sub);
    }
    subs[1].name =
        u"<b>no</b> &amp; markup\nsecond line\tand \u202Eodd letters 👩‍👩‍👧‍👦"_s;
    subs[2].name = QString(5000, u'长');
    subs[4].category = QString(5000, u'x');
    subs[5].currency = QString(5000, u'y');
    open();
    store->addAll(subs);
    settle();
    for (const QSize size : {QSize(640, 420), QSize(760, 480), QSize(1600, 1000)}) {
        window->resize(size);
        settle();
    }
    press(Qt::Key_End);
    EXPECT_DOUBLE_EQ(belowSight(), 0);
    store->setSubscriptions({});
    settle();
}

TEST_P(Screens, FollowTheLanguageAndTheList) {
    useFile(QStringLiteral(TEST_DATA "/sample-subscriptions.json"));
    open();
    LocalizationManager::shared().setLang(isZh() ? Lang::en : Lang::zh);
    settle();
    // The title and the menu stay as they were, which is meant.
    EXPECT_EQ(window->title(), pair(u"Tovarin · 订阅管家"_s, u"Tovarin · Subscription Manager"_s));
    EXPECT_TRUE(texts().contains(pair(u"编辑"_s, u"Edit"_s)));
    EXPECT_TRUE(texts().contains(pair(u"8 items"_s, u"8 项"_s)));
    EXPECT_TRUE(texts().contains(pair(u"$54.36"_s, u"¥391.38"_s)));

    store->deleteSubscription(store->subscriptions().first());
    settle();
    EXPECT_TRUE(texts().contains(pair(u"7 items"_s, u"7 项"_s)));
    EXPECT_FALSE(texts().contains(u"Quillbird Pro"_s));
}

TEST_P(Screens, ScrollByTheKeyboard) {
    open();
    store->addAll(QList<Subscription>(100, sampleSubscription()));
    settle();
    const qreal all = belowSight();
    ASSERT_GT(all, 3 * list().height());

    press(Qt::Key_Up);
    press(Qt::Key_PageUp);
    EXPECT_DOUBLE_EQ(aboveSight(), 0);
    press(Qt::Key_PageDown);
    EXPECT_DOUBLE_EQ(aboveSight(), list().height());
    press(Qt::Key_Down);
    EXPECT_GT(aboveSight(), list().height());
    press(Qt::Key_End);
    EXPECT_DOUBLE_EQ(belowSight(), 0);
    press(Qt::Key_PageDown);
    press(Qt::Key_Down);
    EXPECT_DOUBLE_EQ(belowSight(), 0);
    press(Qt::Key_PageUp);
    EXPECT_DOUBLE_EQ(aboveSight(), all - list().height());
    press(Qt::Key_Home);
    EXPECT_DOUBLE_EQ(aboveSight(), 0);
}

TEST_P(Screens, KeepTheirBeginningInSightWhenItGrows) {
    open();
    for (int i = 0; i < 30; ++i) {
        Subscription sub = sampleSubscription();
        sub.cycle = BillingCycle::weekly;
        store->add(sub);
        settle();
        EXPECT_DOUBLE_EQ(aboveSight(), 0) << i;
    }
    window->resize(640, 420);
    settle();
    EXPECT_DOUBLE_EQ(aboveSight(), 0);
}

/// Else ten thousand entries would make thousands of rows, and every frame pay for them.
TEST_P(Screens, MakeRowsOnlyForWhatIsInSight) {
    constexpr int entries = 2000;
    open();
    QList<Subscription> subs;
    for (int i = 0; i < entries; ++i) {
        subs.append(sampleSubscription(u"due %1"_s.arg(i)));
        subs.last().startDate = instant("2025-05-12T00:00:00Z");
    }
    store->addAll(subs);
    settle();
    ASSERT_EQ(content->dueCount(), entries);
    int last = -1;
    for (int page = 0; page < 3; ++page) {
        QList<int> due;
        for (const QQuickItem *row : rowsWith("dueText"))
            due.append(row->property("name").toString().sliced(4).toInt());
        ASSERT_FALSE(due.isEmpty());
        EXPECT_LT(due.size(), 2 * list().height() / 44);
        // One after the other, and none left out between two pages.
        for (qsizetype i = 1; i < due.size(); ++i)
            EXPECT_EQ(due[i], due[i - 1] + 1);
        EXPECT_LE(due.first(), last + 1);
        EXPECT_GT(due.last(), last);
        last = due.last();
        press(Qt::Key_PageDown);
    }
    press(Qt::Key_End);
    EXPECT_TRUE(texts().contains(u"due %1"_s.arg(entries - 1)));
    press(Qt::Key_Home);
    EXPECT_TRUE(texts().contains(u"due 0"_s));
}

TEST_P(Screens, ScanTheChosenFiles) {
    open();
    panel.choice = filesNamed({u"bill one"_s, u"bill two"_s});
    click(pair(u"扫描识别"_s, u"Scan"_s));
    EXPECT_TRUE(texts().contains(pair(u"识别中 0/2"_s, u"Scanning 0/2"_s)));
    click(pair(u"识别中 0/2"_s, u"Scanning 0/2"_s));
    EXPECT_EQ(panel.requests.size(), 1);
    waitForScan();
    const QStringList now = texts();
    EXPECT_TRUE(now.contains(pair(u"扫描识别"_s, u"Scan"_s)));
    EXPECT_FALSE(now.contains(pair(u"没有识别到有效内容"_s, u"Nothing recognized"_s)));
}

TEST_P(Screens, ScanDroppedFiles) {
    open();
    EXPECT_EQ(drop({QUrl(u"https://example.com/bill.png"_s)}), Qt::IgnoreAction);
    EXPECT_EQ(drop(filesNamed({u"nothing"_s})), Qt::CopyAction);
    // One scan at a time.
    EXPECT_EQ(drop(filesNamed({u"bill"_s})), Qt::IgnoreAction);
    EXPECT_TRUE(texts().contains(pair(u"识别中 0/1"_s, u"Scanning 0/1"_s)));
    waitForScan();
    EXPECT_TRUE(texts().contains(pair(u"没有识别到有效内容"_s, u"Nothing recognized"_s)));
}

TEST_P(Screens, TakeFilesOnTheMenusToo) {
    open();
    EXPECT_EQ(drop(filesNamed({u"nothing"_s}), {Qt::CopyAction}, QPoint(5, 5)), Qt::CopyAction);
    waitForScan();
}

/// The source of a move would delete the files.
TEST_P(Screens, NeverMoveDroppedFiles) {
    open();
    EXPECT_EQ(drop(filesNamed({u"bill"_s}), {Qt::MoveAction}), Qt::IgnoreAction);
    EXPECT_FALSE(job.isRunning());
    EXPECT_EQ(drop(filesNamed({u"bill"_s}), {Qt::MoveAction, Qt::CopyAction}), Qt::CopyAction);
    waitForScan();
}

TEST_P(Screens, AreVisitedInOrderByTab) {
    open();
    QStringList visited;
    for (int i = 0; i < 6; ++i) {
        press(Qt::Key_Tab);
        visited.append(focused());
    }
    EXPECT_EQ(visited, QStringList({u"settings"_s, u"add"_s, u"quickPick"_s, u"scan"_s,
                                    u"emptyQuickPick"_s, u"emptyAdd"_s}));
}

TEST_P(Screens, ScanByTheKeyboard) {
    open();
    while (focused() != u"scan"_s)
        press(Qt::Key_Tab);
    int presses = 0;
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        press(key);
        EXPECT_EQ(panel.requests.size(), ++presses) << key;
    }
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(window, &held);
    EXPECT_EQ(panel.requests.size(), presses);
}

INSTANTIATE_TEST_SUITE_P(, Screens, bothLanguages(), languageName);

} // namespace tovarin
