// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/BatchScanReviewModel.h"

#include "model/Store.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/LanguageTest.h"
#include "tests/support/ManualClock.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <QAbstractItemModelTester>
#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

using Review = BatchScanReviewModel;

namespace {

class BatchScanReviewModelTest : public LanguageTest {
protected:
    /// A review of drafts with these names.
    Review &open(const QStringList &names) {
        items.clear();
        for (const QString &name : names)
            items.append({.subscription = sampleSubscription(name)});
        return open();
    }
    Review &open() {
        review.emplace(items, store, LocalizationManager::shared());
        tester.emplace(&*review, QAbstractItemModelTester::FailureReportingMode::Fatal);
        return *review;
    }

    QStringList countersAndButton() const {
        return {review->counterText(), review->confirmTitle(),
                review->canConfirm() ? u"enabled"_s : u"disabled"_s};
    }
    QVariant at(int row, int role) const { return review->index(row).data(role); }
    QByteArray file() const {
        QFile onDisk(folder.filePath(u"Tovarin/subscriptions.json"_s));
        return onDisk.open(QIODevice::ReadOnly) ? onDisk.readAll() : QByteArray("none");
    }

    QTemporaryDir folder;
    LanguageScope language{GetParam()};
    ManualClock clock{instant("2025-06-09T20:00:00Z")};
    UserCalendar calendar = calendarIn("Asia/Shanghai");
    Store store{folder.path(), clock, calendar};
    QList<ScanDraftItem> items;
    std::optional<Review> review;
    std::optional<QAbstractItemModelTester> tester;
};

} // namespace

TEST(ScanDraftItem, IsIncludedAndHasAnIdOfItsOwn) {
    const Subscription draft = sampleSubscription();
    const ScanDraftItem one{.subscription = draft};
    const ScanDraftItem other{.subscription = draft};
    EXPECT_TRUE(one.isIncluded);
    EXPECT_EQ(one.subscription, draft);
    EXPECT_FALSE(one.id.isNull());
    EXPECT_NE(one.id, draft.id);
    EXPECT_NE(one, other);
}

TEST_P(BatchScanReviewModelTest, SaysWhatItIsFor) {
    open({});
    EXPECT_EQ(review->title(), pair(u"[ 批量识别结果 ]"_s, u"[ BATCH SCAN ]"_s));
    EXPECT_EQ(review->subtitle(), pair(u"勾选要添加的项，可改名称和金额"_s,
                                       u"Select items to add; edit name or amount"_s));
    EXPECT_EQ(review->emptyText(), pair(u"没有识别到有效内容"_s, u"Nothing recognized"_s));
    EXPECT_EQ(review->cancelTitle(), pair(u"取消"_s, u"Cancel"_s));
    EXPECT_EQ(review->count(), 0);
    EXPECT_EQ(countersAndButton(), (QStringList{pair(u"[ 0/0 项 ]"_s, u"[ 0/0 ]"_s),
                                                pair(u"添加 0 项"_s, u"Add 0"_s), u"disabled"_s}));
}

TEST_P(BatchScanReviewModelTest, HasARowForEachDraft) {
    items = {{.subscription = startingOn("2025-01-01T00:00:00Z", BillingCycle::weekly)},
             {.subscription = startingOn("2025-01-01T00:00:00Z", BillingCycle::monthly)},
             {.subscription = startingOn("2025-01-01T00:00:00Z", BillingCycle::quarterly)},
             {.subscription = startingOn("2025-01-01T00:00:00Z", BillingCycle::yearly)}};
    items[1].subscription.name = QString();
    items[1].subscription.amount = 0;
    items[2].subscription.name = u" "_s;
    items[2].isIncluded = false;
    items[3].subscription.amount = -1.5;
    open();
    struct {
        bool isIncluded;
        QString name;
        bool lacksName;
        double amount;
        QString cycle;
    } const rows[] = {{true, u"Music Plus"_s, false, 30, pair(u"每周"_s, u"Weekly"_s)},
                      {true, QString(), true, 0, pair(u"每月"_s, u"Monthly"_s)},
                      {false, u" "_s, false, 30, pair(u"每季"_s, u"Quarterly"_s)},
                      {true, u"Music Plus"_s, false, -1.5, pair(u"每年"_s, u"Yearly"_s)}};
    ASSERT_EQ(review->rowCount(), 4);
    EXPECT_EQ(review->rowCount(review->index(0)), 0);
    for (int row = 0; row < 4; ++row) {
        EXPECT_EQ(at(row, Review::IsIncludedRole), rows[row].isIncluded) << row;
        EXPECT_EQ(at(row, Review::NameRole), rows[row].name) << row;
        EXPECT_EQ(at(row, Qt::DisplayRole), rows[row].name) << row;
        EXPECT_EQ(at(row, Review::LacksNameRole), rows[row].lacksName) << row;
        EXPECT_EQ(at(row, Review::AmountRole), rows[row].amount) << row;
        EXPECT_EQ(at(row, Review::CycleLabelRole), rows[row].cycle) << row;
        EXPECT_EQ(at(row, Qt::DecorationRole), QVariant()) << row;
    }
    EXPECT_EQ(review->data({}, Review::NameRole), QVariant());
    EXPECT_EQ(review->roleNames(),
              (QHash<int, QByteArray>{{Review::IsIncludedRole, "isIncluded"},
                                      {Review::NameRole, "name"},
                                      {Review::LacksNameRole, "lacksName"},
                                      {Review::AmountRole, "amount"},
                                      {Review::CycleLabelRole, "cycleLabel"}}));
}

TEST_P(BatchScanReviewModelTest, CountsWhatIsTicked) {
    open({u"a"_s, u"b"_s, u"c"_s});
    QSignalSpy counted(&*review, &Review::includedChanged);
    EXPECT_EQ(countersAndButton(), (QStringList{pair(u"[ 3/3 项 ]"_s, u"[ 3/3 ]"_s),
                                                pair(u"添加 3 项"_s, u"Add 3"_s), u"enabled"_s}));
    review->setIncluded(1, false);
    EXPECT_EQ(counted.size(), 1);
    EXPECT_EQ(countersAndButton(), (QStringList{pair(u"[ 2/3 项 ]"_s, u"[ 2/3 ]"_s),
                                                pair(u"添加 2 项"_s, u"Add 2"_s), u"enabled"_s}));
    EXPECT_EQ(review->included(), (QList{items[0].subscription, items[2].subscription}));
    review->setIncluded(0, false);
    review->setIncluded(2, false);
    EXPECT_EQ(counted.size(), 3);
    EXPECT_EQ(countersAndButton(), (QStringList{pair(u"[ 0/3 项 ]"_s, u"[ 0/3 ]"_s),
                                                pair(u"添加 0 项"_s, u"Add 0"_s), u"disabled"_s}));
    review->setIncluded(0, false);
    EXPECT_EQ(counted.size(), 3);
    review->setIncluded(2, true);
    EXPECT_EQ(countersAndButton(), (QStringList{pair(u"[ 1/3 项 ]"_s, u"[ 1/3 ]"_s),
                                                pair(u"添加 1 项"_s, u"Add 1"_s), u"enabled"_s}));
}

TEST_P(BatchScanReviewModelTest, CountsAlsoWhatCannotBeStored) {
    open({QString(), u"b"_s});
    review->setAmount(1, 0);
    EXPECT_EQ(countersAndButton(), (QStringList{pair(u"[ 2/2 项 ]"_s, u"[ 2/2 ]"_s),
                                                pair(u"添加 2 项"_s, u"Add 2"_s), u"enabled"_s}));
    EXPECT_EQ(review->included(), (QList{items[0].subscription, items[1].subscription}));
}

TEST_P(BatchScanReviewModelTest, ChangesTheCallersItemsInPlace) {
    open({u"a"_s, u"b"_s});
    const QList<ScanDraftItem> before = items;
    QSignalSpy changes(&*review, &Review::dataChanged);
    const auto lastChange = [&changes] {
        return std::pair(changes.last()[0].toModelIndex().row(),
                         changes.last()[2].value<QList<int>>());
    };

    review->setName(1, u" x\n"_s);
    EXPECT_EQ(items[1].subscription.name, u" x\n"_s);
    EXPECT_EQ(lastChange(),
              std::pair(1, (QList<int>{Qt::DisplayRole, Review::NameRole, Review::LacksNameRole})));
    review->setAmount(1, 12.5);
    EXPECT_EQ(items[1].subscription.amount, 12.5);
    EXPECT_EQ(lastChange(), std::pair(1, QList<int>{Review::AmountRole}));
    review->setIncluded(1, false);
    EXPECT_FALSE(items[1].isIncluded);
    EXPECT_EQ(lastChange(), std::pair(1, QList<int>{Review::IsIncludedRole}));
    EXPECT_EQ(changes.size(), 3);
    for (const QList<QVariant> &change : changes)
        EXPECT_EQ(change[0], change[1]);

    // Nothing else is another now.
    ScanDraftItem expected = before[1];
    expected.isIncluded = false;
    expected.subscription.name = u" x\n"_s;
    expected.subscription.amount = 12.5;
    EXPECT_EQ(items, (QList{before[0], expected}));

    review->setName(1, u" x\n"_s);
    review->setAmount(1, 12.5);
    review->setIncluded(1, false);
    EXPECT_EQ(changes.size(), 3);
}

TEST_P(BatchScanReviewModelTest, KnowsNoRowBeyondItsOwn) {
    open({u"a"_s});
    const QList<ScanDraftItem> before = items;
    QSignalSpy changes(&*review, &Review::dataChanged);
    QSignalSpy counted(&*review, &Review::includedChanged);
    for (const int row :
         {-1, 1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        review->setName(row, u"x"_s);
        review->setAmount(row, 1);
        review->setIncluded(row, false);
    }
    EXPECT_EQ(items, before);
    EXPECT_EQ(changes.size(), 0);
    EXPECT_EQ(counted.size(), 0);
}

TEST_P(BatchScanReviewModelTest, AddsWhatIsTickedInItsOrder) {
    const Subscription old = sampleSubscription(u"old"_s);
    store.add(old);
    open({u"c"_s, u"b"_s, u"a"_s});
    items[0].subscription.notes = u"the text of the bill\n"_s;
    items[2].subscription.serviceID = u"netflix"_s;
    items[2].subscription.billingType = BillingType::oneTime;
    const QList<ScanDraftItem> before = items;
    review->setIncluded(1, false);
    QSignalSpy dismissed(&*review, &Review::dismissed);
    QSignalSpy stored(&store, &Store::subscriptionsDidChange);
    review->save();
    EXPECT_EQ(dismissed.size(), 1);
    EXPECT_EQ(stored.size(), 1);
    const QList<Subscription> expected{old, before[0].subscription, before[2].subscription};
    EXPECT_EQ(store.subscriptions(), expected);
    EXPECT_EQ(Store(folder.path(), clock, calendar).subscriptions(), expected);
}

TEST_P(BatchScanReviewModelTest, LeavesOutWhatHasNoNameOrNoAmount) {
    struct {
        QString name;
        double amount;
        bool isAdded;
    } const drafts[] = {
        {u"a"_s, 0.001, true}, {QString(), 5, false},
        {u"   "_s, 5, false},  {u"\t\u00A0\u3000\u2003"_s, 5, false},
        {u"\n"_s, 5, true}, // a line break is no blank
        {u"b"_s, 0, false},    {u"b"_s, -0.0, false},
        {u"b"_s, -5, false},   {u"b"_s, std::numeric_limits<double>::quiet_NaN(), false},
        {u" \tc "_s, 5, true},
    };
    QList<QUuid> expected;
    items.clear();
    for (const auto &[name, amount, isAdded] : drafts) {
        items.append({.subscription = sampleSubscription(name)});
        items.last().subscription.amount = amount;
        if (isAdded)
            expected.append(items.last().subscription.id);
    }
    open().save();
    QList<QUuid> added;
    for (const Subscription &sub : store.subscriptions())
        added.append(sub.id);
    EXPECT_EQ(added, expected);
    // As it was typed.
    EXPECT_EQ(store.subscriptions().last().name, u" \tc "_s);
}

TEST_P(BatchScanReviewModelTest, DoesNothingWhereNothingIsLeft) {
    open({u" "_s, u"b"_s, u"c"_s});
    review->setAmount(1, 0);
    review->setIncluded(2, false);
    QSignalSpy dismissed(&*review, &Review::dismissed);
    QSignalSpy stored(&store, &Store::subscriptionsDidChange);
    review->save();
    review->setIncluded(0, false);
    review->setIncluded(1, false);
    review->save();
    open({});
    QSignalSpy dismissedEmpty(&*review, &Review::dismissed);
    review->save();
    EXPECT_EQ(dismissed.size() + dismissedEmpty.size(), 0);
    EXPECT_EQ(stored.size(), 0);
    EXPECT_EQ(store.subscriptions().size(), 0);
    EXPECT_EQ(file(), QByteArray("none"));
}

TEST_P(BatchScanReviewModelTest, KeepsTheEditsOfACancelledReview) {
    open({u"a"_s, u"b"_s});
    review->setName(0, u"x"_s);
    review->setAmount(1, 7);
    review->setIncluded(1, false);
    QSignalSpy dismissed(&*review, &Review::dismissed);
    review->cancel();
    EXPECT_EQ(dismissed.size(), 1);
    EXPECT_EQ(store.subscriptions().size(), 0);
    EXPECT_EQ(file(), QByteArray("none"));
    tester.reset();
    review.reset();
    open();
    EXPECT_EQ(at(0, Review::NameRole), u"x"_s);
    EXPECT_EQ(at(1, Review::AmountRole), 7);
    EXPECT_EQ(at(1, Review::IsIncludedRole), false);
    EXPECT_EQ(review->counterText(), pair(u"[ 1/2 项 ]"_s, u"[ 1/2 ]"_s));
}

TEST_P(BatchScanReviewModelTest, FollowsTheLanguage) {
    open({u"a"_s, u"b"_s});
    QSignalSpy texts(&*review, &Review::languageChanged);
    QSignalSpy counted(&*review, &Review::includedChanged);
    QSignalSpy changes(&*review, &Review::dataChanged);
    const LanguageScope other(otherLang());
    EXPECT_EQ(texts.size(), 1);
    EXPECT_EQ(counted.size(), 1);
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex().row(), 0);
    EXPECT_EQ(changes[0][1].toModelIndex().row(), 1);
    EXPECT_EQ(changes[0][2].value<QList<int>>(), QList<int>{Review::CycleLabelRole});
    EXPECT_EQ(review->title(), pair(u"[ BATCH SCAN ]"_s, u"[ 批量识别结果 ]"_s));
    EXPECT_EQ(review->counterText(), pair(u"[ 2/2 ]"_s, u"[ 2/2 项 ]"_s));
    EXPECT_EQ(review->confirmTitle(), pair(u"Add 2"_s, u"添加 2 项"_s));
    EXPECT_EQ(at(0, Review::CycleLabelRole), pair(u"Monthly"_s, u"每月"_s));
}

TEST_P(BatchScanReviewModelTest, FollowsTheLanguageWithoutRows) {
    open({});
    QSignalSpy changes(&*review, &Review::dataChanged);
    const LanguageScope other(otherLang());
    EXPECT_EQ(changes.size(), 0);
    EXPECT_EQ(review->emptyText(), pair(u"Nothing recognized"_s, u"没有识别到有效内容"_s));
}

INSTANTIATE_TEST_SUITE_P(, BatchScanReviewModelTest, bothLanguages(), languageName);

} // namespace tovarin
