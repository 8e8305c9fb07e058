// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "catalog/ServiceCatalog.h"
#include "tests/support/Printing.h"
#include "tests/ui/QuickPickModelTest.h"

#include <QAbstractItemModelTester>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

TEST_P(QuickPickModelTest, ShowsAllServicesOfARegionInOrder) {
    QAbstractItemModelTester tester(pick.cells(),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal);
    for (const ServiceRegion region : allServiceRegions) {
        pick.setRegion(region);
        const QList<ServicePreset> &presets = ServiceCatalog::presets(region);
        ASSERT_EQ(pick.cells()->rowCount(), presets.size());
        for (int i = 0; i < pick.cells()->rowCount(); ++i) {
            const QModelIndex at = pick.cells()->index(i);
            const ServicePreset &shown = presets[i];
            EXPECT_EQ(at.data(QuickPickCells::NameRole), pair(shown.nameZh, shown.nameEn));
            EXPECT_EQ(at.data(QuickPickCells::PriceLabelRole), pick.cardPriceLabel(shown));
            EXPECT_EQ(at.data(QuickPickCells::IconRole), shown.icon);
            EXPECT_EQ(at.data(QuickPickCells::LogoIDRole),
                      logos.image(shown.id).isNull() ? QString() : shown.id);
            EXPECT_EQ(at.data(QuickPickCells::IsTickedRole), false);
            EXPECT_EQ(at.data(QuickPickCells::IsInStoreRole), false);
            EXPECT_EQ(at.data(QuickPickCells::CanBePickedRole), true);
            EXPECT_EQ(at.data(QuickPickCells::TierIndexRole), shown.tiers ? 0 : -1);
        }
    }
    EXPECT_EQ(cell(u"netflix"_s).logoID, u"netflix"_s);
}

TEST_P(QuickPickModelTest, ChangesTheRegionAndKeepsTheTicks) {
    QSignalSpy regions(&pick, &QuickPickModel::regionChanged);
    pick.toggleCell(cellOf(u"iqiyi"_s));
    pick.chooseRegion(1);
    EXPECT_EQ(pick.region(), ServiceRegion::global);
    EXPECT_EQ(pick.regionIndex(), 1);
    EXPECT_EQ(pick.cells()->rowCount(), 21);
    for (const int none : {-1, 2})
        pick.chooseRegion(none);
    pick.chooseRegion(1);
    EXPECT_EQ(regions.size(), 1);
    pick.chooseRegion(0);
    EXPECT_EQ(pick.cells()->rowCount(), 20);
    EXPECT_TRUE(cell(u"iqiyi"_s).isTicked);
}

TEST_P(QuickPickModelTest, TicksAtTheFirstTierAndTakesTheTickAway) {
    QSignalSpy selections(&pick, &QuickPickModel::selectedChanged);
    pick.toggle(preset(u"iqiyi"_s));
    pick.toggle(preset(u"chatgpt"_s));
    EXPECT_EQ(selections.size(), 2);
    EXPECT_TRUE(pick.canConfirm());
    ASSERT_EQ(pick.selected().size(), 2);
    EXPECT_EQ(pick.selected()[u"iqiyi"_s].preset, preset(u"iqiyi"_s));
    EXPECT_EQ(pick.selected()[u"iqiyi"_s].tierID, std::nullopt);
    EXPECT_EQ(pick.selected()[u"chatgpt"_s].preset, preset(u"chatgpt"_s));
    EXPECT_EQ(pick.selected()[u"chatgpt"_s].tierID, u"go"_s);
    pick.toggle(preset(u"iqiyi"_s));
    EXPECT_EQ(pick.selected().keys(), QStringList{u"chatgpt"_s});
    pick.toggle(preset(u"chatgpt"_s));
    EXPECT_FALSE(pick.canConfirm());
    EXPECT_EQ(selections.size(), 4);
}

TEST_P(QuickPickModelTest, ForgetsTheTierWithTheTick) {
    pick.toggleCell(cellOf(u"icloud-cn"_s));
    pick.chooseTier(cellOf(u"icloud-cn"_s), 2);
    EXPECT_EQ(pick.selected()[u"icloud-cn"_s].tierID, u"2tb"_s);
    pick.toggleCell(cellOf(u"icloud-cn"_s));
    EXPECT_EQ(cell(u"icloud-cn"_s).tierIndex, 0);
    pick.toggleCell(cellOf(u"icloud-cn"_s));
    EXPECT_EQ(pick.selected()[u"icloud-cn"_s].tierID, u"50"_s);
}

TEST_P(QuickPickModelTest, DoesNothingForWhatIsNotThere) {
    for (const int none : {-1, 20, 1000}) {
        pick.toggleCell(none);
        pick.chooseTier(none, 0);
        pick.setAmount(none, 5);
    }
    EXPECT_TRUE(pick.selected().isEmpty());
    QSignalSpy selections(&pick, &QuickPickModel::selectedChanged);
    pick.chooseTier(cellOf(u"icloud-cn"_s), 1); // It is not ticked.
    pick.toggleCell(cellOf(u"icloud-cn"_s));
    for (const int none : {-1, 3})
        pick.chooseTier(cellOf(u"icloud-cn"_s), none);
    EXPECT_EQ(pick.selected()[u"icloud-cn"_s].tierID, u"50"_s);
    pick.toggleCell(cellOf(u"iqiyi"_s));
    pick.chooseTier(cellOf(u"iqiyi"_s), 0); // It has none.
    EXPECT_EQ(pick.selected()[u"iqiyi"_s].tierID, std::nullopt);
    EXPECT_EQ(selections.size(), 2);
}

TEST_P(QuickPickModelTest, FindsTheTierOfAPickedService) {
    const ServicePreset &tiered = preset(u"cursor"_s);
    const QList<ServiceTier> tiers = *tiered.tiers;
    EXPECT_EQ((PickedService{tiered, u"ultra"_s}).tier(tiered), tiers[1]);
    EXPECT_EQ((PickedService{tiered, u"custom"_s}).tier(tiered), tiers[2]);
    EXPECT_EQ((PickedService{tiered, u"ULTRA"_s}).tier(tiered), tiers[0]);
    EXPECT_EQ((PickedService{tiered, u""_s}).tier(tiered), tiers[0]);
    EXPECT_EQ((PickedService{tiered, std::nullopt}).tier(tiered), tiers[0]);
    ServicePreset other = tiered;
    other.tiers.reset();
    EXPECT_EQ((PickedService{other, u"ultra"_s}).tier(other), std::nullopt);
    other.tiers = QList<ServiceTier>();
    EXPECT_EQ((PickedService{other, u"ultra"_s}).tier(other), std::nullopt);
}

TEST_P(QuickPickModelTest, SaysWhatAServiceCosts) {
    struct {
        QString id;
        QString zh;
        QString en;
    } const cases[] = {
        {u"iqiyi"_s, u"¥30/月"_s, u"¥30/mo"_s},
        {u"m365-cn"_s, u"¥398/年"_s, u"¥398/yr"_s},
        {u"netflix"_s, u"$15.49/月"_s, u"$15.49/mo"_s},
        {u"icloud-cn"_s, u"¥6 起/月"_s, u"From ¥6/mo"_s},
        {u"icloud"_s, u"$0.99 起/月"_s, u"From $0.99/mo"_s},
        {u"chatgpt"_s, u"$8 起/月"_s, u"From $8/mo"_s},
        {u"notion-cn"_s, u"$10 起/月"_s, u"From $10/mo"_s},
    };
    for (const auto &[id, zh, en] : cases)
        EXPECT_EQ(price(id), pair(zh, en)) << id.toStdString();
}

TEST_P(QuickPickModelTest, SaysWhatTheChosenTierCosts) {
    const int at = cellOf(u"chatgpt-cn"_s);
    pick.toggleCell(at);
    EXPECT_EQ(price(u"chatgpt-cn"_s), pair(u"$8/月"_s, u"$8/mo"_s));
    pick.chooseTier(at, 1);
    EXPECT_EQ(price(u"chatgpt-cn"_s), pair(u"$20/月"_s, u"$20/mo"_s));
    EXPECT_EQ(cell(u"chatgpt-cn"_s).priceLabel, pair(u"$20/月"_s, u"$20/mo"_s));
    pick.chooseTier(at, 2);
    EXPECT_EQ(price(u"chatgpt-cn"_s), pair(u"金额自定"_s, u"Custom price"_s));
    EXPECT_EQ(cell(u"chatgpt-cn"_s).tierIndex, 2);
    pick.toggleCell(at);
    EXPECT_EQ(price(u"chatgpt-cn"_s), pair(u"$8 起/月"_s, u"From $8/mo"_s));
}

TEST_P(QuickPickModelTest, SaysWhatOtherPresetsWouldCost) {
    ServicePreset made = preset(u"netflix"_s);
    made.id = u"made"_s;
    for (const BillingCycle cycle :
         {BillingCycle::weekly, BillingCycle::quarterly, BillingCycle::yearly}) {
        made.cycle = cycle;
        EXPECT_EQ(pick.cardPriceLabel(made), pair(u"$15.49/年"_s, u"$15.49/yr"_s));
    }
    made.amount = 0;
    EXPECT_EQ(pick.cardPriceLabel(made), pair(u"$0/年"_s, u"$0/yr"_s));
    made.amount = 7;
    made.tiers = QList<ServiceTier>();
    EXPECT_EQ(pick.cardPriceLabel(made), pair(u"$7/年"_s, u"$7/yr"_s));
    made.tiers = {{{.id = u"one"_s, .labelZh = u"一"_s, .labelEn = u"One"_s, .amount = 5}}};
    EXPECT_EQ(pick.cardPriceLabel(made), pair(u"$5/年"_s, u"$5/yr"_s));
    made.tiers->append({.id = u"two"_s, .labelZh = u"二"_s, .labelEn = u"Two"_s, .amount = 6});
    EXPECT_EQ(pick.cardPriceLabel(made), pair(u"$5 起/年"_s, u"From $5/yr"_s));
    for (const double nothing : {0.0, -1.0}) {
        made.tiers->first().amount = nothing;
        EXPECT_EQ(pick.cardPriceLabel(made), pair(u"金额自定"_s, u"Custom price"_s));
    }
}

TEST_P(QuickPickModelTest, NamesTheTiers) {
    EXPECT_EQ(cell(u"icloud-cn"_s).tierLabels,
              (QStringList{u"50GB · ¥6"_s, u"200GB · ¥21"_s, u"2TB · ¥68"_s}));
    EXPECT_EQ(cell(u"notion-cn"_s).tierLabels,
              (QStringList{u"Plus · $10"_s, u"Business · $20"_s,
                           pair(u"其他 · 自定"_s, u"Other · custom"_s)}));
    EXPECT_EQ(cell(u"iqiyi"_s).tierLabels, QStringList());
    const ServiceTier tier{
        .id = u"t"_s, .labelZh = u"学生"_s, .labelEn = u"Student"_s, .amount = 0.5};
    EXPECT_EQ(pick.tierPickerLabel(tier, preset(u"iqiyi"_s)),
              pair(u"学生 · ¥0.50"_s, u"Student · ¥0.50"_s));
    ServiceTier free = tier;
    free.amount = -1;
    EXPECT_EQ(pick.tierPickerLabel(free, preset(u"iqiyi"_s)),
              pair(u"其他 · 自定"_s, u"Other · custom"_s));
}

TEST_P(QuickPickModelTest, KnowsWhatIsInTheStore) {
    pick.setRegion(ServiceRegion::global);
    addToStore(u"my NETFLIX, shared"_s);
    EXPECT_TRUE(cell(u"netflix"_s).isInStore);
    EXPECT_FALSE(cell(u"netflix"_s).canBePicked());
    pick.toggleCell(cellOf(u"netflix"_s));
    EXPECT_TRUE(pick.selected().isEmpty());
    // Coarse, and meant so.
    addToStore(u"Climax Club"_s);
    EXPECT_TRUE(cell(u"max"_s).isInStore);
    // A part of the name is not the name.
    addToStore(u"Spotify"_s);
    EXPECT_FALSE(cell(u"spotify"_s).isInStore);
    addToStore(QString());
    EXPECT_FALSE(cell(u"spotify"_s).isInStore);
    // The displayed name counts alone.
    pick.setRegion(ServiceRegion::china);
    addToStore(u"爱奇艺 vip 家庭"_s);
    EXPECT_EQ(cell(u"iqiyi"_s).isInStore, isZh());
    addToStore(u"QQ music vip"_s);
    EXPECT_EQ(cell(u"qq-music"_s).isInStore, !isZh());
}

TEST_P(QuickPickModelTest, DoesNotKnowAServiceByItsIDAlone) {
    Subscription renamed = sampleSubscription(u"Films"_s);
    renamed.serviceID = u"netflix"_s;
    store.add(renamed);
    pick.setRegion(ServiceRegion::global);
    EXPECT_FALSE(cell(u"netflix"_s).isInStore);
}

TEST_P(QuickPickModelTest, FollowsTheStore) {
    pick.setRegion(ServiceRegion::global);
    pick.toggleCell(cellOf(u"netflix"_s));
    QSignalSpy changes(pick.cells(), &QuickPickCells::dataChanged);
    QSignalSpy resets(pick.cells(), &QuickPickCells::modelReset);
    addToStore(u"Netflix"_s);
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes[0][0].toModelIndex().row(), cellOf(u"netflix"_s));
    EXPECT_EQ(changes[0][2].value<QList<int>>(), QList<int>{QuickPickCells::IsInStoreRole});
    // What is ticked can be unticked, but not ticked again.
    EXPECT_TRUE(cell(u"netflix"_s).canBePicked());
    pick.toggleCell(cellOf(u"netflix"_s));
    EXPECT_FALSE(cell(u"netflix"_s).isTicked);
    EXPECT_FALSE(cell(u"netflix"_s).canBePicked());
    pick.toggleCell(cellOf(u"netflix"_s));
    EXPECT_FALSE(cell(u"netflix"_s).isTicked);
    store.deleteSubscription(store.subscriptions().first());
    EXPECT_TRUE(cell(u"netflix"_s).canBePicked());
    EXPECT_EQ(resets.size(), 0);
}

} // namespace tovarin
