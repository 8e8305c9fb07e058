// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/SettingsModel.h"

#include "app/LocalizationManager.h"
#include "tests/support/ManualDelay.h"
#include "tests/support/MemoryDefaults.h"
#include "tests/support/Printing.h"

#include <QSignalSpy>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace tovarin {

using Lang = LocalizationManager::Lang;

namespace {

class SettingsModelTest : public testing::Test {
protected:
    SettingsModelTest() { loc.setLang(Lang::en); }

    void store(const QString &days) { defaults.setText(u"remindDaysBefore"_s, days); }
    QString stored() const { return defaults.text(u"remindDaysBefore"_s).value_or(u"none"_s); }

    MemoryDefaults defaults;
    LocalizationManager loc{defaults, [] { return QStringList{u"zh-CN"_s}; }};
    ManualDelay delays;
    SettingsModel model{defaults, loc, delays.delay()};
};

} // namespace

TEST_F(SettingsModelTest, OffersSixDayCounts) {
    EXPECT_EQ(model.dayNames(),
              QStringList({u"Same day"_s, u"1d"_s, u"2d"_s, u"3d"_s, u"5d"_s, u"7d"_s}));
    loc.setLang(Lang::zh);
    EXPECT_EQ(model.dayNames(),
              QStringList({u"当天"_s, u"1 天"_s, u"2 天"_s, u"3 天"_s, u"5 天"_s, u"7 天"_s}));
}

TEST_F(SettingsModelTest, TakesThreeDaysWithoutAStoredNumber) {
    EXPECT_EQ(model.remindDaysBefore(), 3);
    EXPECT_EQ(model.dayIndex(), 3);
    EXPECT_EQ(stored(), u"none"_s);
    for (const QString &text : {u"soon"_s, u"3.5"_s, u""_s, u"true"_s}) {
        store(text);
        EXPECT_EQ(model.remindDaysBefore(), 3) << text.toStdString();
        EXPECT_EQ(model.dayIndex(), 3) << text.toStdString();
    }
}

TEST_F(SettingsModelTest, SelectsNothingForAnotherStoredNumberAndKeepsIt) {
    for (const int days : {-1, 4, 6, 8, 365}) {
        store(QString::number(days));
        EXPECT_EQ(model.remindDaysBefore(), days);
        EXPECT_EQ(model.dayIndex(), -1) << days;
        EXPECT_EQ(stored(), QString::number(days));
    }
    model.chooseDays(0);
    EXPECT_EQ(stored(), u"0"_s);
    EXPECT_EQ(model.dayIndex(), 0);
}

TEST_F(SettingsModelTest, StoresADayCountAtOnceAndTellsOfIt) {
    const QSignalSpy told(&model, &SettingsModel::remindDaysBeforeChanged);
    const QStringList expected = {u"0"_s, u"1"_s, u"2"_s, u"3"_s, u"5"_s, u"7"_s};
    for (int index = 0; index < 6; ++index) {
        model.chooseDays(index);
        EXPECT_EQ(stored(), expected[index]);
        EXPECT_EQ(model.dayIndex(), index);
        EXPECT_EQ(told.size(), index + 1);
    }
    for (const int index : {5, 6, -1}) {
        model.chooseDays(index);
        EXPECT_EQ(stored(), u"7"_s) << index;
    }
    EXPECT_EQ(told.size(), 6);
}

TEST_F(SettingsModelTest, ChoosesTheLanguage) {
    const QSignalSpy changed(&model, &SettingsModel::langChanged);
    EXPECT_EQ(model.langNames(), QStringList({u"System"_s, u"English"_s, u"中文"_s}));
    EXPECT_EQ(model.langIndex(), 1);
    model.chooseLang(2);
    EXPECT_EQ(loc.lang(), Lang::zh);
    EXPECT_EQ(model.langIndex(), 2);
    EXPECT_EQ(model.langNames(), QStringList({u"跟随系统"_s, u"English"_s, u"中文"_s}));
    EXPECT_EQ(defaults.text(u"appLanguage"_s), u"zh"_s);
    model.chooseLang(0);
    EXPECT_EQ(loc.lang(), Lang::system);
    EXPECT_EQ(model.langIndex(), 0);
    EXPECT_EQ(changed.size(), 2);
    for (const int index : {-1, 3}) {
        model.chooseLang(index);
        EXPECT_EQ(loc.lang(), Lang::system) << index;
    }
}

TEST_F(SettingsModelTest, SaysForThreeSecondsThatATestWasSent) {
    const QSignalSpy sent(&model, &SettingsModel::testRequested);
    EXPECT_FALSE(model.testSent());
    model.sendTest();
    EXPECT_EQ(sent.size(), 1);
    EXPECT_TRUE(model.testSent());
    delays.pass(2999ms);
    EXPECT_TRUE(model.testSent());
    delays.pass(1ms);
    EXPECT_FALSE(model.testSent());
}

TEST_F(SettingsModelTest, SendsAnotherTestWhoseNoticeEndsWithTheFirstOnes) {
    const QSignalSpy sent(&model, &SettingsModel::testRequested);
    const QSignalSpy changed(&model, &SettingsModel::testSentChanged);
    model.sendTest();
    delays.pass(2s);
    model.sendTest();
    EXPECT_EQ(sent.size(), 2);
    delays.pass(1s);
    EXPECT_FALSE(model.testSent());
    delays.pass(2s);
    EXPECT_FALSE(model.testSent());
    EXPECT_EQ(changed.size(), 2);
}

TEST_F(SettingsModelTest, ForgetsATestWithTheSheet) {
    {
        SettingsModel other(defaults, loc, delays.delay());
        other.sendTest();
    }
    delays.pass(3s);
    EXPECT_FALSE(model.testSent());
}

TEST_F(SettingsModelTest, LeadsToTheQuickPickAndCloses) {
    const QSignalSpy quickPick(&model, &SettingsModel::quickPickRequested);
    const QSignalSpy dismissed(&model, &SettingsModel::dismissed);
    model.quickPick();
    EXPECT_EQ(quickPick.size(), 1);
    EXPECT_EQ(dismissed.size(), 0);
    model.close();
    EXPECT_EQ(dismissed.size(), 1);
}

} // namespace tovarin
