// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// The batch review's sheet, handled as a user does.

#include "model/Store.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/LanguageTest.h"
#include "tests/support/ManualClock.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"
#include "tests/support/ScopedVariable.h"
#include "tests/ui/SheetStage.h"
#include "ui/BatchScanReviewModel.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

class BatchReviewTest : public LanguageTest {
protected:
    void open(const QStringList &names) {
        items.clear();
        for (const QString &name : names)
            items.append({.subscription = sampleSubscription(name)});
        open();
    }
    void open() {
        stage.reset();
        dismissed.reset();
        review.emplace(items, store, LocalizationManager::shared());
        dismissed.emplace(&*review, &BatchScanReviewModel::dismissed);
        stage.emplace(u"BatchScanReviewView"_s,
                      QVariantMap{{u"review"_s, QVariant::fromValue(&*review)}});
    }

    QQuickItem &item(const char *name) { return stage->item(name); }

    QQuickItem &row(int number) {
        QQuickItem *const found = stage->itemWith("objectName", u"row%1"_s.arg(number));
        if (!found)
            qFatal("there is no row %d", number);
        return *found;
    }

    /// A piece of a row: "check", "name", "warning", "amount", "cycle".
    QQuickItem &piece(int number, const QString &name) {
        auto *const found = row(number).findChild<QQuickItem *>(name);
        if (!found)
            qFatal("row %d has no %s", number, qPrintable(name));
        return *found;
    }

    /// Where the keyboard is: "row0 name", "cancel".
    QString place() {
        QStringList names;
        for (const QQuickItem *at = stage->window().activeFocusItem(); at; at = at->parentItem()) {
            const QString name = at->objectName();
            if (name.startsWith(u"row"_s))
                return name + u' ' + names.first();
            if (!name.isEmpty())
                names.append(name);
        }
        return names.value(0);
    }

    /// Puts another text into a field.
    void retype(QQuickItem &field, const QString &text) {
        stage->click(field);
        stage->press(Qt::Key_A, Qt::ControlModifier);
        stage->press(Qt::Key_Backspace);
        stage->type(text);
    }

    QString counter() { return stage->value("counter", "text").toString(); }
    QString confirmTitle() { return stage->value("confirm", "title").toString(); }

    // The fields write numbers as the user does.
    ScopedVariable locale{"LC_ALL", "en_US.UTF-8"};
    QTemporaryDir folder;
    LanguageScope language{GetParam()};
    ManualClock clock{instant("2025-06-09T20:00:00Z")};
    UserCalendar calendar = calendarIn("Asia/Shanghai");
    Store store{folder.path(), clock, calendar};
    QList<ScanDraftItem> items;
    std::optional<BatchScanReviewModel> review;
    std::optional<QSignalSpy> dismissed;
    std::optional<SheetStage> stage;
};

} // namespace

TEST_P(BatchReviewTest, ShowsTheDrafts) {
    items = {{.subscription = sampleSubscription(u"Netflix"_s)},
             {.subscription = sampleSubscription(QString())},
             {.subscription = startingOn("2025-01-01T00:00:00Z", BillingCycle::yearly)}};
    items[0].subscription.amount = 1234.5;
    items[2].isIncluded = false;
    open();
    EXPECT_EQ(stage->texts(),
              isZh() ? (QStringList{u"[ 批量识别结果 ]"_s, u"[ 2/3 项 ]"_s,
                                    u"勾选要添加的项，可改名称和金额"_s, u"Netflix"_s, u"1,234.5"_s,
                                    u"每月"_s, u"名称"_s, u"未识别名称"_s, u"30"_s, u"每月"_s,
                                    u"Music Plus"_s, u"30"_s, u"每年"_s, u"取消"_s, u"添加 2 项"_s})
                     : (QStringList{u"[ BATCH SCAN ]"_s, u"[ 2/3 ]"_s,
                                    u"Select items to add; edit name or amount"_s, u"Netflix"_s,
                                    u"1,234.5"_s, u"Monthly"_s, u"Name"_s, u"No name"_s, u"30"_s,
                                    u"Monthly"_s, u"Music Plus"_s, u"30"_s, u"Yearly"_s,
                                    u"Cancel"_s, u"Add 2"_s}));
    EXPECT_EQ(stage->value("sheet", "label"), pair(u"批量识别结果"_s, u"Batch scan"_s));
    EXPECT_TRUE(piece(0, u"check"_s).property("checked").toBool());
    EXPECT_FALSE(piece(2, u"check"_s).property("checked").toBool());
    EXPECT_EQ(piece(1, u"warning"_s).property("color").value<QColor>(), QColor(u"#555555"_s));
    EXPECT_GE(SheetStage::top(piece(1, u"warning"_s)), SheetStage::bottom(piece(1, u"name"_s)));
}

TEST_P(BatchReviewTest, SaysThatThereIsNothing) {
    open(QStringList{});
    EXPECT_EQ(stage->texts(),
              isZh() ? (QStringList{u"[ 批量识别结果 ]"_s, u"[ 0/0 项 ]"_s,
                                    u"勾选要添加的项，可改名称和金额"_s, u"没有识别到有效内容"_s,
                                    u"取消"_s, u"添加 0 项"_s})
                     : (QStringList{u"[ BATCH SCAN ]"_s, u"[ 0/0 ]"_s,
                                    u"Select items to add; edit name or amount"_s,
                                    u"Nothing recognized"_s, u"Cancel"_s, u"Add 0"_s}));
    EXPECT_FALSE(item("confirm").isEnabled());
    EXPECT_EQ(place(), u"cancel"_s);
    stage->press(Qt::Key_Return);
    EXPECT_EQ(dismissed->size(), 1);
}

TEST_P(BatchReviewTest, TicksAndCountsAtOnce) {
    open({u"a"_s, u"b"_s, u"c"_s});
    EXPECT_EQ(counter(), pair(u"[ 3/3 项 ]"_s, u"[ 3/3 ]"_s));
    stage->click(piece(1, u"check"_s));
    EXPECT_FALSE(items[1].isIncluded);
    EXPECT_EQ(counter(), pair(u"[ 2/3 项 ]"_s, u"[ 2/3 ]"_s));
    EXPECT_EQ(confirmTitle(), pair(u"添加 2 项"_s, u"Add 2"_s));
    EXPECT_TRUE(item("confirm").isEnabled());
    EXPECT_EQ(item("confirm").opacity(), 1);
    for (const int number : {0, 2})
        stage->click(piece(number, u"check"_s));
    EXPECT_EQ(counter(), pair(u"[ 0/3 项 ]"_s, u"[ 0/3 ]"_s));
    EXPECT_EQ(confirmTitle(), pair(u"添加 0 项"_s, u"Add 0"_s));
    EXPECT_FALSE(item("confirm").isEnabled());
    EXPECT_EQ(item("confirm").opacity(), 0.45);
    stage->click(item("confirm"));
    EXPECT_EQ(dismissed->size(), 0);
    stage->click(piece(2, u"check"_s));
    EXPECT_TRUE(items[2].isIncluded);
    EXPECT_EQ(counter(), pair(u"[ 1/3 项 ]"_s, u"[ 1/3 ]"_s));
    EXPECT_EQ(item("confirm").opacity(), 1);
    EXPECT_EQ(store.subscriptions().size(), 0);
}

TEST_P(BatchReviewTest, AddsWhatIsTickedAsItWasCorrected) {
    open({u"a"_s, u"b"_s, u"c"_s});
    const QList<ScanDraftItem> before = items;
    retype(piece(2, u"name"_s), u"晨跑 Club "_s);
    retype(piece(0, u"amount"_s), u"12.5"_s);
    stage->click(piece(1, u"check"_s));
    stage->click(item("confirm"));
    EXPECT_EQ(dismissed->size(), 1);
    QList<Subscription> expected{before[0].subscription, before[2].subscription};
    expected[0].amount = 12.5;
    expected[1].name = u"晨跑 Club "_s;
    EXPECT_EQ(store.subscriptions(), expected);
}

TEST_P(BatchReviewTest, StaysWhereNothingCanBeAdded) {
    open({u"a"_s, u"b"_s});
    retype(piece(0, u"name"_s), u"  "_s);
    EXPECT_FALSE(piece(0, u"warning"_s).isVisible());
    retype(piece(1, u"amount"_s), u"0"_s);
    EXPECT_TRUE(item("confirm").isEnabled());
    EXPECT_EQ(counter(), pair(u"[ 2/2 项 ]"_s, u"[ 2/2 ]"_s));
    stage->click(item("confirm"));
    EXPECT_EQ(dismissed->size(), 0);
    EXPECT_EQ(store.subscriptions().size(), 0);
    retype(piece(1, u"amount"_s), u"-5"_s);
    EXPECT_EQ(items[1].subscription.amount, -5);
    stage->click(item("confirm"));
    EXPECT_EQ(dismissed->size(), 0);
    retype(piece(1, u"amount"_s), u".5"_s);
    stage->click(item("confirm"));
    EXPECT_EQ(dismissed->size(), 1);
    ASSERT_EQ(store.subscriptions().size(), 1);
    EXPECT_EQ(store.subscriptions().first().amount, 0.5);
}

TEST_P(BatchReviewTest, WarnsOfAMissingNameAtOnce) {
    open({u"ab"_s, u"c"_s});
    const qreal height = row(0).height();
    stage->click(piece(0, u"name"_s));
    stage->press(Qt::Key_End);
    stage->press(Qt::Key_Backspace);
    EXPECT_FALSE(piece(0, u"warning"_s).isVisible());
    stage->press(Qt::Key_Backspace);
    EXPECT_TRUE(piece(0, u"warning"_s).isVisible());
    EXPECT_EQ(piece(0, u"warning"_s).property("text"), pair(u"未识别名称"_s, u"No name"_s));
    EXPECT_GT(row(0).height(), height);
    EXPECT_FALSE(piece(1, u"warning"_s).isVisible());
    EXPECT_EQ(place(), u"row0 name"_s);
    stage->type(u"x"_s);
    EXPECT_FALSE(piece(0, u"warning"_s).isVisible());
    EXPECT_EQ(row(0).height(), height);
    EXPECT_EQ(items[0].subscription.name, u"x"_s);
}

TEST_P(BatchReviewTest, LeavesTheKeyboardWhereItIs) {
    open({u"abcd"_s, u"b"_s});
    const QQuickItem *const before = &row(0);
    stage->click(piece(0, u"name"_s));
    stage->press(Qt::Key_Home);
    stage->press(Qt::Key_Right);
    stage->type(u"XY"_s);
    EXPECT_EQ(items[0].subscription.name, u"aXYbcd"_s);
    EXPECT_EQ(piece(0, u"name"_s).property("cursorPosition"), 3);
    const LanguageScope other(otherLang());
    review->setIncluded(0, false);
    review->setIncluded(1, false);
    review->setAmount(0, 5);
    stage->settle();
    EXPECT_EQ(&row(0), before);
    EXPECT_EQ(place(), u"row0 name"_s);
    stage->type(u"Z"_s);
    EXPECT_EQ(piece(0, u"name"_s).property("text"), u"aXYZbcd"_s);
    EXPECT_EQ(piece(0, u"amount"_s).property("text"), u"5"_s);
    EXPECT_EQ(piece(0, u"cycle"_s).property("text"), pair(u"Monthly"_s, u"每月"_s));
    EXPECT_EQ(counter(), pair(u"[ 0/2 ]"_s, u"[ 0/2 项 ]"_s));
}

TEST_P(BatchReviewTest, FollowsTheLanguage) {
    open({QString()});
    const LanguageScope other(otherLang());
    stage->settle();
    EXPECT_EQ(stage->texts(),
              isZh() ? (QStringList{u"[ BATCH SCAN ]"_s, u"[ 1/1 ]"_s,
                                    u"Select items to add; edit name or amount"_s, u"Name"_s,
                                    u"No name"_s, u"30"_s, u"Monthly"_s, u"Cancel"_s, u"Add 1"_s})
                     : (QStringList{u"[ 批量识别结果 ]"_s, u"[ 1/1 项 ]"_s,
                                    u"勾选要添加的项，可改名称和金额"_s, u"名称"_s, u"未识别名称"_s,
                                    u"30"_s, u"每月"_s, u"取消"_s, u"添加 1 项"_s}));
}

TEST_P(BatchReviewTest, TakesNumbersAsTheUserWritesThem) {
    struct {
        const char *locale;
        QString shown;
        QString typed;
        QString afterwards;
        QString refused;
    } const cases[] = {
        {"de_DE.UTF-8", u"1.234,5"_s, u"9,99"_s, u"9,99"_s, u"9.99.1"_s},
        {"en_US.UTF-8", u"1,234.5"_s, u"1,009.99"_s, u"1,009.99"_s, u"9,99"_s},
        {"fa_IR.UTF-8", u"۱٬۲۳۴٫۵"_s, u"۹٫۹۹"_s, u"۹٫۹۹"_s, u"۹x"_s},
    };
    for (const auto &[name, shown, typed, afterwards, refused] : cases) {
        const ScopedVariable variable("LC_ALL", name);
        items = {{.subscription = sampleSubscription(u"a"_s)}};
        items[0].subscription.amount = 1234.5;
        open();
        QQuickItem &amount = piece(0, u"amount"_s);
        EXPECT_EQ(amount.property("text"), shown) << name;
        retype(amount, typed);
        EXPECT_EQ(items[0].subscription.amount, typed == u"1,009.99"_s ? 1009.99 : 9.99) << name;
        stage->press(Qt::Key_Tab);
        EXPECT_EQ(amount.property("text"), afterwards) << name;
        // What is no number changes nothing, and says so.
        const double before = items[0].subscription.amount;
        stage->click(amount);
        EXPECT_TRUE(amount.property("acceptable").toBool()) << name;
        stage->press(Qt::Key_A, Qt::ControlModifier);
        stage->type(refused);
        EXPECT_FALSE(amount.property("acceptable").toBool()) << name;
        stage->press(Qt::Key_Tab);
        EXPECT_EQ(items[0].subscription.amount, before) << name;
        EXPECT_EQ(amount.property("text"), afterwards) << name;
        EXPECT_TRUE(amount.property("acceptable").toBool()) << name;
    }
}

TEST_P(BatchReviewTest, ShowsAPlaceholderForEmptyFields) {
    open({QString()});
    EXPECT_EQ(piece(0, u"name"_s).property("placeholderText"), pair(u"名称"_s, u"Name"_s));
    stage->click(piece(0, u"amount"_s));
    stage->press(Qt::Key_A, Qt::ControlModifier);
    stage->press(Qt::Key_Backspace);
    EXPECT_TRUE(stage->texts().contains(u"0"_s));
    EXPECT_EQ(items[0].subscription.amount, 30);
}

TEST_P(BatchReviewTest, IsUsedByTheKeyboardAlone) {
    open({u"a"_s, u"b"_s});
    ASSERT_EQ(place(), u"row0 check"_s);
    QStringList visited;
    for (int i = 0; i < 8; ++i) {
        visited.append(place());
        stage->press(Qt::Key_Tab);
    }
    EXPECT_EQ(visited,
              (QStringList{u"row0 check"_s, u"row0 name"_s, u"row0 amount"_s, u"row1 check"_s,
                           u"row1 name"_s, u"row1 amount"_s, u"cancel"_s, u"confirm"_s}));
    ASSERT_EQ(place(), u"row0 check"_s);
    stage->press(Qt::Key_Space);
    EXPECT_FALSE(items[0].isIncluded);
    stage->press(Qt::Key_Return);
    EXPECT_TRUE(items[0].isIncluded);
    stage->press(Qt::Key_Space);
    stage->press(Qt::Key_Backtab);
    ASSERT_EQ(place(), u"confirm"_s);
    stage->press(Qt::Key_Return);
    EXPECT_EQ(dismissed->size(), 1);
    EXPECT_EQ(store.subscriptions(), QList{items[1].subscription});
}

TEST_P(BatchReviewTest, AddsNothingByReturnInAField) {
    open({u"a"_s});
    stage->click(piece(0, u"name"_s));
    stage->press(Qt::Key_Return);
    stage->click(piece(0, u"amount"_s));
    stage->press(Qt::Key_Return);
    EXPECT_EQ(dismissed->size(), 0);
    EXPECT_EQ(store.subscriptions().size(), 0);
}

TEST_P(BatchReviewTest, KeepsTheEditsOfACancelledReview) {
    open({u"a"_s, u"b"_s});
    retype(piece(0, u"name"_s), u"x"_s);
    retype(piece(1, u"amount"_s), u"7"_s);
    stage->click(piece(1, u"check"_s));
    stage->click(item("cancel"));
    EXPECT_EQ(dismissed->size(), 1);
    stage->press(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !stage->isOpen(); }));
    EXPECT_EQ(store.subscriptions().size(), 0);
    open();
    EXPECT_EQ(piece(0, u"name"_s).property("text"), u"x"_s);
    EXPECT_EQ(piece(1, u"amount"_s).property("text"), u"7"_s);
    EXPECT_FALSE(piece(1, u"check"_s).property("checked").toBool());
}

TEST_P(BatchReviewTest, KeepsWhatTheFieldsCannotShow) {
    Subscription sub = sampleSubscription(u"two\nlines \u202E and <b>markup</b>\u2028"_s);
    sub.amount = 0.123456789;
    items = {{.subscription = sub}};
    open();
    for (int i = 0; i < 6; ++i)
        stage->press(Qt::Key_Tab);
    EXPECT_EQ(items[0].subscription, sub);
    stage->click(item("confirm"));
    EXPECT_EQ(store.subscriptions(), QList{sub});
}

TEST_P(BatchReviewTest, ScrollsToWhatTheKeyboardIsAt) {
    QStringList names;
    for (int i = 0; i < 12; ++i)
        names.append(u"bill %1"_s.arg(i));
    open(names);
    const qreal headerBottom = SheetStage::top(item("middle"));
    const qreal cancelTop = SheetStage::top(item("cancel"));
    EXPECT_GT(SheetStage::bottom(row(11)), cancelTop);
    for (int number = 0; number < 12; ++number) {
        for (const QString &name : {u"check"_s, u"name"_s, u"amount"_s}) {
            ASSERT_EQ(place(), u"row%1 %2"_s.arg(number).arg(name));
            EXPECT_GE(SheetStage::top(piece(number, name)), headerBottom);
            EXPECT_LE(SheetStage::bottom(piece(number, name)), SheetStage::bottom(item("middle")));
            stage->press(Qt::Key_Tab);
        }
    }
    EXPECT_EQ(place(), u"cancel"_s);
    // What stands around the rows stays where it is.
    EXPECT_EQ(SheetStage::top(item("cancel")), cancelTop);
    EXPECT_EQ(SheetStage::top(item("middle")), headerBottom);
    stage->press(Qt::Key_Home);
    EXPECT_EQ(stage->value("middle", "contentY"), 0);
    stage->press(Qt::Key_PageDown);
    EXPECT_GT(stage->value("middle", "contentY").toReal(), 0);
    stage->press(Qt::Key_Tab);
    stage->press(Qt::Key_Tab);
    ASSERT_EQ(place(), u"row0 check"_s);
    EXPECT_GE(SheetStage::top(piece(0, u"check"_s)), headerBottom);
}

TEST_P(BatchReviewTest, IsAsHighAsItsRows) {
    struct {
        int rows;
        qreal height;
    } const sizes[] = {{0, 320}, {1, 320}, {2, 342}, {6, 582}, {7, 600}, {40, 600}};
    for (const auto &[rows, height] : sizes) {
        open(QStringList(rows, u"a"_s));
        EXPECT_EQ(stage->screen().implicitWidth(), 560);
        EXPECT_EQ(stage->screen().implicitHeight(), height) << rows;
        if (rows == 0)
            continue;
        // One row's warning has its place, and the sheet stays as it is.
        review->setName(0, QString());
        stage->settle();
        EXPECT_TRUE(piece(0, u"warning"_s).isVisible());
        EXPECT_EQ(stage->screen().implicitHeight(), height) << rows;
        EXPECT_EQ(stage->value("middle", "end").toReal() == 0, rows < 7) << rows;
    }
}

TEST_P(BatchReviewTest, PutsTheColumnsUnderEachOther) {
    open({u"a"_s, QString(), QString(300, u'x')});
    items[2].subscription.cycle = BillingCycle::quarterly;
    open();
    for (const QString &name : {u"check"_s, u"name"_s, u"amount"_s, u"cycle"_s}) {
        for (int number = 1; number < 3; ++number) {
            const auto box = [&](int of) {
                QQuickItem &it = piece(of, name);
                return it.mapRectToItem(&row(of), QRectF({}, it.size()));
            };
            EXPECT_EQ(box(number), box(0)) << name.toStdString() << number;
        }
    }
    EXPECT_FALSE(piece(2, u"cycle"_s).property("truncated").toBool());
}

TEST_P(BatchReviewTest, BearsSmallWindowsAndLongTexts) {
    open({QString(5000, u'长'), QString()});
    for (const QSize size : {QSize(320, 240), QSize(520, 400), QSize(1600, 1000)}) {
        stage->resize(size);
        EXPECT_LE(SheetStage::bottom(item("confirm")), size.height());
        QQuickItem &cycle = piece(0, u"cycle"_s);
        EXPECT_LE(cycle.mapToScene({cycle.width(), 0}).x(), size.width());
        EXPECT_GT(piece(0, u"name"_s).width(), 0);
    }
    stage->click(item("cancel"));
    EXPECT_EQ(dismissed->size(), 1);
}

TEST_P(BatchReviewTest, TellsAllOfItToAScreenReader) {
    open({u"Netflix"_s, QString()});
    const QStringList english{u"Dialog Batch scan"_s,
                              u"StaticText [ BATCH SCAN ]"_s,
                              u"StaticText [ 2/2 ]"_s,
                              u"StaticText Select items to add; edit name or amount"_s,
                              u"List Batch scan"_s,
                              u"ListItem Netflix"_s,
                              u"CheckBox Netflix (ticked) [press] [toggle]"_s,
                              u"EditableText Name = Netflix"_s,
                              u"EditableText Amount = 30"_s,
                              u"StaticText Monthly"_s,
                              u"ListItem No name"_s,
                              u"CheckBox No name (ticked) [press] [toggle]"_s,
                              u"EditableText Name = "_s,
                              u"StaticText No name"_s,
                              u"EditableText Amount = 30"_s,
                              u"StaticText Monthly"_s,
                              u"Button Cancel [press]"_s,
                              u"Button Add 2 [press]"_s};
    const QStringList chinese{u"Dialog 批量识别结果"_s,
                              u"StaticText [ 批量识别结果 ]"_s,
                              u"StaticText [ 2/2 项 ]"_s,
                              u"StaticText 勾选要添加的项，可改名称和金额"_s,
                              u"List 批量识别结果"_s,
                              u"ListItem Netflix"_s,
                              u"CheckBox Netflix (ticked) [press] [toggle]"_s,
                              u"EditableText 名称 = Netflix"_s,
                              u"EditableText 金额 = 30"_s,
                              u"StaticText 每月"_s,
                              u"ListItem 未识别名称"_s,
                              u"CheckBox 未识别名称 (ticked) [press] [toggle]"_s,
                              u"EditableText 名称 = "_s,
                              u"StaticText 未识别名称"_s,
                              u"EditableText 金额 = 30"_s,
                              u"StaticText 每月"_s,
                              u"Button 取消 [press]"_s,
                              u"Button 添加 2 项 [press]"_s};
    EXPECT_EQ(stage->told(), isZh() ? chinese : english);
    EXPECT_TRUE(Stage::pressByScreenReader(piece(0, u"check"_s)));
    EXPECT_FALSE(items[0].isIncluded);
    QAccessibleInterface *const check = Stage::accessible(piece(0, u"check"_s));
    check->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(items[0].isIncluded);
    Stage::accessible(piece(1, u"name"_s))->setText(QAccessible::Value, u"Club"_s);
    EXPECT_EQ(items[1].subscription.name, u"Club"_s);
    EXPECT_EQ(Stage::accessible(row(1))->text(QAccessible::Name), u"Club"_s);
    EXPECT_TRUE(Stage::pressByScreenReader(item("cancel")));
    EXPECT_EQ(dismissed->size(), 1);
    EXPECT_TRUE(Stage::pressByScreenReader(item("confirm")));
    EXPECT_EQ(dismissed->size(), 2);
    EXPECT_EQ(store.subscriptions().size(), 2);
}

INSTANTIATE_TEST_SUITE_P(, BatchReviewTest, bothLanguages(), languageName);

} // namespace tovarin
