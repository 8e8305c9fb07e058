// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/ui/QuickPickModelTest.h"

#include "tests/support/Printing.h"

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

TEST_P(QuickPickModelTest, BeginsInChinaWithNothingTicked) {
    EXPECT_EQ(pick.step(), 1);
    EXPECT_EQ(pick.region(), ServiceRegion::china);
    EXPECT_EQ(pick.regionIndex(), 0);
    EXPECT_TRUE(pick.selected().isEmpty());
    EXPECT_TRUE(pick.confirmRows().isEmpty());
    EXPECT_FALSE(pick.canConfirm());
    EXPECT_FALSE(pick.canSave());
    EXPECT_EQ(pick.regionNames(), isZh() ? (QStringList{u"国内常用"_s, u"国际常用"_s})
                                         : (QStringList{u"China"_s, u"Global"_s}));
    EXPECT_TRUE(defaults.values().isEmpty());
}

TEST_P(QuickPickModelTest, FollowsTheLanguage) {
    addToStore(u"腾讯视频 VIP"_s);
    pick.toggleCell(cellOf(u"icloud-cn"_s));
    pick.toggleCell(cellOf(u"notion-cn"_s));
    pick.chooseTier(cellOf(u"notion-cn"_s), 2);
    pick.goConfirm();
    QSignalSpy texts(&pick, &QuickPickModel::languageChanged);
    QSignalSpy resets(pick.cells(), &QuickPickCells::modelReset);
    QSignalSpy cycles(pick.rows(), &QuickPickRows::dataChanged);
    const LanguageScope other(otherLang());
    EXPECT_EQ(texts.size(), 1);
    EXPECT_EQ(resets.size(), 0);
    EXPECT_EQ(pick.regionNames(), isZh() ? (QStringList{u"China"_s, u"Global"_s})
                                         : (QStringList{u"国内常用"_s, u"国际常用"_s}));
    EXPECT_EQ(cell(u"iqiyi"_s).name, pair(u"iQIYI VIP"_s, u"爱奇艺 VIP"_s));
    EXPECT_EQ(cell(u"iqiyi"_s).priceLabel, pair(u"¥30/mo"_s, u"¥30/月"_s));
    EXPECT_EQ(cell(u"tencent-video"_s).isInStore, !isZh());
    EXPECT_EQ(cell(u"notion-cn"_s).tierLabels.last(), pair(u"Other · custom"_s, u"其他 · 自定"_s));
    EXPECT_EQ(cell(u"notion-cn"_s).tierIndex, 2);
    ASSERT_EQ(cycles.size(), 1);
    EXPECT_EQ(row(0, QuickPickRows::CycleLabelRole), pair(u"Monthly"_s, u"每月"_s));
    // What will be stored stays.
    EXPECT_EQ(row(1, QuickPickRows::NameRole), pair(u"Notion · 其他"_s, u"Notion · Other"_s));
}

TEST_P(QuickPickModelTest, TellsTheOpenerThatItIsDone) {
    pick.toggle(preset(u"iqiyi"_s));
    pick.goConfirm();
    pick.saveAll();
    EXPECT_EQ(completions, 1);
    EXPECT_EQ(dismissed.size(), 1);
}

TEST_P(QuickPickModelTest, NeedsNobodyToTell) {
    QuickPickModel alone(store, clock, LocalizationManager::shared(), logos, defaults, nullptr);
    QSignalSpy closed(&alone, &QuickPickModel::dismissed);
    alone.toggle(preset(u"iqiyi"_s));
    alone.goConfirm();
    alone.saveAll();
    EXPECT_EQ(closed.size(), 1);
    EXPECT_EQ(store.subscriptions().size(), 1);
    EXPECT_EQ(defaults.values(), done);
}

TEST_P(QuickPickModelTest, SkipsWithoutAddingAnything) {
    for (const bool inStepTwo : {false, true}) {
        MemoryDefaults fresh;
        QuickPickModel skipped(store, clock, LocalizationManager::shared(), logos, fresh,
                               [this] { ++completions; });
        QSignalSpy closed(&skipped, &QuickPickModel::dismissed);
        skipped.toggle(preset(u"iqiyi"_s));
        if (inStepTwo)
            skipped.goConfirm();
        skipped.skip();
        EXPECT_EQ(fresh.values(), done);
        EXPECT_EQ(closed.size(), 1);
    }
    EXPECT_EQ(completions, 0);
    EXPECT_TRUE(store.subscriptions().isEmpty());
}

TEST_P(QuickPickModelTest, LeavesTheSettingUntilItIsGoneThrough) {
    pick.toggle(preset(u"iqiyi"_s));
    pick.goConfirm();
    pick.back();
    EXPECT_TRUE(defaults.values().isEmpty());
    EXPECT_TRUE(store.subscriptions().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(, QuickPickModelTest, bothLanguages(), languageName);

} // namespace tovarin
