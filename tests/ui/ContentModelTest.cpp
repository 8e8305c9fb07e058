// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/ContentModel.h"

#include "model/Store.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/ManualClock.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

using Lang = LocalizationManager::Lang;

namespace {

Subscription entry(const QString &name, double amount, const QString &currency = u"CNY"_s) {
    Subscription sub = sampleSubscription(name);
    sub.amount = amount;
    sub.currency = currency;
    return sub;
}

Subscription paused(Subscription sub) {
    sub.isActive = false;
    return sub;
}

Subscription oneTime(Subscription sub, std::string_view day = "2025-01-01T00:00:00Z") {
    sub.billingType = BillingType::oneTime;
    sub.startDate = instant(day);
    return sub;
}

QStringList namesOf(const QList<Subscription> &subs) {
    QStringList names;
    for (const Subscription &sub : subs)
        names.append(sub.name);
    return names;
}

QStringList column(const QAbstractItemModel &model, const char *role) {
    QStringList values;
    for (int row = 0; row < model.rowCount(); ++row)
        values.append(model.index(row, 0).data(model.roleNames().key(role)).toString());
    return values;
}

class ContentModelTest : public testing::Test {
protected:
    ContentModelTest() {
        for (QAbstractItemModel *model :
             {static_cast<QAbstractItemModel *>(content.subscriptions()),
              static_cast<QAbstractItemModel *>(content.upcoming())})
            new QAbstractItemModelTester(
                model, QAbstractItemModelTester::FailureReportingMode::Fatal, model);
    }

    QTemporaryDir folder;
    LanguageScope english{Lang::en};
    ManualClock clock{instant("2025-03-10T02:00:00Z")};
    UserCalendar calendar = calendarIn("Asia/Shanghai");
    Store store{folder.path(), clock, calendar};
    ServiceLogo logos{Bundle(u":/resources"_s)};
    ContentModel content{store, clock, calendar, LocalizationManager::shared(), logos};
};

} // namespace

TEST_F(ContentModelTest, ShowsZerosForAnEmptyList) {
    EXPECT_TRUE(content.isEmpty());
    EXPECT_EQ(content.count(), 0);
    EXPECT_EQ(content.monthlySpend(), u"$0"_s);
    EXPECT_EQ(content.yearlySpend(), u"$0"_s);
    EXPECT_EQ(content.activeCount(), 0);
    EXPECT_EQ(content.dueCount(), 0);

    const LanguageScope chinese(Lang::zh);
    EXPECT_EQ(content.monthlySpend(), u"¥0"_s);
    EXPECT_EQ(content.yearlySpend(), u"¥0"_s);
}

TEST_F(ContentModelTest, AddsUpInTheCurrencyOfTheLanguage) {
    store.addAll({entry(u"a"_s, 20, u"USD"_s), entry(u"b"_s, 100), paused(entry(u"c"_s, 1000)),
                  oneTime(entry(u"d"_s, 1000)), entry(u"e"_s, 10, u"chf"_s)});
    EXPECT_EQ(content.monthlySpend(), u"$35.28"_s);
    EXPECT_EQ(content.yearlySpend(), u"$423.33"_s);
    EXPECT_EQ(content.activeCount(), 3);
    EXPECT_EQ(content.count(), 5);
    EXPECT_FALSE(content.isEmpty());

    const LanguageScope chinese(Lang::zh);
    EXPECT_EQ(content.monthlySpend(), u"¥254"_s);
    EXPECT_EQ(content.yearlySpend(), u"¥3048"_s);
    EXPECT_EQ(content.activeCount(), 3);
}

TEST_F(ContentModelTest, SortsActiveFirstThenByMonthlyCostInCNY) {
    Subscription yearly = entry(u"yearly 1200"_s, 1200);
    yearly.cycle = BillingCycle::yearly;
    store.addAll({paused(entry(u"paused 900"_s, 900)), entry(u"99"_s, 99), yearly,
                  entry(u"15 dollars"_s, 15, u"USD"_s), entry(u"2000 yen"_s, 2000, u"JPY"_s)});
    const QStringList expected = {u"15 dollars"_s, u"yearly 1200"_s, u"99"_s, u"2000 yen"_s,
                                  u"paused 900"_s};
    EXPECT_EQ(namesOf(content.sortedSubs()), expected);
    EXPECT_EQ(column(*content.subscriptions(), "name"), expected);
}

TEST_F(ContentModelTest, KeepsTheListOrderOfEquals) {
    store.addAll({paused(entry(u"p1"_s, 1)), oneTime(entry(u"o1"_s, 5)), entry(u"a1"_s, 30),
                  paused(entry(u"p2"_s, 900)), entry(u"a2"_s, 30), oneTime(entry(u"o2"_s, 900)),
                  paused(oneTime(entry(u"p3"_s, 7))), entry(u"free"_s, 0), entry(u"a3"_s, 30)});
    EXPECT_EQ(namesOf(content.sortedSubs()),
              (QStringList{u"a1"_s, u"a2"_s, u"a3"_s, u"o1"_s, u"o2"_s, u"free"_s, u"p1"_s, u"p2"_s,
                           u"p3"_s}));
}

TEST_F(ContentModelTest, LeavesTheStoresOwnOrderAlone) {
    store.addAll({entry(u"small"_s, 1), entry(u"large"_s, 2)});
    EXPECT_EQ(namesOf(content.sortedSubs()), (QStringList{u"large"_s, u"small"_s}));
    EXPECT_EQ(namesOf(store.subscriptions()), (QStringList{u"small"_s, u"large"_s}));
}

TEST_F(ContentModelTest, ListsWhatIsDueWithinSevenDays) {
    const auto on = [](const QString &name, std::string_view start) {
        Subscription sub = startingOn(start);
        sub.name = name;
        return sub;
    };
    store.addAll({on(u"in 8"_s, "2025-02-18T00:00:00Z"), on(u"in 7"_s, "2025-02-17T00:00:00Z"),
                  on(u"today"_s, "2025-02-10T00:00:00Z"), on(u"in 3"_s, "2025-02-13T00:00:00Z"),
                  oneTime(on(u"once in 3"_s, {"2025-03-13T00:00:00Z"}), "2025-03-13T00:00:00Z"),
                  paused(on(u"paused"_s, "2025-03-11T00:00:00Z"))});
    EXPECT_EQ(content.dueCount(), 4);
    EXPECT_EQ(column(*content.upcoming(), "name"),
              (QStringList{u"today"_s, u"in 3"_s, u"once in 3"_s, u"in 7"_s}));
    EXPECT_EQ(column(*content.upcoming(), "amountText"),
              (QStringList{u"¥30"_s, u"¥30"_s, u"¥30"_s, u"¥30"_s}));
    EXPECT_EQ(column(*content.upcoming(), "dueText"),
              (QStringList{u"Charged today"_s, u"in 3 days"_s, u"in 3 days"_s, u"in 7 days"_s}));
    EXPECT_EQ(column(*content.upcoming(), "isToday"),
              (QStringList{u"true"_s, u"false"_s, u"false"_s, u"false"_s}));
}

TEST_F(ContentModelTest, GivesEveryTextOfARowToTheView) {
    store.addAll({entry(u"Kept"_s, 12.5), paused(entry(QString(), 8, u"EUR"_s))});
    const SubscriptionListModel &rows = *content.subscriptions();
    EXPECT_EQ(column(rows, "name"), (QStringList{u"Kept"_s, u"Untitled"_s}));
    EXPECT_EQ(column(rows, "tag"), (QStringList{QString(), u"Paused"_s}));
    EXPECT_EQ(column(rows, "subtitle"),
              (QStringList{u"Music · Monthly · Charges 2025/04/01"_s, u"Music · Monthly"_s}));
    EXPECT_EQ(column(rows, "amountText"), (QStringList{u"-¥12.50"_s, u"-€8"_s}));
    EXPECT_EQ(column(rows, "monthlyText"), (QStringList{u"≈$1.74/mo"_s, QString()}));
    EXPECT_EQ(column(rows, "isActive"), (QStringList{u"true"_s, u"false"_s}));
}

TEST_F(ContentModelTest, GivesEveryRowItsIcon) {
    Subscription evenings = entry(u"Evenings"_s, 7);
    evenings.serviceID = u"spotify"_s;
    store.addAll({entry(u"netflix premium"_s, 9), entry(u"  zoom"_s, 8), evenings,
                  // In the catalog, but without a logo: the letter, not the symbol.
                  entry(u"优酷 VIP"_s, 6), entry(QString(), 5)});
    const QStringList logoIDs = {u"netflix"_s, QString(), u"spotify"_s, QString(), QString()};
    const QStringList letters = {u"N"_s, u"Z"_s, u"E"_s, u"优"_s, u"•"_s};
    EXPECT_EQ(column(*content.subscriptions(), "logoID"), logoIDs);
    EXPECT_EQ(column(*content.subscriptions(), "avatarLetter"), letters);
}

TEST_F(ContentModelTest, GivesEveryChargeItsIcon) {
    Subscription netflix = startingOn("2025-03-12T04:00:00Z");
    netflix.name = u"Netflix"_s;
    Subscription zoom = startingOn("2025-03-13T04:00:00Z");
    zoom.name = u"zoom"_s;
    store.addAll({zoom, netflix});
    EXPECT_EQ(column(*content.upcoming(), "logoID"), QStringList({u"netflix"_s, QString()}));
    EXPECT_EQ(column(*content.upcoming(), "avatarLetter"), QStringList({u"N"_s, u"Z"_s}));
}

TEST_F(ContentModelTest, FollowsEveryChangeOfTheList) {
    QSignalSpy changed(&content, &ContentModel::changed);
    Subscription sub = entry(u"First"_s, 72);
    store.add(sub);
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(content.monthlySpend(), u"$10"_s);

    sub.name = u"Renamed"_s;
    store.update(sub);
    EXPECT_EQ(column(*content.subscriptions(), "name"), QStringList{u"Renamed"_s});

    store.toggleActive(sub);
    EXPECT_EQ(content.monthlySpend(), u"$0"_s);
    EXPECT_EQ(content.activeCount(), 0);
    EXPECT_EQ(column(*content.subscriptions(), "tag"), QStringList{u"Paused"_s});

    store.deleteSubscription(sub);
    EXPECT_TRUE(content.isEmpty());
    EXPECT_EQ(content.subscriptions()->rowCount(), 0);
    EXPECT_EQ(changed.count(), 4);
}

TEST_F(ContentModelTest, AnnouncesNewTextsInPlaceWhileTheNumberOfRowsStays) {
    store.addAll({entry(u"a"_s, 2), entry(u"b"_s, 1)});
    QSignalSpy reset(content.subscriptions(), &QAbstractItemModel::modelReset);
    QSignalSpy texts(content.subscriptions(), &QAbstractItemModel::dataChanged);
    const LanguageScope chinese(Lang::zh);
    EXPECT_EQ(reset.count(), 0);
    ASSERT_EQ(texts.count(), 1);
    EXPECT_EQ(texts.first().at(0).toModelIndex().row(), 0);
    EXPECT_EQ(texts.first().at(1).toModelIndex().row(), 1);

    store.add(entry(u"c"_s, 3));
    EXPECT_EQ(reset.count(), 1);
}

TEST_F(ContentModelTest, FollowsTheLanguage) {
    Subscription sub = entry(QString(), 72);
    sub.startDate = instant("2025-03-12T00:00:00Z");
    store.add(sub);
    EXPECT_EQ(column(*content.subscriptions(), "monthlyText"), QStringList{u"≈$10/mo"_s});
    EXPECT_EQ(column(*content.upcoming(), "dueText"), QStringList{u"in 2 days"_s});

    QSignalSpy changed(&content, &ContentModel::changed);
    {
        const LanguageScope chinese(Lang::zh);
        EXPECT_EQ(changed.count(), 1);
        EXPECT_EQ(content.monthlySpend(), u"¥72"_s);
        EXPECT_EQ(content.yearlySpend(), u"¥864"_s);
        EXPECT_EQ(column(*content.subscriptions(), "name"), QStringList{u"未命名"_s});
        EXPECT_EQ(column(*content.subscriptions(), "subtitle"),
                  QStringList{u"音乐 · 每月 · 2025/03/12 扣费"_s});
        EXPECT_EQ(column(*content.subscriptions(), "monthlyText"), QStringList{u"≈¥72/月"_s});
        EXPECT_EQ(column(*content.upcoming(), "name"), QStringList{u"未命名"_s});
        EXPECT_EQ(column(*content.upcoming(), "dueText"), QStringList{u"2 天后扣费"_s});
    }
    EXPECT_EQ(content.monthlySpend(), u"$10"_s);
}

TEST_F(ContentModelTest, ShowsAnotherDayInTheUsersZone) {
    store.add(startingOn("2025-03-12T00:00:00Z"));
    QSignalSpy changed(&content, &ContentModel::changed);

    clock.set(instant("2025-03-10T15:59:59Z"));
    content.noticeDay();
    EXPECT_EQ(column(*content.upcoming(), "dueText"), QStringList{u"in 2 days"_s});

    clock.set(instant("2025-03-10T16:00:00Z"));
    content.noticeDay();
    EXPECT_EQ(changed.count(), 2);
    EXPECT_EQ(column(*content.upcoming(), "dueText"), QStringList{u"in 1 days"_s});

    clock.set(instant("2025-03-12T00:00:00Z"));
    content.noticeDay();
    EXPECT_EQ(column(*content.upcoming(), "dueText"), QStringList{u"Charged today"_s});
    EXPECT_EQ(column(*content.subscriptions(), "subtitle"),
              QStringList{u"Music · Monthly · Charged today"_s});
}

TEST_F(ContentModelTest, ShowsTheListThatWasThereBefore) {
    store.add(entry(u"Stored"_s, 36));
    const Store reopened(folder.path(), clock, calendar);
    ContentModel later(reopened, clock, calendar, LocalizationManager::shared(), logos);
    EXPECT_EQ(later.count(), 1);
    EXPECT_EQ(later.monthlySpend(), u"$5"_s);
}

TEST_F(ContentModelTest, HasNothingToSayAboutRowsAndRolesThatDoNotExist) {
    store.add(startingOn("2025-03-12T00:00:00Z"));
    for (const QAbstractItemModel *model :
         {static_cast<const QAbstractItemModel *>(content.subscriptions()),
          static_cast<const QAbstractItemModel *>(content.upcoming())}) {
        EXPECT_FALSE(model->index(1, 0).isValid());
        EXPECT_FALSE(model->data({}, Qt::DisplayRole).isValid());
        EXPECT_FALSE(model->index(0, 0).data(Qt::UserRole + 100).isValid());
        EXPECT_EQ(model->rowCount(model->index(0, 0)), 0);
    }
}

} // namespace tovarin
