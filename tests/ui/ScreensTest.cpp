// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// Loads the main window as the program does and looks at what stands on it. Any message of Qt's of
// level warning or worse fails the test.

#include "model/Store.h"
#include "tests/scan/job/ScanRun.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/ManualClock.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"
#include "tests/support/ScriptedPanel.h"
#include "tests/ui/Complaints.h"
#include "tests/ui/Texts.h"
#include "ui/BillScanModel.h"
#include "ui/ContentModel.h"
#include "ui/ImageProviders.h"
#include "ui/MainMenu.h"

#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

using Lang = LocalizationManager::Lang;

namespace {

class Screens : public testing::TestWithParam<Lang> {
protected:
    Screens() {
        complaints().clear();
        engine.addImportPath(u"qrc:/"_s);
        addImageProviders(engine, bundle, logos);
    }

    ~Screens() override { EXPECT_EQ(complaints(), QStringList()); }

    void useFile(const QString &path) {
        ASSERT_TRUE(QDir().mkpath(folder.filePath(u"Tovarin"_s)));
        ASSERT_TRUE(QFile::copy(path, folder.filePath(u"Tovarin/subscriptions.json"_s)));
    }

    void open() {
        store.emplace(folder.path(), clock, calendar);
        content.emplace(*store, clock, calendar, LocalizationManager::shared(), logos);
        bills.emplace(job, panel, *store);
        engine.setInitialProperties({{u"content"_s, QVariant::fromValue(&*content)},
                                     {u"bills"_s, QVariant::fromValue(&*bills)},
                                     {u"menu"_s, QVariant::fromValue(&menu)},
                                     {u"visible"_s, true}});
        engine.load(QUrl(u"qrc:/Tovarin/Main.qml"_s));
        ASSERT_EQ(engine.rootObjects().size(), 1);
        window = qobject_cast<QQuickWindow *>(engine.rootObjects().first());
        ASSERT_TRUE(window);
        settle();
        ASSERT_TRUE(list().property("originY").isValid());
    }

    /// Waits until the window has drawn what it has to draw.
    void settle() {
        QCoreApplication::processEvents();
        ASSERT_FALSE(window->grabWindow().isNull());
    }

    /// The list, whose position the keyboard moves.
    QQuickItem &list() const { return *window->activeFocusItem(); }

    qreal aboveSight() const {
        return list().property("contentY").toReal() - list().property("originY").toReal();
    }
    qreal belowSight() const {
        return list().property("contentHeight").toReal() - aboveSight() - list().height();
    }

    /// The place of the only item in sight that shows the text, in the window.
    QPoint placeOf(const QString &text) const {
        QList<const QQuickItem *> waiting{window->contentItem()};
        while (!waiting.isEmpty()) {
            const QQuickItem &item = *waiting.takeFirst();
            if (item.isVisible() && item.property("text") == text)
                return item.mapToScene(item.boundingRect().center()).toPoint();
            waiting.append({item.childItems().cbegin(), item.childItems().cend()});
        }
        ADD_FAILURE() << "nothing shows " << text.toStdString();
        return {};
    }

    /// The rows that were made and have this property, from top to bottom.
    QList<QQuickItem *> rowsWith(const char *property) const {
        QList<QQuickItem *> rows;
        QList<QQuickItem *> waiting{window->contentItem()};
        while (!waiting.isEmpty()) {
            QQuickItem *const item = waiting.takeFirst();
            if (item->property(property).isValid())
                rows.append(item);
            waiting.append(item->childItems());
        }
        std::ranges::sort(rows, {}, [](const QQuickItem *row) { return row->mapToScene({}).y(); });
        return rows;
    }

    void click(const QString &text) {
        QTest::mouseClick(window, Qt::LeftButton, {}, placeOf(text));
        settle();
    }

    /// What the window does with files that are dropped on its middle: the action that it takes.
    Qt::DropAction drop(const QList<QUrl> &urls, Qt::DropAction proposed = Qt::CopyAction) {
        QMimeData files;
        files.setUrls(urls);
        const QPoint middle(window->width() / 2, window->height() / 2);
        const Qt::DropActions possible = Qt::CopyAction | Qt::MoveAction;
        QDragEnterEvent enter(middle, possible, &files, Qt::LeftButton, {});
        enter.setDropAction(proposed);
        QCoreApplication::sendEvent(window, &enter);
        if (!enter.isAccepted())
            return Qt::IgnoreAction;
        QDropEvent drop(middle, possible, &files, Qt::LeftButton, {});
        drop.setDropAction(proposed);
        QCoreApplication::sendEvent(window, &drop);
        settle();
        return drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
    }

    void press(Qt::Key key) {
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QCoreApplication::sendEvent(window, &event);
        }
        settle();
    }

    QStringList texts() const { return textsOf(*window->contentItem()); }

    bool isZh() const { return GetParam() == Lang::zh; }
    QString pair(const QString &chinese, const QString &english) const {
        return isZh() ? chinese : english;
    }

    QTemporaryDir folder;
    LanguageScope language{GetParam()};
    ManualClock clock{instant("2025-06-10T01:00:00Z")};
    UserCalendar calendar = calendarIn("Asia/Shanghai");
    Bundle bundle{u":/resources"_s};
    ServiceLogo logos{bundle};
    std::optional<Store> store;
    std::optional<ContentModel> content;
    ScanJob job{standInScanner(), amply};
    ScriptedPanel panel{{}};
    std::optional<BillScanModel> bills;
    MainMenu menu{GetParam() == Lang::zh};
    QQmlApplicationEngine engine;
    QQuickWindow *window = nullptr;
};

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
                             u"扫描识别"_s,
                             u"还没有任何订阅记录"_s,
                             u"从常见服务快选开始，或批量扫描账单截图"_s}
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
                             u"Scan"_s,
                             u"No subscriptions yet"_s,
                             u"Start with quick pick, or batch-scan billing screenshots"_s};
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
    ASSERT_TRUE(waitUntil([this] { return !bills->isScanning(); }));
    settle();
    const QStringList now = texts();
    for (const QString &text : {pair(u"扫描识别"_s, u"Scan"_s), pair(u"2 项"_s, u"2 items"_s),
                                u"bill one"_s, u"bill two"_s})
        EXPECT_TRUE(now.contains(text)) << text.toStdString();
    EXPECT_FALSE(now.contains(pair(u"没有识别到有效内容"_s, u"Nothing recognized"_s)));
}

TEST_P(Screens, ScanDroppedFiles) {
    open();
    EXPECT_EQ(drop({QUrl(u"https://example.com/bill.png"_s)}), Qt::IgnoreAction);
    EXPECT_EQ(drop(filesNamed({u"nothing"_s})), Qt::CopyAction);
    // One scan at a time.
    EXPECT_EQ(drop(filesNamed({u"bill"_s})), Qt::IgnoreAction);
    EXPECT_TRUE(texts().contains(pair(u"识别中 0/1"_s, u"Scanning 0/1"_s)));
    ASSERT_TRUE(waitUntil([this] { return !bills->isScanning(); }));
    settle();
    EXPECT_TRUE(texts().contains(pair(u"没有识别到有效内容"_s, u"Nothing recognized"_s)));
}

/// The source of a move would delete the files.
TEST_P(Screens, NeverMoveDroppedFiles) {
    open();
    EXPECT_EQ(drop(filesNamed({u"bill"_s}), Qt::MoveAction), Qt::CopyAction);
    ASSERT_TRUE(waitUntil([this] { return !bills->isScanning(); }));
    EXPECT_EQ(store->subscriptions().size(), 1);
}

TEST_P(Screens, ScanByTheKeyboard) {
    open();
    press(Qt::Key_Tab);
    EXPECT_EQ(window->activeFocusItem()->property("title").toString(),
              pair(u"扫描识别"_s, u"Scan"_s));
    int presses = 0;
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        press(key);
        EXPECT_EQ(panel.requests.size(), ++presses) << key;
    }
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(window, &held);
    EXPECT_EQ(panel.requests.size(), presses);
}

INSTANTIATE_TEST_SUITE_P(, Screens, testing::Values(Lang::en, Lang::zh),
                         [](const testing::TestParamInfo<Lang> &language) {
                             return language.param == Lang::zh ? "Chinese" : "English";
                         });

} // namespace tovarin
