// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/SubscriptionTexts.h"

#include "tests/support/LanguageScope.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <gtest/gtest.h>

#include <ostream>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

using Lang = LocalizationManager::Lang;

void PrintTo(const SubscriptionTexts &texts, std::ostream *out) {
    *out << QStringList{texts.name, texts.tag, texts.subtitle, texts.amountText, texts.monthlyText}
                .join(u" | "_s)
                .toStdString()
         << (texts.isActive ? " active" : " paused");
}

void PrintTo(const UpcomingTexts &texts, std::ostream *out) {
    *out << QStringList{texts.name, texts.amountText, texts.dueText}.join(u" | "_s).toStdString()
         << (texts.isToday ? " today" : "");
}

namespace {

struct Case {
    const char *what;
    Subscription sub;
    SubscriptionTexts english;
    SubscriptionTexts chinese;
};

/// All cases are read on 10 March 2025, 23:30 in Shanghai.
const Instant now = instant("2025-03-10T15:30:00Z");

Subscription monthly(std::string_view start) {
    return startingOn(start);
}

Subscription with(Subscription sub, const std::function<void(Subscription &)> &change) {
    change(sub);
    return sub;
}

QList<Case> cases() {
    const auto paused = [](Subscription &sub) { sub.isActive = false; };
    const auto oneTime = [](Subscription &sub) { sub.billingType = BillingType::oneTime; };
    const auto pausedOneTime = [&](Subscription &sub) {
        paused(sub);
        oneTime(sub);
    };
    return {
        {"active, due later",
         monthly("2025-01-14T16:00:00Z"),
         {u"Music Plus"_s,
          {},
          u"Music · Monthly · Charges 2025/03/15"_s,
          u"-¥30"_s,
          u"≈$4.17/mo"_s,
          true},
         {u"Music Plus"_s, {}, u"音乐 · 每月 · 2025/03/15 扣费"_s, u"-¥30"_s, u"≈¥30/月"_s, true}},
        {"active, due today",
         monthly("2025-01-09T16:00:00Z"),
         {u"Music Plus"_s,
          {},
          u"Music · Monthly · Charged today"_s,
          u"-¥30"_s,
          u"≈$4.17/mo"_s,
          true},
         {u"Music Plus"_s, {}, u"音乐 · 每月 · 今天扣费"_s, u"-¥30"_s, u"≈¥30/月"_s, true}},
        {"active, due tomorrow in the user's zone, today in UTC",
         monthly("2025-03-10T16:00:00Z"),
         {u"Music Plus"_s,
          {},
          u"Music · Monthly · Charges 2025/03/11"_s,
          u"-¥30"_s,
          u"≈$4.17/mo"_s,
          true},
         {u"Music Plus"_s, {}, u"音乐 · 每月 · 2025/03/11 扣费"_s, u"-¥30"_s, u"≈¥30/月"_s, true}},
        {"yearly, in dollars, with cents",
         with(startingOn("2024-06-01T00:00:00Z", BillingCycle::yearly),
              [](Subscription &sub) {
                  sub.currency = u"USD"_s;
                  sub.amount = 99.99;
                  sub.category = u"AI/工具"_s;
              }),
         {u"Music Plus"_s,
          {},
          u"AI & Tools · Yearly · Charges 2025/06/01"_s,
          u"-$99.99"_s,
          u"≈$8.33/mo"_s,
          true},
         {u"Music Plus"_s,
          {},
          u"AI/工具 · 每年 · 2025/06/01 扣费"_s,
          u"-$99.99"_s,
          u"≈¥59.99/月"_s,
          true}},
        {"unknown category and currency",
         with(startingOn("2025-03-08T00:00:00Z", BillingCycle::weekly),
              [](Subscription &sub) {
                  sub.currency = u"chf"_s;
                  sub.amount = 3;
                  sub.category = u"Boats"_s;
              }),
         {u"Music Plus"_s,
          {},
          u"Boats · Weekly · Charges 2025/03/15"_s,
          u"-chf3"_s,
          u"≈$1.81/mo"_s,
          true},
         {u"Music Plus"_s,
          {},
          u"Boats · 每周 · 2025/03/15 扣费"_s,
          u"-chf3"_s,
          u"≈¥13/月"_s,
          true}},
        {"no name",
         with(startingOn("2025-02-28T00:00:00Z", BillingCycle::quarterly),
              [](Subscription &sub) { sub.name.clear(); }),
         {u"Untitled"_s,
          {},
          u"Music · Quarterly · Charges 2025/05/28"_s,
          u"-¥30"_s,
          u"≈$1.39/mo"_s,
          true},
         {u"未命名"_s, {}, u"音乐 · 每季 · 2025/05/28 扣费"_s, u"-¥30"_s, u"≈¥10/月"_s, true}},
        {"a blank is a name",
         with(monthly("2025-03-11T00:00:00Z"), [](Subscription &sub) { sub.name = u" "_s; }),
         {u" "_s, {}, u"Music · Monthly · Charges 2025/03/11"_s, u"-¥30"_s, u"≈$4.17/mo"_s, true},
         {u" "_s, {}, u"音乐 · 每月 · 2025/03/11 扣费"_s, u"-¥30"_s, u"≈¥30/月"_s, true}},
        {"costs nothing",
         with(monthly("2025-03-11T00:00:00Z"), [](Subscription &sub) { sub.amount = 0; }),
         {u"Music Plus"_s,
          {},
          u"Music · Monthly · Charges 2025/03/11"_s,
          u"-¥0"_s,
          u"≈$0/mo"_s,
          true},
         {u"Music Plus"_s, {}, u"音乐 · 每月 · 2025/03/11 扣费"_s, u"-¥0"_s, u"≈¥0/月"_s, true}},
        {"paused, no next charge",
         with(monthly("2025-01-15T00:00:00Z"), paused),
         {u"Music Plus"_s, u"Paused"_s, u"Music · Monthly"_s, u"-¥30"_s, {}, false},
         {u"Music Plus"_s, u"已停用"_s, u"音乐 · 每月"_s, u"-¥30"_s, {}, false}},
        {"paused, starts later",
         with(monthly("2025-04-15T00:00:00Z"), paused),
         {u"Music Plus"_s,
          u"Paused"_s,
          u"Music · Monthly · Charges 2025/04/15"_s,
          u"-¥30"_s,
          {},
          false},
         {u"Music Plus"_s, u"已停用"_s, u"音乐 · 每月 · 2025/04/15 扣费"_s, u"-¥30"_s, {}, false}},
        {"one-time, past",
         with(monthly("2025-03-09T00:00:00Z"), oneTime),
         {u"Music Plus"_s, u"One-time"_s, u"Music"_s, u"-¥30"_s, {}, true},
         {u"Music Plus"_s, u"单次"_s, u"音乐"_s, u"-¥30"_s, {}, true}},
        {"one-time, today",
         with(monthly("2025-03-10T00:00:00Z"), oneTime),
         {u"Music Plus"_s, u"One-time"_s, u"Music · Charged today"_s, u"-¥30"_s, {}, true},
         {u"Music Plus"_s, u"单次"_s, u"音乐 · 今天扣费"_s, u"-¥30"_s, {}, true}},
        {"one-time, to come",
         with(monthly("2025-03-13T00:00:00Z"), oneTime),
         {u"Music Plus"_s, u"One-time"_s, u"Music · Charges 2025/03/13"_s, u"-¥30"_s, {}, true},
         {u"Music Plus"_s, u"单次"_s, u"音乐 · 2025/03/13 扣费"_s, u"-¥30"_s, {}, true}},
        {"paused and one-time has one tag",
         with(monthly("2025-03-09T00:00:00Z"), pausedOneTime),
         {u"Music Plus"_s, u"Paused"_s, u"Music"_s, u"-¥30"_s, {}, false},
         {u"Music Plus"_s, u"已停用"_s, u"音乐"_s, u"-¥30"_s, {}, false}},
    };
}

} // namespace

TEST(SubscriptionTexts, SayWhatTheEntryIs) {
    const UserCalendar calendar = calendarIn("Asia/Shanghai");
    for (const Case &c : cases()) {
        SCOPED_TRACE(c.what);
        {
            const LanguageScope english(Lang::en);
            EXPECT_EQ(subscriptionTexts(c.sub, now, calendar), c.english);
        }
        const LanguageScope chinese(Lang::zh);
        EXPECT_EQ(subscriptionTexts(c.sub, now, calendar), c.chinese);
    }
}

TEST(SubscriptionTexts, GiveGregorianDatesWhateverTheUsersCalendar) {
    const LanguageScope english(Lang::en);
    const UserCalendar calendar = calendarIn("Asia/Bangkok", "th_TH");
    EXPECT_EQ(subscriptionTexts(monthly("2025-03-20T00:00:00Z"), now, calendar).subtitle,
              u"Music · Monthly · Charges 2025/03/20"_s);
}

TEST(UpcomingTexts, SayWhenTheChargeIsDue) {
    const struct {
        int days;
        QString english;
        QString chinese;
        bool isToday;
    } due[] = {
        {0, u"Charged today"_s, u"今天扣费"_s, true},
        {1, u"in 1 days"_s, u"1 天后扣费"_s, false},
        {7, u"in 7 days"_s, u"7 天后扣费"_s, false},
    };
    Subscription sub = sampleSubscription(u"Harbour Radio"_s);
    sub.amount = 9.5;
    sub.currency = u"GBP"_s;
    for (const auto &[days, english, chinese, isToday] : due) {
        const Store::Upcoming upcoming = {sub, civilDay("2025-03-10"), days};
        {
            const LanguageScope scope(Lang::en);
            EXPECT_EQ(upcomingTexts(upcoming),
                      (UpcomingTexts{u"Harbour Radio"_s, u"£9.50"_s, english, isToday}));
        }
        const LanguageScope scope(Lang::zh);
        EXPECT_EQ(upcomingTexts(upcoming),
                  (UpcomingTexts{u"Harbour Radio"_s, u"£9.50"_s, chinese, isToday}));
    }
}

TEST(UpcomingTexts, GiveANameToWhatHasNone) {
    const Store::Upcoming upcoming = {sampleSubscription(QString()), civilDay("2025-03-10"), 0};
    {
        const LanguageScope english(Lang::en);
        EXPECT_EQ(upcomingTexts(upcoming).name, u"Untitled"_s);
    }
    const LanguageScope chinese(Lang::zh);
    EXPECT_EQ(upcomingTexts(upcoming).name, u"未命名"_s);
}

} // namespace tovarin
