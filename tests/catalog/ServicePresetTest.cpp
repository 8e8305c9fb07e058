// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "catalog/ServiceCatalog.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/ManualClock.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using Lang = tovarin::LocalizationManager::Lang;

namespace tovarin {

namespace {

const ManualClock now(instant("2025-06-10T01:02:03Z"));

const ServicePreset &preset(const QString &id) {
    return *ServiceCatalog::preset(id);
}

ServiceTier tierOf(const QString &id, qsizetype index) {
    return preset(id).tiers->at(index);
}

} // namespace

TEST(ServicePresetTest, MakesASubscriptionOfItsOwnPrice) {
    const LanguageScope language(Lang::zh);
    Subscription sub = preset(u"m365-cn"_s).subscription(std::nullopt, true, now);
    EXPECT_FALSE(sub.id.isNull());
    sub.id = {};
    EXPECT_EQ(sub, (Subscription{.id = {},
                                 .name = u"Microsoft 365"_s,
                                 .amount = 398,
                                 .currency = u"CNY"_s,
                                 .billingType = BillingType::recurring,
                                 .cycle = BillingCycle::yearly,
                                 .startDate = instant("2025-06-10T01:02:03Z"),
                                 .category = u"软件"_s,
                                 .notes = u"快速添加"_s,
                                 .isActive = true,
                                 .serviceID = u"m365-cn"_s}));
}

TEST(ServicePresetTest, GivesEachSubscriptionAnIdOfItsOwn) {
    const ServicePreset &netflix = preset(u"netflix"_s);
    EXPECT_NE(netflix.subscription(std::nullopt, true, now).id,
              netflix.subscription(std::nullopt, true, now).id);
}

TEST(ServicePresetTest, IsNamedInTheGivenLanguageAndNotesItInTheProgramsOwn) {
    const ServicePreset &bilibili = preset(u"bilibili"_s);
    {
        const LanguageScope en(Lang::en);
        const Subscription sub = bilibili.subscription(std::nullopt, true, now);
        EXPECT_EQ(sub.name, u"哔哩哔哩大会员"_s);
        EXPECT_EQ(sub.amount, 25);
        EXPECT_EQ(sub.currency, u"CNY"_s);
        EXPECT_EQ(sub.notes, u"Quick pick"_s);
    }
    const LanguageScope zh(Lang::zh);
    const Subscription sub = bilibili.subscription(std::nullopt, false, now);
    EXPECT_EQ(sub.name, u"Bilibili Premium"_s);
    EXPECT_EQ(sub.notes, u"快速添加"_s);
}

TEST(ServicePresetTest, TakesTheFirstTierWhenNoneIsGiven) {
    const Subscription sub = preset(u"icloud-cn"_s).subscription(std::nullopt, true, now);
    EXPECT_EQ(sub.name, u"iCloud+ · 50GB"_s);
    EXPECT_EQ(sub.amount, 6);
    EXPECT_EQ(sub.currency, u"CNY"_s);
    EXPECT_EQ(sub.serviceID, u"icloud-cn"_s);
    EXPECT_EQ(preset(u"chatgpt"_s).subscription(std::nullopt, false, now).amount, 8);
}

TEST(ServicePresetTest, TakesTheGivenTier) {
    const Subscription plus =
        preset(u"chatgpt"_s).subscription(tierOf(u"chatgpt"_s, 1), false, now);
    EXPECT_EQ(plus.name, u"ChatGPT · Plus"_s);
    EXPECT_EQ(plus.amount, 20);

    for (const bool isZh : {true, false}) {
        const Subscription other =
            preset(u"notion"_s).subscription(tierOf(u"notion"_s, 2), isZh, now);
        EXPECT_EQ(other.name, isZh ? u"Notion · 其他"_s : u"Notion · Other"_s);
        EXPECT_EQ(other.amount, 0);
    }
    // Even one that is not the preset's.
    const ServiceTier foreign{u"x"_s, u"甲"_s, u"A"_s, 3};
    EXPECT_EQ(preset(u"netflix"_s).subscription(foreign, true, now).name, u"Netflix · 甲"_s);
}

TEST(ServicePresetTest, HasNoTierInAnEmptyListOfThem) {
    ServicePreset netflix = preset(u"netflix"_s);
    netflix.tiers = QList<ServiceTier>();
    const Subscription sub = netflix.subscription(std::nullopt, true, now);
    EXPECT_EQ(sub.name, u"Netflix"_s);
    EXPECT_EQ(sub.amount, 15.49);
}

TEST(ServicePresetTest, ComparesAndHashesByEveryField) {
    const ServicePreset base = preset(u"cursor"_s);
    EXPECT_EQ(qHash(base), qHash(ServicePreset(base)));
    QList<ServicePreset> others(10, base);
    others[0].id = u"x"_s;
    others[1].nameZh = u"x"_s;
    others[2].nameEn = u"x"_s;
    others[3].icon = u"x"_s;
    others[4].category = u"x"_s;
    others[5].currency = u"x"_s;
    others[6].amount = 1;
    others[7].cycle = BillingCycle::yearly;
    others[8].tiers = std::nullopt;
    others[9].tiers = QList<ServiceTier>();
    for (qsizetype i = 0; i < others.size(); ++i) {
        EXPECT_NE(others[i], base) << i;
        EXPECT_NE(qHash(others[i]), qHash(base)) << i;
    }
    EXPECT_NE(others[8], others[9]);
    EXPECT_NE(qHash(others[8]), qHash(others[9]));

    const ServiceTier tier = base.tiers->first();
    QList<ServiceTier> tiers(4, tier);
    tiers[0].id = u"x"_s;
    tiers[1].labelZh = u"x"_s;
    tiers[2].labelEn = u"x"_s;
    tiers[3].amount = 1;
    for (const ServiceTier &other : tiers) {
        EXPECT_NE(other, tier);
        EXPECT_NE(qHash(other), qHash(tier));
    }
}

} // namespace tovarin
