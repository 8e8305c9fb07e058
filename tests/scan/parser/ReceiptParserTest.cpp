// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/parser/ReceiptParser.h"

#include "scan/parser/AmountFinder.h"
#include "scan/parser/CategoryGuess.h"
#include "scan/parser/CycleFinder.h"
#include "scan/parser/DateFinder.h"
#include "scan/parser/NameFinder.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/ManualClock.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::ReceiptParser {

namespace {

using Lang = LocalizationManager::Lang;

const Instant now = instant("2025-11-21T13:14:15Z") + std::chrono::milliseconds(678);

/// What the parser makes of nothing, but for its id.
Subscription nothingRecognised() {
    return {.id = {},
            .name = u""_s,
            .amount = 0,
            .currency = u"CNY"_s,
            .billingType = BillingType::recurring,
            .cycle = BillingCycle::monthly,
            .startDate = now,
            .category = u"其他"_s,
            .notes = u""_s,
            .isActive = true,
            .serviceID = std::nullopt};
}

/// The draft with an empty id in the place of its own, which is tested apart.
Subscription parsed(const QString &text, const UserCalendar &calendar) {
    const ManualClock clock(now);
    Subscription draft = parse(text, clock, calendar);
    EXPECT_FALSE(draft.id.isNull());
    draft.id = {};
    return draft;
}

Subscription parsed(const QString &text) {
    return parsed(text, calendarIn("Asia/Shanghai", "zh_CN"));
}

QString notesOf(const QString &text) {
    return parsed(text).notes;
}

} // namespace

TEST(Parse, MakesADraftOfNothing) {
    EXPECT_EQ(parsed(u""_s), nothingRecognised());
    EXPECT_EQ(parsed(QString()), nothingRecognised());
}

TEST(Parse, ReadsWholeBills) {
    const LanguageScope en(Lang::en);
    struct {
        QString text;
        Subscription draft;
    } const cases[] = {
        {u"Netflix Premium\n合计 ¥45.00\n2025-03-08"_s,
         {.id = {},
          .name = u"Netflix Premium"_s,
          .amount = 45,
          .currency = u"CNY"_s,
          .billingType = BillingType::recurring,
          .cycle = BillingCycle::monthly,
          .startDate = instant("2025-03-07T16:00:00Z"),
          .category = u"影音"_s,
          .notes = u"📷 Scanned text:\nNetflix Premium / 合计 ¥45.00 / 2025-03-08"_s,
          .isActive = true,
          .serviceID = std::nullopt}},
        // The same from another system's lines: their ends stay where they are.
        {u"Netflix Premium\r\n合计 ¥45.00\r\n2025-03-08\r\n"_s,
         {.id = {},
          .name = u"Netflix Premium\r"_s,
          .amount = 45,
          .currency = u"CNY"_s,
          .billingType = BillingType::recurring,
          .cycle = BillingCycle::monthly,
          .startDate = instant("2025-03-07T16:00:00Z"),
          .category = u"影音"_s,
          .notes = u"📷 Scanned text:\nNetflix Premium\r / 合计 ¥45.00\r / 2025-03-08\r"_s,
          .isActive = true,
          .serviceID = std::nullopt}},
        {u"Receipt\nHello Ann,\n\nStrava Premium   $79.99\nBilled annually\nSubtotal $79.99\n"
         u"Tax $0.00\nTotal $79.99\nNext charge: 2026/02/30"_s,
         {.id = {},
          .name = u"Strava Premium"_s,
          .amount = 79.99,
          .currency = u"USD"_s,
          .billingType = BillingType::recurring,
          .cycle = BillingCycle::yearly,
          .startDate = instant("2026-03-01T16:00:00Z"),
          .category = u"其他"_s,
          .notes = u"📷 Scanned text:\nReceipt / Hello Ann, / Strava Premium   $79.99 / "
                   u"Billed annually / Subtotal $79.99 / Tax $0.00"_s,
          .isActive = true,
          .serviceID = std::nullopt}},
        {u"您好\n百度网盘超级会员 6个月\n实付：￥ 148.5\n订单编号 e621e1f8-c36c-495a\n"
         u"支付时间 2025年3月8日 12:30"_s,
         {.id = {},
          .name = u"百度网盘超级会员 6个月"_s,
          .amount = 148.5,
          .currency = u"CNY"_s,
          .billingType = BillingType::recurring,
          .cycle = BillingCycle::quarterly,
          .startDate = instant("2025-03-07T16:00:00Z"),
          .category = u"云存储"_s,
          .notes = u"📷 Scanned text:\n您好 / 百度网盘超级会员 6个月 / 实付：￥ 148.5 / "
                   u"订单编号 e621e1f8-c36c-495a / 支付时间 2025年3月8日 12:30"_s,
          .isActive = true,
          .serviceID = std::nullopt}},
        {u"Affinity Photo\nlifetime licence, not monthly\nHK$78"_s,
         {.id = {},
          .name = u"Affinity Photo"_s,
          .amount = 78,
          .currency = u"USD"_s,
          .billingType = BillingType::oneTime,
          .cycle = BillingCycle::monthly,
          .startDate = now,
          .category = u"其他"_s,
          .notes = u"📷 Scanned text:\nAffinity Photo / lifetime licence, not monthly / HK$78"_s,
          .isActive = true,
          .serviceID = std::nullopt}},
        {u"健身卡 2025年3月8日"_s,
         {.id = {},
          .name = u"健身卡 2025年3月8日"_s,
          .amount = 0,
          .currency = u"CNY"_s,
          .billingType = BillingType::recurring,
          .cycle = BillingCycle::yearly,
          .startDate = instant("2025-03-07T16:00:00Z"),
          .category = u"其他"_s,
          .notes = u"📷 Scanned text:\n健身卡 2025年3月8日"_s,
          .isActive = true,
          .serviceID = std::nullopt}},
        // The category looks at all of the text, the name's line or not.
        {u"Some plan\npaid USD 5"_s,
         {.id = {},
          .name = u"Some plan"_s,
          .amount = 5,
          .currency = u"USD"_s,
          .billingType = BillingType::recurring,
          .cycle = BillingCycle::monthly,
          .startDate = now,
          .category = u"AI/工具"_s,
          .notes = u"📷 Scanned text:\nSome plan / paid USD 5"_s,
          .isActive = true,
          .serviceID = std::nullopt}},
    };
    for (const auto &[text, draft] : cases)
        EXPECT_EQ(parsed(text), draft) << text.toStdString();
}

TEST(Parse, GuessesTheCategoryFromTheCleanedNameAsWell) {
    // Only the name has the words side by side.
    const Subscription draft = parsed(u"PS ¥5Plus"_s);
    EXPECT_EQ(draft.name, u"PS Plus"_s);
    EXPECT_EQ(draft.category, u"游戏"_s);
}

TEST(Parse, GivesEveryDraftAnIdOfItsOwn) {
    const ManualClock clock(now);
    const UserCalendar calendar = calendarIn("UTC");
    const QUuid first = parse(u"Netflix"_s, clock, calendar).id;
    const QUuid second = parse(u"Netflix"_s, clock, calendar).id;
    EXPECT_FALSE(first.isNull());
    EXPECT_NE(first, second);
    EXPECT_EQ(first.version(), QUuid::Random);
}

TEST(Parse, AsksTheClockOnlyWithoutADate) {
    const ManualClock clock(now);
    const UserCalendar calendar = calendarIn("America/Sao_Paulo", "pt_BR");
    EXPECT_EQ(parse(u"2018-11-04"_s, clock, calendar).startDate, instant("2018-11-04T03:00:00Z"));
    EXPECT_EQ(clock.readings(), 0);
    EXPECT_EQ(parse(u"1899-11-04"_s, clock, calendar).startDate, now);
    EXPECT_EQ(clock.readings(), 1);
}

TEST(Parse, TakesNowForADateThatTheCalendarCannotName) {
    EXPECT_EQ(parsed(u"1950-01-01"_s, calendarIn("UTC", "he_IL@calendar=hebrew")).startDate, now);
}

TEST(Parse, StartsTheDayInTheUsersZoneAndCalendar) {
    const QString text = u"2025-03-08"_s;
    EXPECT_EQ(parsed(text, calendarIn("Pacific/Kiritimati")).startDate,
              instant("2025-03-07T10:00:00Z"));
    EXPECT_EQ(parsed(text, calendarIn("America/Sao_Paulo")).startDate,
              instant("2025-03-08T03:00:00Z"));
    EXPECT_EQ(parsed(u"2568-03-08 2025-03-08"_s, calendarIn("UTC", "th_TH")).startDate,
              instant("1482-03-17T00:00:00Z"));
}

TEST(Notes, HaveAHeadingInTheLanguageOfTheMoment) {
    const QString text = u"Netflix\n合计 ¥45"_s;
    {
        const LanguageScope zh(Lang::zh);
        EXPECT_EQ(notesOf(text), u"📷 识别原文：\nNetflix / 合计 ¥45"_s);
        EXPECT_EQ(notesOf(u""_s), u""_s);
    }
    const LanguageScope en(Lang::en);
    EXPECT_EQ(notesOf(text), u"📷 Scanned text:\nNetflix / 合计 ¥45"_s);
    EXPECT_EQ(notesOf(u""_s), u""_s);
}

TEST(Notes, KeepTheFirstSixLinesAsTheyAre) {
    const LanguageScope en(Lang::en);
    const QString heading = u"📷 Scanned text:\n"_s;
    struct {
        QString text;
        QString kept;
    } const cases[] = {
        {u"a"_s, u"a"_s},
        {u"\n"_s, u""_s},
        {u"\n\n\n"_s, u""_s},
        {u" "_s, u" "_s},
        {u"\na\n\nb\n"_s, u"a / b"_s},
        {u" a \n\tb\n \nc"_s, u" a  / \tb /   / c"_s},
        {u"a\rb\u2028c\u0085d"_s, u"a\rb\u2028c\u0085d"_s},
        {u"a\r\n\r\nb"_s, u"a\r / \r / b"_s},
        {u"1\n2\n3\n4\n5"_s, u"1 / 2 / 3 / 4 / 5"_s},
        {u"1\n2\n3\n4\n5\n6"_s, u"1 / 2 / 3 / 4 / 5 / 6"_s},
        {u"1\n2\n3\n4\n5\n6\n"_s, u"1 / 2 / 3 / 4 / 5 / 6"_s},
        {u"\n1\n\n2\n3\n4\n5\n\n6\n7\n8"_s, u"1 / 2 / 3 / 4 / 5 / 6"_s},
        {u"a / b\nc"_s, u"a / b / c"_s},
        {u"\xD83D\n\xDCF7"_s, u"\xD83D / \xDCF7"_s},
    };
    for (const auto &[text, kept] : cases)
        EXPECT_EQ(notesOf(text), heading + kept) << text.toStdString();
}

/// The expressions are shared, and made by whichever thread comes first.
TEST(Finders, RunInSeveralThreadsAtOnce) {
    const QString text = u"Netflix Premium\n合计 ¥45.00\n6个月\n2025-03-08"_s;
    std::vector<int> right(4);
    std::vector<std::thread> threads;
    for (int &count : right) {
        threads.emplace_back([&count, &text] {
            const UserCalendar calendar = calendarIn("UTC");
            for (int i = 0; i < 200; ++i) {
                count += detectAmount(text) == Amount{45, u"CNY"_s} &&
                         detectCycle(text) == BillingCycle::quarterly &&
                         detectDate(text, calendar) == instant("2025-03-08T00:00:00Z") &&
                         detectName(text) == u"Netflix Premium"_s &&
                         guessCategory(u""_s, text) == u"影音"_s;
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(right, std::vector<int>(4, 200));
}

} // namespace tovarin::ReceiptParser
