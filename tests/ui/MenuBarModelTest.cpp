// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/MenuBarModel.h"

#include "app/LocalizationManager.h"
#include "model/Store.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/LanguageTest.h"
#include "tests/support/ManualClock.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

void PrintTo(const MenuBarModel::Row &row, std::ostream *out) {
    *out << row.name.toStdString() << " | " << row.daysText.toStdString() << " | "
         << row.amountText.toStdString();
}

namespace {

using Rows = QList<MenuBarModel::Row>;

class MenuBarModelTest : public LanguageTest {
protected:
    /// A monthly entry that is charged in so many days.
    void addDueIn(int days, const QString &name) {
        Subscription sub = sampleSubscription(name);
        sub.startDate = clock.now() + std::chrono::hours(24 * (days - 31));
        store.add(sub);
    }

    QTemporaryDir folder;
    LanguageScope language{GetParam()};
    // A month after a month of 31 days.
    ManualClock clock{instant("2025-06-10T04:00:00Z")};
    UserCalendar calendar = calendarIn("Asia/Shanghai");
    Store store{folder.path(), clock, calendar};
};

} // namespace

TEST_P(MenuBarModelTest, SaysThatThereIsNothing) {
    const MenuBarModel panel(store, LocalizationManager::shared());
    EXPECT_EQ(panel.monthlySpend(), pair(u"¥0"_s, u"$0"_s));
    EXPECT_EQ(panel.summary(), pair(u"每年约 ¥0 · 进行中 0 个"_s, u"≈$0/yr · 0 active"_s));
    EXPECT_EQ(panel.charges(), Rows());
    EXPECT_EQ(panel.rows(), QVariantList());
}

TEST_P(MenuBarModelTest, ShowsTheFirstFourChargesOfTheWeek) {
    addDueIn(6, u"six"_s);
    addDueIn(5, u"five"_s);
    addDueIn(0, u"zero"_s);
    addDueIn(1, u"one"_s);
    addDueIn(7, u"seven"_s);
    addDueIn(3, u"three"_s);
    addDueIn(8, u"eight"_s);
    const MenuBarModel panel(store, LocalizationManager::shared());
    EXPECT_EQ(panel.charges(), (Rows{{u"zero"_s, pair(u"今天"_s, u"Today"_s), u"-¥30"_s},
                                     {u"one"_s, pair(u"1天后"_s, u"1d"_s), u"-¥30"_s},
                                     {u"three"_s, pair(u"3天后"_s, u"3d"_s), u"-¥30"_s},
                                     {u"five"_s, pair(u"5天后"_s, u"5d"_s), u"-¥30"_s}}));
    EXPECT_EQ(panel.rows().value(1).toMap(),
              (QVariantMap{{u"name"_s, u"one"_s},
                           {u"daysText"_s, panel.charges()[1].daysText},
                           {u"amountText"_s, u"-¥30"_s}}));
}

TEST_P(MenuBarModelTest, SpeaksOfMoneyInItsOwnCurrency) {
    Subscription sub = sampleSubscription(u"Abroad"_s);
    sub.currency = u"EUR"_s;
    sub.amount = 9.99;
    sub.startDate = clock.now();
    store.add(sub);
    Subscription paused = sampleSubscription(u"Paused"_s);
    paused.isActive = false;
    store.add(paused);
    const MenuBarModel panel(store, LocalizationManager::shared());
    EXPECT_EQ(panel.monthlySpend(), pair(u"¥77.92"_s, u"$10.82"_s));
    EXPECT_EQ(panel.summary(),
              pair(u"每年约 ¥935.06 · 进行中 1 个"_s, u"≈$129.87/yr · 1 active"_s));
    EXPECT_EQ(panel.charges(), (Rows{{u"Abroad"_s, pair(u"今天"_s, u"Today"_s), u"-€9.99"_s}}));
}

TEST_P(MenuBarModelTest, FollowsTheListAndTheLanguage) {
    const MenuBarModel panel(store, LocalizationManager::shared());
    QSignalSpy changed(&panel, &MenuBarModel::changed);
    addDueIn(2, u"two"_s);
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(panel.charges().size(), 1);
    const LanguageScope other(otherLang());
    EXPECT_EQ(changed.size(), 2);
    EXPECT_EQ(panel.charges().first().daysText, pair(u"2d"_s, u"2天后"_s));
}

INSTANTIATE_TEST_SUITE_P(, MenuBarModelTest, bothLanguages(), languageName);

} // namespace tovarin
