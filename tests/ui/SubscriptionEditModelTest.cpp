// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/SubscriptionEditModel.h"

#include "model/Store.h"
#include "platform/UserMonths.h"
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

namespace {

class SubscriptionEditModelTest : public LanguageTest {
protected:
    /// A form that has appeared.
    SubscriptionEditModel &opened(SubscriptionEditModel::Source source = {}) {
        make(std::move(source));
        form->populate();
        return *form;
    }
    void make(SubscriptionEditModel::Source source = {}) {
        form.emplace(std::move(source), store, clock, calendar, months,
                     LocalizationManager::shared());
    }

    /// An entry none of whose fields is what a new form has.
    static Subscription unlikeTheDefaults() {
        Subscription sub = sampleSubscription(u"Quillbird"_s);
        sub.amount = 9.99;
        sub.currency = u"EUR"_s;
        sub.billingType = BillingType::oneTime;
        sub.cycle = BillingCycle::yearly;
        sub.startDate = instant("2025-01-31T15:30:00Z");
        sub.category = u"阅读"_s;
        sub.notes = u" two\nlines "_s;
        sub.isActive = false;
        sub.serviceID = u"quillbird"_s;
        return sub;
    }

    QTemporaryDir folder;
    LanguageScope language{GetParam()};
    ManualClock clock{instant("2025-06-09T20:00:00Z")};
    UserCalendar calendar = calendarIn("Asia/Shanghai");
    UserMonths months{u"en_US"_s};
    Store store{folder.path(), clock, calendar};
    std::optional<SubscriptionEditModel> form;
};

} // namespace

TEST_P(SubscriptionEditModelTest, BeginsEmpty) {
    make();
    EXPECT_FALSE(form->isExisting());
    EXPECT_EQ(form->name(), QString());
    EXPECT_EQ(form->amountText(), QString());
    EXPECT_EQ(form->currency(), u"CNY"_s);
    EXPECT_EQ(form->billingType(), BillingType::recurring);
    EXPECT_EQ(form->cycle(), BillingCycle::monthly);
    EXPECT_EQ(form->startDate(), clock.now());
    EXPECT_EQ(form->category(), u"AI/工具"_s);
    EXPECT_EQ(form->notes(), QString());
    EXPECT_TRUE(form->isActive());
    EXPECT_FALSE(form->dateExpanded());
    EXPECT_EQ(form->property("labelWidth"), 92);
    EXPECT_FALSE(form->isValid());
}

TEST_P(SubscriptionEditModelTest, ChoosesTheCurrencyOfTheLanguageForANewEntry) {
    opened();
    EXPECT_EQ(form->currency(), pair(u"CNY"_s, u"USD"_s));
    EXPECT_EQ(form->name(), QString());
    EXPECT_EQ(form->amountText(), QString());
    EXPECT_EQ(form->startDate(), clock.now());
    EXPECT_EQ(form->category(), u"AI/工具"_s);
}

TEST_P(SubscriptionEditModelTest, ShowsWhatItIsOpenedWith) {
    const Subscription sub = unlikeTheDefaults();
    for (const SubscriptionEditModel::Source &source :
         {SubscriptionEditModel::Source{sub, std::nullopt},
          SubscriptionEditModel::Source{std::nullopt, sub},
          SubscriptionEditModel::Source{sub, sampleSubscription()}}) {
        opened(source);
        EXPECT_EQ(form->name(), u"Quillbird"_s);
        EXPECT_EQ(form->amountText(), u"9.99"_s);
        EXPECT_EQ(form->currency(), u"EUR"_s);
        EXPECT_EQ(form->currencyIndex(), 2);
        EXPECT_EQ(form->billingType(), BillingType::oneTime);
        EXPECT_EQ(form->billingTypeIndex(), 1);
        EXPECT_EQ(form->cycle(), BillingCycle::yearly);
        EXPECT_EQ(form->cycleIndex(), 3);
        EXPECT_EQ(form->startDate(), sub.startDate);
        EXPECT_EQ(form->startDateText(), u"2025/01/31"_s);
        EXPECT_EQ(form->calendar()->selection(), sub.startDate);
        EXPECT_EQ(form->category(), u"阅读"_s);
        EXPECT_EQ(form->categoryIndex(), 6);
        EXPECT_EQ(form->categoryName(), pair(u"阅读"_s, u"Reading"_s));
        EXPECT_EQ(form->notes(), u" two\nlines "_s);
        EXPECT_FALSE(form->isActive());
        EXPECT_TRUE(form->isValid());
    }
}

TEST_P(SubscriptionEditModelTest, IsTitledByWhatItIsFor) {
    const Subscription sub = sampleSubscription();
    make();
    EXPECT_EQ(form->titleText(), pair(u"添加订阅"_s, u"Add subscription"_s));
    make({std::nullopt, sub});
    EXPECT_EQ(form->titleText(), pair(u"确认识别结果"_s, u"Confirm scan"_s));
    make({sub, std::nullopt});
    EXPECT_EQ(form->titleText(), pair(u"编辑订阅"_s, u"Edit subscription"_s));
    make({sub, sub});
    EXPECT_EQ(form->titleText(), pair(u"编辑订阅"_s, u"Edit subscription"_s));
}

TEST_P(SubscriptionEditModelTest, IsValidWithANameAndAnAmountAboveZero) {
    struct {
        QString name;
        QString amount;
        bool isValid;
    } const cases[] = {
        {u"Netflix"_s, u"15"_s, true},
        {u"Netflix"_s, u"15.0"_s, true},
        {u" \tN "_s, u"15"_s, true},
        {u"Netflix"_s, u"0.01"_s, true},
        {u"Netflix"_s, u"+1e2"_s, true},
        {u"Netflix"_s, QString(), false},
        {u"Netflix"_s, u"15,5"_s, false},
        {u"Netflix"_s, u"15 "_s, false},
        {u"Netflix"_s, u" 15"_s, false},
        {u"Netflix"_s, u"¥15"_s, false},
        {u"Netflix"_s, u"0"_s, false},
        {u"Netflix"_s, u"0.00"_s, false},
        {u"Netflix"_s, u"-3"_s, false},
        {u"Netflix"_s, u"-0"_s, false},
        {QString(), u"15"_s, false},
        {u"   "_s, u"15"_s, false},
        {u" \t\u00A0\u3000"_s, u"15"_s, false},
        {u"\n"_s, u"15"_s, true},
    };
    opened();
    for (const auto &[name, amount, isValid] : cases) {
        form->setName(name);
        form->setAmountText(amount);
        EXPECT_EQ(form->isValid(), isValid) << name.toStdString() << '|' << amount.toStdString();
    }
}

TEST_P(SubscriptionEditModelTest, TellsOfEveryChange) {
    opened();
    QSignalSpy valid(&*form, &SubscriptionEditModel::isValidChanged);
    QSignalSpy names(&*form, &SubscriptionEditModel::nameChanged);
    form->setName(u"Netflix"_s);
    form->setName(u"Netflix"_s);
    EXPECT_EQ(names.size(), 1);
    EXPECT_EQ(valid.size(), 1);
    form->setAmountText(u"1"_s);
    EXPECT_EQ(valid.size(), 2);

    QSignalSpy dates(&*form, &SubscriptionEditModel::startDateChanged);
    form->calendar()->select(0);
    EXPECT_EQ(dates.size(), 1);
    EXPECT_EQ(form->startDateText(), u"2025/06/01"_s);
    EXPECT_EQ(form->startDate(), instant("2025-05-31T16:00:00Z"));
    form->setStartDate(instant("2025-07-01T00:00:00Z"));
    EXPECT_EQ(dates.size(), 2);
    EXPECT_EQ(form->calendar()->visibleMonth(), instant("2025-06-30T16:00:00Z"));
}

TEST_P(SubscriptionEditModelTest, OffersItsChoicesInOrder) {
    opened();
    EXPECT_EQ(form->currencies(),
              (QStringList{u"CNY"_s, u"USD"_s, u"EUR"_s, u"HKD"_s, u"JPY"_s, u"GBP"_s}));
    EXPECT_EQ(form->categoryNames(),
              isZh()
                  ? (QStringList{u"AI/工具"_s, u"影音"_s, u"音乐"_s, u"云存储"_s, u"软件"_s,
                                 u"游戏"_s, u"阅读"_s, u"会员"_s, u"其他"_s})
                  : (QStringList{u"AI & Tools"_s, u"Video"_s, u"Music"_s, u"Cloud"_s, u"Software"_s,
                                 u"Games"_s, u"Reading"_s, u"Membership"_s, u"Other"_s}));
    EXPECT_EQ(form->billingTypeNames(), isZh() ? (QStringList{u"订阅续费"_s, u"单次买断"_s})
                                               : (QStringList{u"Subscription"_s, u"One-time"_s}));
    EXPECT_EQ(form->cycleNames(),
              isZh() ? (QStringList{u"每周"_s, u"每月"_s, u"每季"_s, u"每年"_s})
                     : (QStringList{u"Weekly"_s, u"Monthly"_s, u"Quarterly"_s, u"Yearly"_s}));

    form->chooseCurrency(5);
    form->chooseCategory(8);
    form->chooseBillingType(1);
    form->chooseCycle(0);
    EXPECT_EQ(form->currency(), u"GBP"_s);
    EXPECT_EQ(form->category(), u"其他"_s);
    EXPECT_TRUE(form->isOneTime());
    EXPECT_EQ(form->cycle(), BillingCycle::weekly);
    for (const int none : {-1, 9}) {
        form->chooseCurrency(none);
        form->chooseCategory(none);
        form->chooseBillingType(none);
        form->chooseCycle(none);
    }
    EXPECT_EQ(form->currency(), u"GBP"_s);
    EXPECT_EQ(form->category(), u"其他"_s);
    EXPECT_TRUE(form->isOneTime());
    EXPECT_EQ(form->cycle(), BillingCycle::weekly);
}

TEST_P(SubscriptionEditModelTest, KeepsWhatThePickersDoNotOffer) {
    Subscription sub = sampleSubscription();
    sub.category = u"视频"_s;
    sub.currency = u"chf"_s;
    store.add(sub);
    opened({sub, std::nullopt});
    EXPECT_EQ(form->categoryIndex(), -1);
    EXPECT_EQ(form->categoryName(), pair(u"视频"_s, u"Video"_s));
    EXPECT_EQ(form->currencyIndex(), -1);
    form->save();
    EXPECT_EQ(store.subscriptions(), QList{sub});
}

TEST_P(SubscriptionEditModelTest, AddsANewEntryAtTheEnd) {
    store.add(sampleSubscription());
    opened();
    QSignalSpy dismissed(&*form, &SubscriptionEditModel::dismissed);
    form->setName(u" \t\u3000Netflix \u00A0"_s);
    form->setAmountText(u"15.49"_s);
    form->setNotes(u" as typed\n"_s);
    form->save();
    EXPECT_EQ(dismissed.size(), 1);
    ASSERT_EQ(store.subscriptions().size(), 2);
    const Subscription added = store.subscriptions().last();
    EXPECT_FALSE(added.id.isNull());
    EXPECT_EQ(added, (Subscription{.id = added.id,
                                   .name = u"Netflix"_s,
                                   .amount = 15.49,
                                   .currency = pair(u"CNY"_s, u"USD"_s),
                                   .billingType = BillingType::recurring,
                                   .cycle = BillingCycle::monthly,
                                   .startDate = clock.now(),
                                   .category = u"AI/工具"_s,
                                   .notes = u" as typed\n"_s,
                                   .isActive = true,
                                   .serviceID = std::nullopt}));
    EXPECT_EQ(Store(folder.path(), clock, calendar).subscriptions(), store.subscriptions());
}

TEST_P(SubscriptionEditModelTest, StoresAConfirmedDraftAsANewEntry) {
    const Subscription draft = unlikeTheDefaults();
    opened({std::nullopt, draft});
    form->save();
    ASSERT_EQ(store.subscriptions().size(), 1);
    Subscription expected = draft;
    expected.id = store.subscriptions().first().id;
    expected.serviceID.reset();
    EXPECT_NE(expected.id, draft.id);
    EXPECT_EQ(store.subscriptions().first(), expected);
}

TEST_P(SubscriptionEditModelTest, ChangesAnEntryInItsPlace) {
    const Subscription sub = unlikeTheDefaults();
    const Subscription other = sampleSubscription();
    store.addAll({sub, other});
    opened({sub, std::nullopt});
    QSignalSpy dismissed(&*form, &SubscriptionEditModel::dismissed);
    form->setName(u"Quill"_s);
    form->setAmountText(u"30"_s);
    form->setCurrency(u"USD"_s);
    form->setBillingType(BillingType::recurring);
    form->setCycle(BillingCycle::weekly);
    form->setStartDate(instant("2025-06-01T00:00:00Z"));
    form->setCategory(u"游戏"_s);
    form->setNotes(QString());
    form->setIsActive(true);
    EXPECT_EQ(store.subscriptions(), (QList{sub, other}));
    form->save();
    EXPECT_EQ(dismissed.size(), 1);
    EXPECT_EQ(store.subscriptions(),
              (QList{Subscription{.id = sub.id,
                                  .name = u"Quill"_s,
                                  .amount = 30,
                                  .currency = u"USD"_s,
                                  .billingType = BillingType::recurring,
                                  .cycle = BillingCycle::weekly,
                                  .startDate = instant("2025-06-01T00:00:00Z"),
                                  .category = u"游戏"_s,
                                  .notes = QString(),
                                  .isActive = true,
                                  .serviceID = u"quillbird"_s},
                     other}));
    EXPECT_EQ(Store(folder.path(), clock, calendar).subscriptions(), store.subscriptions());
}

TEST_P(SubscriptionEditModelTest, ChangesNothingWithoutSaving) {
    const Subscription sub = unlikeTheDefaults();
    store.add(sub);
    opened({sub, std::nullopt});
    QSignalSpy dismissed(&*form, &SubscriptionEditModel::dismissed);
    form->setName(u"Other"_s);
    form->cancel();
    EXPECT_EQ(dismissed.size(), 1);
    EXPECT_EQ(store.subscriptions(), QList{sub});
}

TEST_P(SubscriptionEditModelTest, DeletesEveryEntryWithTheId) {
    const Subscription sub = unlikeTheDefaults();
    const Subscription other = sampleSubscription();
    Subscription twin = other;
    twin.id = sub.id;
    store.addAll({sub, other, twin});
    opened({sub, std::nullopt});
    QSignalSpy dismissed(&*form, &SubscriptionEditModel::dismissed);
    form->deleteSubscription();
    EXPECT_EQ(dismissed.size(), 1);
    EXPECT_EQ(store.subscriptions(), QList{other});
    EXPECT_EQ(Store(folder.path(), clock, calendar).subscriptions(), QList{other});

    opened({std::nullopt, other});
    QSignalSpy refused(&*form, &SubscriptionEditModel::dismissed);
    form->deleteSubscription();
    EXPECT_EQ(refused.size(), 0);
    EXPECT_EQ(store.subscriptions(), QList{other});
}

TEST_P(SubscriptionEditModelTest, FollowsTheLanguage) {
    opened({unlikeTheDefaults(), std::nullopt});
    QSignalSpy texts(&*form, &SubscriptionEditModel::languageChanged);
    QSignalSpy category(&*form, &SubscriptionEditModel::categoryNameChanged);
    const LanguageScope other(otherLang());
    EXPECT_EQ(texts.size(), 1);
    EXPECT_EQ(category.size(), 1);
    EXPECT_EQ(form->titleText(), pair(u"Edit subscription"_s, u"编辑订阅"_s));
    EXPECT_EQ(form->categoryName(), pair(u"Reading"_s, u"阅读"_s));
    EXPECT_EQ(form->cycleNames().last(), pair(u"Yearly"_s, u"每年"_s));
}

TEST_P(SubscriptionEditModelTest, ShowsTheDayOfTheUsersZone) {
    Subscription sub = sampleSubscription();
    sub.startDate = instant("2025-03-01T04:59:59Z");
    struct {
        const char *zone;
        QString day;
    } const cases[] = {{"UTC", u"2025/03/01"_s},
                       {"America/New_York", u"2025/02/28"_s},
                       {"Pacific/Kiritimati", u"2025/03/01"_s}};
    for (const auto &[zone, day] : cases) {
        calendar = calendarIn(zone);
        EXPECT_EQ(opened({sub, std::nullopt}).startDateText(), day) << zone;
    }
    QSignalSpy dates(&*form, &SubscriptionEditModel::startDateChanged);
    calendar = calendarIn("America/New_York");
    form->noticeDay();
    EXPECT_EQ(dates.size(), 1);
    EXPECT_EQ(form->startDateText(), u"2025/02/28"_s);
    EXPECT_EQ(form->startDate(), sub.startDate);
}

INSTANTIATE_TEST_SUITE_P(, SubscriptionEditModelTest, bothLanguages(), languageName);

} // namespace tovarin
