// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "model/Format.h"
#include "model/Store.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/ManualClock.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using Lang = tovarin::LocalizationManager::Lang;

namespace tovarin {

namespace {

class StoreTotalsTest : public testing::Test {
protected:
    QTemporaryDir home;
    ManualClock clock{instant("2025-04-10T12:00:00Z")};
    UserCalendar calendar = calendarIn("UTC");
    Store store{home.path(), clock, calendar};
};

Subscription costing(double amount, const QString &currency,
                     BillingCycle cycle = BillingCycle::monthly) {
    Subscription sub = sampleSubscription();
    sub.amount = amount;
    sub.currency = currency;
    sub.cycle = cycle;
    return sub;
}

Subscription named(const QString &name, const char *start,
                   BillingCycle cycle = BillingCycle::monthly) {
    Subscription sub = startingOn(start, cycle);
    sub.name = name;
    return sub;
}

QStringList texts(const QList<Store::Upcoming> &due) {
    QStringList list;
    for (const Store::Upcoming &entry : due) {
        const std::chrono::year_month_day date(entry.date);
        list.append(u"%1 %2.%3. in %4"_s.arg(entry.sub.name)
                        .arg(unsigned(date.day()))
                        .arg(unsigned(date.month()))
                        .arg(entry.days));
    }
    return list;
}

} // namespace

TEST_F(StoreTotalsTest, AddMonthlyCostsInCnyInListOrder) {
    EXPECT_EQ(store.totalMonthlyCNY(), 0);
    store.addAll({costing(30, u"CNY"_s), costing(9.99, u"USD"_s),
                  costing(120, u"eur"_s, BillingCycle::yearly),
                  costing(10, u"GBP"_s, BillingCycle::weekly),
                  costing(1000, u"JPY"_s, BillingCycle::quarterly), costing(5, u"HKD"_s)});
    double expected = 0;
    expected += 30.0 * 1.0;
    expected += 9.99 * 7.2;
    expected += 120 * 0.08333333333333333 * 7.8;
    expected += 10 * 4.333333333333333 * 9.1;
    expected += 1000 * 0.3333333333333333 * 0.048;
    expected += 5 * 0.92;
    EXPECT_EQ(store.totalMonthlyCNY(), expected);
}

TEST_F(StoreTotalsTest, CountAnUnknownCurrencyAsCny) {
    store.add(costing(12, u"CHF"_s));
    EXPECT_EQ(store.totalMonthlyCNY(), 12);
}

TEST_F(StoreTotalsTest, LeaveOutPausedAndOneTimeEntries) {
    Subscription paused = costing(50, u"CNY"_s);
    paused.isActive = false;
    Subscription oneTime = costing(70, u"CNY"_s);
    oneTime.billingType = BillingType::oneTime;
    const Subscription active = costing(30, u"CNY"_s);
    store.addAll({paused, active, oneTime});
    EXPECT_EQ(store.totalMonthlyCNY(), 30);
    EXPECT_EQ(store.activeSubscriptions(), QList{active});
}

TEST_F(StoreTotalsTest, KeepTheListOrderOfActiveEntries) {
    const Subscription a = costing(1, u"CNY"_s);
    const Subscription b = costing(2, u"CNY"_s);
    store.addAll({b, a});
    EXPECT_EQ(store.activeSubscriptions(), (QList{b, a}));
}

TEST_F(StoreTotalsTest, ShowInTheCurrencyOfTheLanguageAtOnce) {
    store.add(costing(100, u"CNY"_s));
    const LanguageScope zh(Lang::zh);
    EXPECT_EQ(Format::base(store.totalMonthlyCNY()), u"¥100"_s);
    EXPECT_EQ(Format::base(store.totalMonthlyCNY() * 12), u"¥1200"_s);
    const LanguageScope en(Lang::en);
    EXPECT_EQ(Format::base(store.totalMonthlyCNY()), u"$13.89"_s);
    EXPECT_EQ(Format::base(store.totalMonthlyCNY() * 12), u"$166.67"_s);
}

TEST_F(StoreTotalsTest, ListWhatIsDueFromTodayToTheSeventhDay) {
    store.addAll(
        {named(u"seven"_s, "2025-01-17T00:00:00Z"), named(u"eight"_s, "2025-01-18T00:00:00Z"),
         named(u"yesterday"_s, "2025-01-09T00:00:00Z"), named(u"today"_s, "2025-01-10T00:00:00Z"),
         named(u"weekly"_s, "2025-04-09T00:00:00Z", BillingCycle::weekly),
         named(u"new"_s, "2025-04-13T00:00:00Z")});
    EXPECT_EQ(texts(store.upcoming(7)),
              (QStringList{u"today 10.4. in 0"_s, u"new 13.4. in 3"_s, u"weekly 16.4. in 6"_s,
                           u"seven 17.4. in 7"_s}));
    EXPECT_EQ(texts(store.upcoming(0)), QStringList{u"today 10.4. in 0"_s});
    EXPECT_EQ(texts(store.upcoming(-1)), QStringList());
}

TEST_F(StoreTotalsTest, ListOneTimeEntriesAheadAndNoPausedOnes) {
    Subscription oneTime = named(u"one-time"_s, "2025-04-13T00:00:00Z");
    oneTime.billingType = BillingType::oneTime;
    Subscription paused = oneTime;
    paused.isActive = false;
    Subscription past = named(u"past"_s, "2025-04-09T23:59:59Z");
    past.billingType = BillingType::oneTime;
    store.addAll({oneTime, paused, past});
    EXPECT_EQ(texts(store.upcoming(7)), QStringList{u"one-time 13.4. in 3"_s});
}

TEST_F(StoreTotalsTest, KeepTheListOrderOfEntriesDueOnOneDay) {
    store.addAll({named(u"d"_s, "2025-04-12T20:00:00Z"), named(u"b"_s, "2025-04-11T00:00:00Z"),
                  named(u"c"_s, "2025-04-12T08:00:00Z"), named(u"a"_s, "2025-04-12T00:00:00Z")});
    EXPECT_EQ(texts(store.upcoming(7)), (QStringList{u"b 11.4. in 1"_s, u"d 12.4. in 2"_s,
                                                     u"c 12.4. in 2"_s, u"a 12.4. in 2"_s}));
}

TEST_F(StoreTotalsTest, LeaveOutAChargeThatTheStepsDidNotReach) {
    store.add(named(u"old"_s, "1800-01-01T00:00:00Z", BillingCycle::weekly));
    EXPECT_EQ(texts(store.upcoming(7)), QStringList());
}

TEST_F(StoreTotalsTest, FollowTheClockAndTheZone) {
    store.add(named(u"entry"_s, "2025-04-17T00:00:00Z"));
    EXPECT_EQ(texts(store.upcoming(7)), QStringList{u"entry 17.4. in 7"_s});
    clock.set(instant("2025-04-09T23:59:59Z"));
    EXPECT_EQ(texts(store.upcoming(7)), QStringList());
    clock.set(instant("2025-04-17T23:59:59Z"));
    EXPECT_EQ(texts(store.upcoming(7)), QStringList{u"entry 17.4. in 0"_s});
    clock.set(instant("2025-04-18T00:00:00Z"));
    EXPECT_EQ(texts(store.upcoming(7)), QStringList());
    // Noon in UTC is the next day there; so is the start, which was midnight in UTC on the 17th.
    calendar = calendarIn("Pacific/Kiritimati");
    clock.set(instant("2025-04-10T12:00:00Z"));
    EXPECT_EQ(texts(store.upcoming(7)), QStringList{u"entry 17.4. in 6"_s});
}

TEST_F(StoreTotalsTest, AskTheClockOncePerActiveEntry) {
    Subscription paused = sampleSubscription();
    paused.isActive = false;
    store.addAll({sampleSubscription(), paused, sampleSubscription()});
    const int before = clock.readings();
    store.upcoming(7);
    EXPECT_EQ(clock.readings() - before, 2);
}

} // namespace tovarin
