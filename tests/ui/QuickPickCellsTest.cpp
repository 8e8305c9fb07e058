// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "catalog/ServiceCatalog.h"
#include "tests/support/Printing.h"
#include "tests/ui/QuickPickTest.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

TEST_P(QuickPickTest, ShowsTheServicesOfChina) {
    open();
    EXPECT_EQ(stage->texts(), isZh() ? (QStringList{u"[ 快速添加常见服务 ]"_s,
                                                    u"勾选你在用的，不必一个个手填"_s,
                                                    u"国内常用"_s,
                                                    u"国际常用"_s,
                                                    u"爱奇艺 VIP"_s,
                                                    u"¥30/月"_s,
                                                    u"腾讯视频 VIP"_s,
                                                    u"¥30/月"_s,
                                                    u"优酷 VIP"_s,
                                                    u"¥25/月"_s,
                                                    u"哔哩哔哩大会员"_s,
                                                    u"¥25/月"_s,
                                                    u"芒果 TV 会员"_s,
                                                    u"¥22/月"_s,
                                                    u"网易云音乐黑胶"_s,
                                                    u"¥15/月"_s,
                                                    u"QQ 音乐豪华绿钻"_s,
                                                    u"¥15/月"_s,
                                                    u"微信读书 VIP"_s,
                                                    u"¥19/月"_s,
                                                    u"知乎盐选会员"_s,
                                                    u"¥19/月"_s,
                                                    u"百度网盘 SVIP"_s,
                                                    u"¥30/月"_s,
                                                    u"阿里云盘超级会员"_s,
                                                    u"¥20/月"_s,
                                                    u"iCloud+"_s,
                                                    u"¥6 起/月"_s,
                                                    u"Apple Music"_s,
                                                    u"¥11/月"_s,
                                                    u"Apple TV+"_s,
                                                    u"¥25/月"_s,
                                                    u"ChatGPT"_s,
                                                    u"$8 起/月"_s,
                                                    u"剪映 VIP"_s,
                                                    u"¥30/月"_s,
                                                    u"WPS 超级会员"_s,
                                                    u"¥15/月"_s,
                                                    u"Microsoft 365"_s,
                                                    u"¥398/年"_s,
                                                    u"Cursor"_s,
                                                    u"$20 起/月"_s,
                                                    u"Notion"_s,
                                                    u"$10 起/月"_s,
                                                    u"跳过"_s,
                                                    u"下一步"_s})
                                     : (QStringList{u"[ QUICK ADD ]"_s,
                                                    u"Check what you use — skip typing each one"_s,
                                                    u"China"_s,
                                                    u"Global"_s,
                                                    u"iQIYI VIP"_s,
                                                    u"¥30/mo"_s,
                                                    u"Tencent Video VIP"_s,
                                                    u"¥30/mo"_s,
                                                    u"Youku VIP"_s,
                                                    u"¥25/mo"_s,
                                                    u"Bilibili Premium"_s,
                                                    u"¥25/mo"_s,
                                                    u"Mango TV"_s,
                                                    u"¥22/mo"_s,
                                                    u"NetEase Music VIP"_s,
                                                    u"¥15/mo"_s,
                                                    u"QQ Music VIP"_s,
                                                    u"¥15/mo"_s,
                                                    u"WeRead VIP"_s,
                                                    u"¥19/mo"_s,
                                                    u"Zhihu Yanxuan"_s,
                                                    u"¥19/mo"_s,
                                                    u"Baidu Netdisk SVIP"_s,
                                                    u"¥30/mo"_s,
                                                    u"Aliyun Drive"_s,
                                                    u"¥20/mo"_s,
                                                    u"iCloud+"_s,
                                                    u"From ¥6/mo"_s,
                                                    u"Apple Music"_s,
                                                    u"¥11/mo"_s,
                                                    u"Apple TV+"_s,
                                                    u"¥25/mo"_s,
                                                    u"ChatGPT"_s,
                                                    u"From $8/mo"_s,
                                                    u"CapCut VIP"_s,
                                                    u"¥30/mo"_s,
                                                    u"WPS Premium"_s,
                                                    u"¥15/mo"_s,
                                                    u"Microsoft 365"_s,
                                                    u"¥398/yr"_s,
                                                    u"Cursor"_s,
                                                    u"From $20/mo"_s,
                                                    u"Notion"_s,
                                                    u"From $10/mo"_s,
                                                    u"Skip"_s,
                                                    u"Continue"_s}));
    EXPECT_EQ(stage->value("sheet", "label"), pair(u"快速添加常见服务"_s, u"QUICK ADD"_s));
    EXPECT_EQ(stage->value("sheet", "preferredWidth"), 540);
    EXPECT_EQ(stage->value("sheet", "preferredHeight"), 640);
    EXPECT_FALSE(item("continue").isEnabled());
    EXPECT_EQ(item("continue").opacity(), 0.45);
}

TEST_P(QuickPickTest, ShowsTheOtherRegionFromItsBeginning) {
    open();
    stage->press(Qt::Key_End);
    ASSERT_EQ(place(), u"cell19 button"_s);
    EXPECT_GT(item("cells").property("contentY").toReal(), 0);
    stage->click(*stage->itemWith("modelData", pair(u"国际常用"_s, u"Global"_s)));
    EXPECT_EQ(pick->region(), ServiceRegion::global);
    EXPECT_EQ(item("cells").property("contentY"), 0);
    const QStringList texts = stage->texts();
    EXPECT_EQ(texts.mid(4, 4),
              (QStringList{u"Netflix"_s, pair(u"$15.49/月"_s, u"$15.49/mo"_s), u"Spotify Premium"_s,
                           pair(u"$11.99/月"_s, u"$11.99/mo"_s)}));
    EXPECT_EQ(texts.mid(texts.indexOf(u"NordVPN"_s)),
              isZh() ? (QStringList{u"NordVPN"_s, u"$12.99/月"_s, u"跳过"_s, u"下一步"_s})
                     : (QStringList{u"NordVPN"_s, u"$12.99/mo"_s, u"Skip"_s, u"Continue"_s}));
    stage->click(*stage->itemWith("modelData", pair(u"国内常用"_s, u"China"_s)));
    EXPECT_TRUE(stage->texts().contains(pair(u"爱奇艺 VIP"_s, u"iQIYI VIP"_s)));
    ASSERT_EQ(place(), u"region"_s);
    stage->press(Qt::Key_Tab);
    EXPECT_EQ(place(), u"cell0 button"_s);
}

TEST_P(QuickPickTest, TicksByAClick) {
    open();
    EXPECT_EQ(marker("iqiyi"), QString());
    EXPECT_EQ(ofCell("iqiyi", "marker").width(), 16);
    EXPECT_EQ(ofCell("iqiyi", "marker").height(), 16);
    stage->click(ofCell("iqiyi", "button"));
    EXPECT_TRUE(pick->selected().contains(u"iqiyi"_s));
    EXPECT_EQ(marker("iqiyi"), u"checkmark.circle.fill"_s);
    EXPECT_EQ(ofCell("iqiyi", "marker").property("color").value<QColor>(), QColor(u"#F6C94A"_s));
    EXPECT_TRUE(item("continue").isEnabled());
    EXPECT_EQ(item("continue").opacity(), 1);
    stage->click(ofCell("iqiyi", "button"));
    EXPECT_EQ(marker("iqiyi"), QString());
    EXPECT_FALSE(item("continue").isEnabled());
}

TEST_P(QuickPickTest, OffersTheTiersOfATickedService) {
    open();
    item("cells").setProperty("contentY", 200);
    stage->settle();
    EXPECT_FALSE(ofCell("icloud-cn", "tiers").isVisible());
    const qreal height = cell(11).height();
    stage->click(ofCell("icloud-cn", "button"));
    QQuickItem &tiers = ofCell("icloud-cn", "tiers");
    EXPECT_TRUE(tiers.isVisible());
    EXPECT_EQ(tiers.property("displayText"), u"50GB · ¥6"_s);
    EXPECT_GT(cell(11).height(), height);
    EXPECT_TRUE(stage->texts().contains(pair(u"¥6/月"_s, u"¥6/mo"_s)));
    stage->click(tiers);
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return stage->itemWith("modelData", u"2TB · ¥68"_s) != nullptr; }));
    stage->settle();
    EXPECT_TRUE(stage->itemWith("modelData", u"200GB · ¥21"_s));
    stage->click(*stage->itemWith("modelData", u"2TB · ¥68"_s));
    EXPECT_EQ(pick->selected()[u"icloud-cn"_s].tierID, u"2tb"_s);
    EXPECT_EQ(tiers.property("displayText"), u"2TB · ¥68"_s);
    EXPECT_TRUE(stage->texts().contains(pair(u"¥68/月"_s, u"¥68/mo"_s)));
    stage->click(ofCell("icloud-cn", "button"));
    EXPECT_FALSE(tiers.isVisible());
    EXPECT_TRUE(stage->texts().contains(pair(u"¥6 起/月"_s, u"From ¥6/mo"_s)));
    EXPECT_EQ(cell(11).height(), height);
    // One without tiers has no picker.
    stage->click(ofCell("aliyun-pan", "button"));
    EXPECT_FALSE(ofCell("aliyun-pan", "tiers").isVisible());
}

TEST_P(QuickPickTest, KeepsTheTierInTheOtherLanguage) {
    open();
    pick->toggle(preset(u"notion-cn"_s));
    pick->chooseTier(cellOf(u"notion-cn"_s), 2);
    stage->settle();
    QQuickItem &tiers = ofCell("notion-cn", "tiers");
    EXPECT_EQ(tiers.property("displayText"), pair(u"其他 · 自定"_s, u"Other · custom"_s));
    EXPECT_TRUE(stage->texts().contains(pair(u"金额自定"_s, u"Custom price"_s)));
    const LanguageScope other(otherLang());
    stage->settle();
    EXPECT_EQ(tiers.property("displayText"), pair(u"Other · custom"_s, u"其他 · 自定"_s));
    EXPECT_EQ(tiers.property("currentIndex"), 2);
    EXPECT_EQ(pick->selected()[u"notion-cn"_s].tierID, u"custom"_s);
    EXPECT_EQ(stage->screen().property("label"), pair(u"QUICK ADD"_s, u"快速添加常见服务"_s));
    EXPECT_TRUE(stage->texts().contains(pair(u"Continue"_s, u"下一步"_s)));
}

TEST_P(QuickPickTest, TakesNoServiceThatIsInTheStore) {
    store.add(sampleSubscription(u"Netflix"_s));
    open();
    pick->setRegion(ServiceRegion::global);
    stage->settle();
    QQuickItem &button = ofCell("netflix", "button");
    EXPECT_EQ(marker("netflix"), u"minus.circle"_s);
    EXPECT_EQ(button.opacity(), 0.45);
    EXPECT_EQ(ofCell("spotify", "button").opacity(), 1);
    stage->click(button);
    EXPECT_TRUE(pick->selected().isEmpty());
    Stage::pressByScreenReader(button);
    EXPECT_TRUE(pick->selected().isEmpty());
    EXPECT_EQ(Stage::accessible(button)->text(QAccessible::Description),
              pair(u"$15.49/月，已添加"_s, u"$15.49/mo, already added"_s));
    stage->press(Qt::Key_Home);
    EXPECT_EQ(place(), u"cell1 button"_s);
    store.deleteSubscription(store.subscriptions().first());
    stage->settle();
    EXPECT_EQ(marker("netflix"), QString());
    EXPECT_EQ(button.opacity(), 1);
    stage->click(button);
    EXPECT_TRUE(pick->selected().contains(u"netflix"_s));
}

TEST_P(QuickPickTest, BearsThatNothingCanBeTicked) {
    QStringList names;
    for (const ServicePreset &one : ServiceCatalog::china())
        names << one.nameZh << one.nameEn;
    store.add(sampleSubscription(names.join(u' ')));
    open();
    for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Home, Qt::Key_End, Qt::Key_Space})
        stage->press(key);
    EXPECT_TRUE(pick->selected().isEmpty());
    EXPECT_TRUE(stage->tabTo(u"region"_s));
    stage->press(Qt::Key_Tab);
    EXPECT_EQ(place(), u"skip"_s);
    store.deleteSubscription(store.subscriptions().first());
    stage->settle();
    stage->press(Qt::Key_Backtab);
    EXPECT_EQ(place(), u"cell0 button"_s);
}

TEST_P(QuickPickTest, PlacesItsCellsByTheWidth) {
    open();
    const auto columns = [this] { return item("grid").property("columns").toInt(); };
    EXPECT_EQ(columns(), 2);
    EXPECT_EQ(cell(1).x() - (cell(0).x() + cell(0).width()), 10);
    EXPECT_EQ(cell(2).y() - cell(0).y() - cell(0).height(), 10);
    EXPECT_EQ(cell(0).width(), cell(1).width());
    stage->resize({420, 500});
    EXPECT_EQ(columns(), 1);
    stage->press(Qt::Key_Down);
    stage->press(Qt::Key_Down);
    EXPECT_EQ(place(), u"cell1 button"_s);
    stage->resize({320, 240});
    stage->resize({640, 720});
    EXPECT_EQ(columns(), 2);
}

TEST_P(QuickPickTest, BringsTheTiersOfATickedServiceIntoSight) {
    open({640, 440});
    QQuickItem &button = ofCell("icloud-cn", "button");
    item("cells").setProperty("contentY", item("cells").property("contentY").toDouble() +
                                              SheetStage::bottom(button) -
                                              SheetStage::bottom(item("cells")));
    stage->settle();
    ASSERT_TRUE(isInSight(button, "cells"));
    stage->click(button);
    stage->settle();
    EXPECT_TRUE(pick->selected().contains(u"icloud-cn"_s));
    EXPECT_TRUE(isInSight(ofCell("icloud-cn", "tiers"), "cells"));
    EXPECT_TRUE(isInSight(button, "cells"));
}

TEST_P(QuickPickTest, TellsTheCellsToAScreenReader) {
    store.add(sampleSubscription(u"优酷 VIP, Youku VIP"_s));
    open();
    pick->toggle(preset(u"icloud-cn"_s));
    stage->settle();
    for (int i = 0; i < pick->cells()->rowCount(); ++i) {
        const QuickPickCells::Cell &shown = pick->cells()->cells()[i];
        QQuickItem &button = SheetStage::piece(cell(i), u"button"_s);
        const QAccessibleInterface *const seen = Stage::accessible(button);
        ASSERT_TRUE(seen);
        EXPECT_EQ(seen->role(), QAccessible::CheckBox);
        EXPECT_EQ(seen->text(QAccessible::Name), shown.name);
        EXPECT_EQ(seen->text(QAccessible::Description),
                  shown.presetID == u"youku" ? pair(u"¥25/月，已添加"_s, u"¥25/mo, already added"_s)
                                             : shown.priceLabel);
        EXPECT_TRUE(seen->state().checkable);
        EXPECT_EQ(bool(seen->state().checked), shown.presetID == u"icloud-cn");
        EXPECT_EQ(bool(seen->state().focusable), shown.presetID != u"youku");
    }
    EXPECT_TRUE(Stage::pressByScreenReader(ofCell("notion-cn", "button")));
    EXPECT_TRUE(pick->selected().contains(u"notion-cn"_s));
    const QAccessibleInterface *const tiers = Stage::accessible(ofCell("icloud-cn", "tiers"));
    ASSERT_TRUE(tiers);
    EXPECT_EQ(tiers->role(), QAccessible::ComboBox);
    EXPECT_EQ(tiers->text(QAccessible::Name), u"iCloud+"_s);
    EXPECT_EQ(tiers->text(QAccessible::Description), u"50GB · ¥6"_s);
}

TEST_P(QuickPickTest, HidesWhatIsScrolledAwayFromAScreenReader) {
    open();
    item("cells").setProperty("contentY", 100);
    stage->settle();
    for (const char *covering : {"region", "skip"}) {
        const QPoint point = Stage::accessible(item(covering))->rect().center();
        QAccessibleInterface *hit = Stage::accessible(item(covering));
        while (hit && hit->role() != QAccessible::Dialog)
            hit = hit->parent();
        ASSERT_TRUE(hit);
        while (QAccessibleInterface *const inner = hit->childAt(point.x(), point.y()))
            hit = inner;
        EXPECT_NE(hit->role(), QAccessible::CheckBox) << hit->text(QAccessible::Name).toStdString();
        EXPECT_TRUE(hit->rect().contains(point));
    }
}

} // namespace tovarin
