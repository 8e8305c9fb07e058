// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/SubscriptionDetailModel.h"

#include "platform/UserCalendar.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/LanguageTest.h"
#include "tests/support/ManualClock.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

using Change = std::function<void(Subscription &)>;

/// All that the sheet says, from its top to its bottom.
QStringList textsOf(const SubscriptionDetailModel &detail) {
    QStringList texts{detail.title(),        detail.name(),      detail.amountText(),
                      detail.dateText(),     detail.editTitle(), detail.toggleTitle(),
                      detail.toggleSymbol(), detail.copyTitle()};
    for (const auto &[label, value] : detail.details())
        texts.append(label + u": "_s + value);
    texts.append(detail.deleteTitle());
    return texts;
}

Subscription with(const Change &change) {
    Subscription sub = sampleSubscription();
    change(sub);
    return sub;
}

/// What a case makes of the monthly entry of 30 CNY that began on 1 March 2025, and how that reads
/// on 10 June 2025.
struct Case {
    const char *what;
    Change change;
    QStringList english;
    QStringList chinese;
};

QList<Case> cases() {
    return {
        {"recurring",
         [](Subscription &) {},
         {u"[ DETAILS ]"_s, u"Music Plus"_s, u"-¥30"_s, u"Next charge 2025/07/01"_s, u"Edit"_s,
          u"Pause"_s, u"pause"_s, u"Copy"_s, u"Billing: Subscription"_s, u"Cycle: Monthly"_s,
          u"Per month: $4.17"_s, u"Currency: CNY"_s, u"Status: Active"_s, u"Delete subscription"_s},
         {u"[ 详情 ]"_s, u"Music Plus"_s, u"-¥30"_s, u"下次扣费 2025/07/01"_s, u"编辑"_s, u"停用"_s,
          u"pause"_s, u"复制"_s, u"付费方式: 订阅续费"_s, u"续费周期: 每月"_s, u"折合每月: ¥30"_s,
          u"币种: CNY"_s, u"状态: 使用中"_s, u"删除这个订阅"_s}},
        {"one-time, still ahead",
         [](Subscription &sub) {
             sub.billingType = BillingType::oneTime;
             sub.startDate = instant("2025-06-11T00:00:00Z");
             sub.notes = u"a gift"_s;
         },
         {u"[ DETAILS ]"_s, u"Music Plus"_s, u"-¥30"_s, u"Purchased 2025/06/11"_s, u"Edit"_s,
          u"Pause"_s, u"pause"_s, u"Copy"_s, u"Billing: One-time"_s, u"Currency: CNY"_s,
          u"Status: Active"_s, u"Notes: a gift"_s, u"Delete subscription"_s},
         {u"[ 详情 ]"_s, u"Music Plus"_s, u"-¥30"_s, u"购买于 2025/06/11"_s, u"编辑"_s, u"停用"_s,
          u"pause"_s, u"复制"_s, u"付费方式: 单次买断"_s, u"币种: CNY"_s, u"状态: 使用中"_s,
          u"备注: a gift"_s, u"删除这个订阅"_s}},
        {"one-time, past",
         [](Subscription &sub) { sub.billingType = BillingType::oneTime; },
         {u"[ DETAILS ]"_s, u"Music Plus"_s, u"-¥30"_s, QString(), u"Edit"_s, u"Pause"_s,
          u"pause"_s, u"Copy"_s, u"Billing: One-time"_s, u"Currency: CNY"_s, u"Status: Active"_s,
          u"Delete subscription"_s},
         {u"[ 详情 ]"_s, u"Music Plus"_s, u"-¥30"_s, QString(), u"编辑"_s, u"停用"_s, u"pause"_s,
          u"复制"_s, u"付费方式: 单次买断"_s, u"币种: CNY"_s, u"状态: 使用中"_s,
          u"删除这个订阅"_s}},
        // It costs nothing per month, and says so.
        {"paused, without a name, with notes",
         [](Subscription &sub) {
             sub.isActive = false;
             sub.name = QString();
             sub.amount = 9.99;
             sub.currency = u"USD"_s;
             sub.cycle = BillingCycle::yearly;
             sub.notes = u" one\ntwo "_s;
         },
         {u"[ DETAILS ]"_s, u"Untitled"_s, u"-$9.99"_s, QString(), u"Edit"_s, u"Resume"_s,
          u"play"_s, u"Copy"_s, u"Billing: Subscription"_s, u"Cycle: Yearly"_s, u"Per month: $0"_s,
          u"Currency: USD"_s, u"Status: Paused"_s, u"Notes:  one\ntwo "_s,
          u"Delete subscription"_s},
         {u"[ 详情 ]"_s, u"未命名"_s, u"-$9.99"_s, QString(), u"编辑"_s, u"启用"_s, u"play"_s,
          u"复制"_s, u"付费方式: 订阅续费"_s, u"续费周期: 每年"_s, u"折合每月: ¥0"_s,
          u"币种: USD"_s, u"状态: 已停用"_s, u"备注:  one\ntwo "_s, u"删除这个订阅"_s}},
        {"paused, still ahead, in another currency",
         [](Subscription &sub) {
             sub.isActive = false;
             sub.startDate = instant("2025-06-10T00:00:00Z");
             sub.amount = 1234.5;
             sub.currency = u"EUR"_s;
             sub.cycle = BillingCycle::weekly;
         },
         {u"[ DETAILS ]"_s, u"Music Plus"_s, u"-€1234.50"_s, u"Next charge 2025/06/10"_s, u"Edit"_s,
          u"Resume"_s, u"play"_s, u"Copy"_s, u"Billing: Subscription"_s, u"Cycle: Weekly"_s,
          u"Per month: $0"_s, u"Currency: EUR"_s, u"Status: Paused"_s, u"Delete subscription"_s},
         {u"[ 详情 ]"_s, u"Music Plus"_s, u"-€1234.50"_s, u"下次扣费 2025/06/10"_s, u"编辑"_s,
          u"启用"_s, u"play"_s, u"复制"_s, u"付费方式: 订阅续费"_s, u"续费周期: 每周"_s,
          u"折合每月: ¥0"_s, u"币种: EUR"_s, u"状态: 已停用"_s, u"删除这个订阅"_s}},
        {"paused purchase",
         [](Subscription &sub) {
             sub.isActive = false;
             sub.billingType = BillingType::oneTime;
             sub.startDate = instant("2025-06-10T00:00:00Z");
         },
         {u"[ DETAILS ]"_s, u"Music Plus"_s, u"-¥30"_s, u"Purchased 2025/06/10"_s, u"Edit"_s,
          u"Resume"_s, u"play"_s, u"Copy"_s, u"Billing: One-time"_s, u"Currency: CNY"_s,
          u"Status: Paused"_s, u"Delete subscription"_s},
         {u"[ 详情 ]"_s, u"Music Plus"_s, u"-¥30"_s, u"购买于 2025/06/10"_s, u"编辑"_s, u"启用"_s,
          u"play"_s, u"复制"_s, u"付费方式: 单次买断"_s, u"币种: CNY"_s, u"状态: 已停用"_s,
          u"删除这个订阅"_s}},
        // A currency that nobody knows is its own sign, and counts as yuan. A name of blanks is
        // one.
        {"oddities",
         [](Subscription &sub) {
             sub.name = u"  "_s;
             sub.amount = -3;
             sub.currency = u"chf"_s;
             sub.cycle = BillingCycle::quarterly;
             sub.notes = u"\n"_s;
         },
         {u"[ DETAILS ]"_s, u"  "_s, u"-chf-3"_s, u"Next charge 2025/09/01"_s, u"Edit"_s,
          u"Pause"_s, u"pause"_s, u"Copy"_s, u"Billing: Subscription"_s, u"Cycle: Quarterly"_s,
          u"Per month: $-0.14"_s, u"Currency: chf"_s, u"Status: Active"_s, u"Notes: \n"_s,
          u"Delete subscription"_s},
         {u"[ 详情 ]"_s, u"  "_s, u"-chf-3"_s, u"下次扣费 2025/09/01"_s, u"编辑"_s, u"停用"_s,
          u"pause"_s, u"复制"_s, u"付费方式: 订阅续费"_s, u"续费周期: 每季"_s, u"折合每月: ¥-1"_s,
          u"币种: chf"_s, u"状态: 使用中"_s, u"备注: \n"_s, u"删除这个订阅"_s}},
    };
}

class SubscriptionDetailModelTest : public LanguageTest {
protected:
    SubscriptionDetailModel &show(const Subscription &sub) {
        return detail.emplace(sub, clock, calendar, LocalizationManager::shared(), logos);
    }

    static QString copied(const SubscriptionDetailModel &detail) {
        detail.copy();
        return QGuiApplication::clipboard()->text();
    }

    LanguageScope language{GetParam()};
    // The 10th in Shanghai.
    ManualClock clock{instant("2025-06-09T20:00:00Z")};
    UserCalendar calendar = calendarIn("Asia/Shanghai");
    ServiceLogo logos{Bundle(u":/resources"_s)};
    std::optional<SubscriptionDetailModel> detail;
};

} // namespace

TEST_P(SubscriptionDetailModelTest, SaysAllOfAnEntry) {
    for (const Case &each : cases())
        EXPECT_EQ(textsOf(show(with(each.change))), isZh() ? each.chinese : each.english)
            << each.what;
}

TEST_P(SubscriptionDetailModelTest, GivesItsRowsToTheScreen) {
    show(with([](Subscription &sub) {
        sub.billingType = BillingType::oneTime;
        sub.notes = u"n"_s;
    }));
    const auto row = [](const QString &label, const QString &value) -> QVariant {
        return QVariantMap{{u"label"_s, label}, {u"value"_s, value}};
    };
    EXPECT_EQ(
        detail->rows(),
        (QVariantList{row(pair(u"付费方式"_s, u"Billing"_s), pair(u"单次买断"_s, u"One-time"_s)),
                      row(pair(u"币种"_s, u"Currency"_s), u"CNY"_s),
                      row(pair(u"状态"_s, u"Status"_s), pair(u"使用中"_s, u"Active"_s)),
                      row(pair(u"备注"_s, u"Notes"_s), u"n"_s)}));
}

TEST_P(SubscriptionDetailModelTest, ShowsALogoOrALetter) {
    show(with([](Subscription &sub) { sub.name = u"netflix premium"_s; }));
    EXPECT_EQ(detail->logoID(), u"netflix"_s);
    show(with([](Subscription &sub) { sub.name = u" quillbird"_s; }));
    EXPECT_EQ(detail->logoID(), QString());
    EXPECT_EQ(detail->avatarLetter(), u"Q"_s);
    show(with([](Subscription &sub) { sub.name = QString(); }));
    EXPECT_EQ(detail->avatarLetter(), u"•"_s);
    EXPECT_TRUE(detail->isActive());
    show(with([](Subscription &sub) { sub.isActive = false; }));
    EXPECT_FALSE(detail->isActive());
}

TEST_P(SubscriptionDetailModelTest, CopiesOneLine) {
    struct {
        Change change;
        QString english;
        QString chinese;
    } const lines[] = {
        {[](Subscription &) {}, u"Music Plus ¥30 Monthly"_s, u"Music Plus ¥30 每月"_s},
        {[](Subscription &sub) {
             sub.amount = 9.99;
             sub.currency = u"USD"_s;
             sub.cycle = BillingCycle::yearly;
             sub.isActive = false;
             sub.notes = u"notes"_s;
         },
         u"Music Plus $9.99 Yearly"_s, u"Music Plus $9.99 每年"_s},
        {[](Subscription &sub) { sub.cycle = BillingCycle::weekly; }, u"Music Plus ¥30 Weekly"_s,
         u"Music Plus ¥30 每周"_s},
        {[](Subscription &sub) { sub.cycle = BillingCycle::quarterly; },
         u"Music Plus ¥30 Quarterly"_s, u"Music Plus ¥30 每季"_s},
        {[](Subscription &sub) {
             sub.billingType = BillingType::oneTime;
             sub.currency = u"HKD"_s;
         },
         u"Music Plus HK$30 One-time"_s, u"Music Plus HK$30 单次"_s},
        // The record's own name, even where it has none.
        {[](Subscription &sub) { sub.name = QString(); }, u" ¥30 Monthly"_s, u" ¥30 每月"_s},
        {[](Subscription &sub) { sub.name = u" <b>晨跑</b> "_s; }, u" <b>晨跑</b>  ¥30 Monthly"_s,
         u" <b>晨跑</b>  ¥30 每月"_s},
    };
    for (const auto &[change, english, chinese] : lines)
        EXPECT_EQ(copied(show(with(change))), pair(chinese, english));
}

TEST_P(SubscriptionDetailModelTest, LeavesNothingButTheLineOnTheClipboard) {
    auto *const before = new QMimeData;
    before->setHtml(u"<b>old</b>"_s);
    before->setImageData(QImage(2, 2, QImage::Format_RGB32));
    QGuiApplication::clipboard()->setMimeData(before);
    const Subscription sub = sampleSubscription();
    show(sub);
    QSignalSpy changes(&*detail, &SubscriptionDetailModel::changed);
    detail->copy();
    const QMimeData *const after = QGuiApplication::clipboard()->mimeData();
    EXPECT_EQ(after->formats(), QStringList{u"text/plain"_s});
    EXPECT_FALSE(after->hasHtml());
    EXPECT_FALSE(after->hasImage());
    EXPECT_EQ(after->text(), pair(u"Music Plus ¥30 每月"_s, u"Music Plus ¥30 Monthly"_s));
    EXPECT_EQ(changes.size(), 0);
    EXPECT_EQ(detail->subscription(), sub);
}

TEST_P(SubscriptionDetailModelTest, LeavesTheRestToOthers) {
    const Subscription sub = sampleSubscription();
    show(sub);
    QGuiApplication::clipboard()->setText(u"kept"_s);
    using Model = SubscriptionDetailModel;
    const QSignalSpy edited(&*detail, &Model::editRequested);
    const QSignalSpy toggled(&*detail, &Model::toggleRequested);
    const QSignalSpy deleted(&*detail, &Model::deleteRequested);
    const QSignalSpy dismissed(&*detail, &Model::dismissed);
    const QSignalSpy changed(&*detail, &Model::changed);
    const auto told = [&] {
        return QList<qsizetype>{edited.size(), toggled.size(), deleted.size(), dismissed.size(),
                                changed.size()};
    };
    detail->edit();
    EXPECT_EQ(told(), QList<qsizetype>({1, 0, 0, 0, 0}));
    detail->toggle();
    EXPECT_EQ(told(), QList<qsizetype>({1, 1, 0, 0, 0}));
    detail->deleteSubscription();
    EXPECT_EQ(told(), QList<qsizetype>({1, 1, 1, 0, 0}));
    detail->dismiss();
    EXPECT_EQ(told(), QList<qsizetype>({1, 1, 1, 1, 0}));
    EXPECT_EQ(detail->subscription(), sub);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"kept"_s);
}

TEST_P(SubscriptionDetailModelTest, ShowsTheRecordThatItIsGiven) {
    Subscription sub = sampleSubscription();
    show(sub);
    QSignalSpy changes(&*detail, &SubscriptionDetailModel::changed);
    detail->setSubscription(sub);
    EXPECT_EQ(changes.size(), 0);
    sub.isActive = false;
    detail->setSubscription(sub);
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(detail->toggleTitle(), pair(u"启用"_s, u"Resume"_s));
    EXPECT_EQ(detail->toggleSymbol(), u"play"_s);
    EXPECT_EQ(detail->details().last().value, pair(u"已停用"_s, u"Paused"_s));
    EXPECT_EQ(detail->dateText(), QString());
    sub.isActive = true;
    sub.name = u"Quillbird"_s;
    detail->setSubscription(sub);
    EXPECT_EQ(detail->toggleTitle(), pair(u"停用"_s, u"Pause"_s));
    EXPECT_EQ(detail->name(), u"Quillbird"_s);
    EXPECT_EQ(detail->subscription(), sub);
}

TEST_P(SubscriptionDetailModelTest, FollowsTheLanguage) {
    const Case recurring = cases().first();
    show(with(recurring.change));
    QSignalSpy changes(&*detail, &SubscriptionDetailModel::changed);
    const LanguageScope other(otherLang());
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(textsOf(*detail), isZh() ? recurring.english : recurring.chinese);
    EXPECT_EQ(copied(*detail), pair(u"Music Plus ¥30 Monthly"_s, u"Music Plus ¥30 每月"_s));
}

TEST_P(SubscriptionDetailModelTest, CountsInTheDaysOfTheUsersZone) {
    struct {
        const char *zone;
        const char *now;
        const char *start;
        QString day; ///< Empty where the day is past.
    } const purchases[] = {
        {"UTC", "2025-03-01T23:59:59Z", "2025-03-01T04:59:59Z", u"2025/03/01"_s},
        {"UTC", "2025-03-02T00:00:00Z", "2025-03-01T04:59:59Z", QString()},
        {"America/New_York", "2025-03-01T04:59:59Z", "2025-02-28T05:00:00Z", u"2025/02/28"_s},
        {"America/New_York", "2025-03-01T05:00:00Z", "2025-02-28T05:00:00Z", QString()},
        {"Pacific/Kiritimati", "2025-02-28T10:00:00Z", "2025-02-28T10:00:00Z", u"2025/03/01"_s},
        // A day without a midnight.
        {"America/Sao_Paulo", "2018-11-04T03:00:00Z", "2018-11-04T03:00:00Z", u"2018/11/04"_s},
        {"America/Sao_Paulo", "2018-11-05T02:00:00Z", "2018-11-04T03:00:00Z", QString()},
    };
    for (const auto &[zone, now, start, day] : purchases) {
        calendar = calendarIn(zone);
        clock.set(instant(now));
        Subscription sub = startingOn(start);
        sub.billingType = BillingType::oneTime;
        EXPECT_EQ(show(sub).dateText(),
                  day.isEmpty() ? QString() : pair(u"购买于 "_s, u"Purchased "_s) + day)
            << zone << ' ' << now;
    }
}

TEST_P(SubscriptionDetailModelTest, WritesEveryCalendarsDaysTheSameWay) {
    // Months of the Persian calendar, which begin on 21 April, 22 May and 22 June.
    calendar = calendarIn("Asia/Tehran", "fa_IR");
    EXPECT_EQ(show(startingOn("2025-03-21T00:00:00Z")).dateText(),
              pair(u"下次扣费 2025/06/22"_s, u"Next charge 2025/06/22"_s));
    // The day of the 31st is lost in February, for good.
    calendar = calendarIn("Asia/Shanghai");
    EXPECT_EQ(show(startingOn("2025-01-31T00:00:00Z")).dateText(),
              pair(u"下次扣费 2025/06/28"_s, u"Next charge 2025/06/28"_s));
}

TEST_P(SubscriptionDetailModelTest, MovesOnWithTheDay) {
    show(startingOn("2025-05-10T00:00:00Z"));
    EXPECT_EQ(detail->dateText(), pair(u"下次扣费 2025/06/10"_s, u"Next charge 2025/06/10"_s));
    QSignalSpy changes(&*detail, &SubscriptionDetailModel::changed);
    clock.set(instant("2025-06-10T16:00:00Z"));
    detail->noticeDay();
    EXPECT_EQ(changes.size(), 1);
    EXPECT_EQ(detail->dateText(), pair(u"下次扣费 2025/07/10"_s, u"Next charge 2025/07/10"_s));
    calendar = calendarIn("America/New_York");
    detail->noticeDay();
    EXPECT_EQ(changes.size(), 2);
    EXPECT_EQ(detail->dateText(), pair(u"下次扣费 2025/07/09"_s, u"Next charge 2025/07/09"_s));
}

INSTANTIATE_TEST_SUITE_P(, SubscriptionDetailModelTest, bothLanguages(), languageName);

} // namespace tovarin
