// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "model/BillingCycle.h"
#include "model/BillingType.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using Lang = tovarin::LocalizationManager::Lang;

namespace tovarin {

namespace {

template <class Values>
QStringList rawValues(const Values &values) {
    QStringList texts;
    for (const auto value : values)
        texts.append(rawValue(value));
    return texts;
}

template <class Values>
QStringList labels(const Values &values) {
    QStringList texts;
    for (const auto value : values)
        texts.append(label(value));
    return texts;
}

} // namespace

TEST(BillingType, HasItsCasesInOrder) {
    EXPECT_EQ(rawValues(allBillingTypes), (QStringList{u"recurring"_s, u"oneTime"_s}));
}

TEST(BillingType, IsFoundByItsRawValueOnly) {
    EXPECT_EQ(billingTypeOf(u"recurring"), BillingType::recurring);
    EXPECT_EQ(billingTypeOf(u"oneTime"), BillingType::oneTime);
    for (const QStringView text : {u"onetime", u"Recurring", u"oneTime ", u"", u"monthly"})
        EXPECT_EQ(billingTypeOf(text), std::nullopt) << text.toString().toStdString();
}

TEST(BillingType, HasALabelInBothLanguages) {
    {
        const LanguageScope zh(Lang::zh);
        EXPECT_EQ(labels(allBillingTypes), (QStringList{u"订阅续费"_s, u"单次买断"_s}));
    }
    const LanguageScope en(Lang::en);
    EXPECT_EQ(labels(allBillingTypes), (QStringList{u"Subscription"_s, u"One-time"_s}));
}

TEST(BillingCycle, HasItsCasesInOrder) {
    EXPECT_EQ(rawValues(allBillingCycles),
              (QStringList{u"weekly"_s, u"monthly"_s, u"quarterly"_s, u"yearly"_s}));
}

TEST(BillingCycle, IsFoundByItsRawValueOnly) {
    for (const BillingCycle cycle : allBillingCycles)
        EXPECT_EQ(billingCycleOf(rawValue(cycle)), cycle);
    for (const QStringView text : {u"Monthly", u"daily", u"", u" weekly"})
        EXPECT_EQ(billingCycleOf(text), std::nullopt) << text.toString().toStdString();
}

TEST(BillingCycle, HasALabelThatFollowsTheLanguageAtOnce) {
    {
        const LanguageScope zh(Lang::zh);
        EXPECT_EQ(labels(allBillingCycles),
                  (QStringList{u"每周"_s, u"每月"_s, u"每季"_s, u"每年"_s}));
    }
    const LanguageScope en(Lang::en);
    EXPECT_EQ(labels(allBillingCycles),
              (QStringList{u"Weekly"_s, u"Monthly"_s, u"Quarterly"_s, u"Yearly"_s}));
}

TEST(BillingCycle, HasExactFactors) {
    EXPECT_EQ(monthlyFactor(BillingCycle::weekly), 4.333333333333333);
    EXPECT_EQ(monthlyFactor(BillingCycle::monthly), 1.0);
    EXPECT_EQ(monthlyFactor(BillingCycle::quarterly), 0.3333333333333333);
    EXPECT_EQ(monthlyFactor(BillingCycle::yearly), 0.08333333333333333);
}

} // namespace tovarin
