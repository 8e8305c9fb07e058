// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/ui/BatchReviewTest.h"

#include "tests/support/Printing.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

void BatchReviewTest::open(const QStringList &names) {
    items.clear();
    for (const QString &name : names)
        items.append({.subscription = sampleSubscription(name)});
    open();
}

void BatchReviewTest::open() {
    stage.reset();
    dismissed.reset();
    review.emplace(items, store, LocalizationManager::shared());
    dismissed.emplace(&*review, &BatchScanReviewModel::dismissed);
    stage.emplace(u"BatchScanReviewView"_s,
                  QVariantMap{{u"review"_s, QVariant::fromValue(&*review)}});
}

QQuickItem &BatchReviewTest::row(int number) {
    return stage->inSight(u"row%1"_s.arg(number));
}

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

INSTANTIATE_TEST_SUITE_P(, BatchReviewTest, bothLanguages(), languageName);

} // namespace tovarin
