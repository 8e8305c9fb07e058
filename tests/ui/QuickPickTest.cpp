// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// The quick pick's sheet, handled as a user does.

#include "catalog/ServiceCatalog.h"
#include "model/Store.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/LanguageTest.h"
#include "tests/support/ManualClock.h"
#include "tests/support/MemoryDefaults.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"
#include "tests/support/ScopedVariable.h"
#include "tests/ui/SheetStage.h"
#include "ui/QuickPickModel.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

const ServicePreset &preset(const QString &id) {
    const ServicePreset *const found = ServiceCatalog::preset(id);
    if (!found)
        qFatal("there is no %s", qPrintable(id));
    return *found;
}

class QuickPickTest : public LanguageTest {
protected:
    void open(QSize size = {640, 720}) {
        stage.reset();
        dismissed.reset();
        pick.emplace(store, clock, LocalizationManager::shared(), logos, defaults, nullptr);
        dismissed.emplace(&*pick, &QuickPickModel::dismissed);
        stage.emplace(u"QuickPickView"_s,
                      QVariantMap{{u"quickPick"_s, QVariant::fromValue(&*pick)}}, size);
    }
    /// Opens it in step 2, with these services.
    void review(const QStringList &ids) {
        open();
        for (const QString &id : ids)
            pick->toggle(preset(id));
        stage->settle();
        stage->click(item("continue"));
        stage->settle();
    }

    QQuickItem &item(const char *name) { return stage->item(name); }

    int cellOf(const QString &id) {
        const QList<QuickPickCells::Cell> &cells = pick->cells()->cells();
        const auto found = std::ranges::find(cells, id, &QuickPickCells::Cell::presetID);
        if (found == cells.end())
            qFatal("%s is not shown", qPrintable(id));
        return static_cast<int>(found - cells.begin());
    }
    /// A cell or a row.
    QQuickItem &whole(const QString &name) {
        QQuickItem *const found = stage->itemWith("objectName", name);
        if (!found)
            qFatal("there is no %s", qPrintable(name));
        return *found;
    }
    /// A piece of a cell, "button", "tiers", "marker", or of a row, "amount", "hint".
    QQuickItem &piece(const QString &of, const QString &name) {
        auto *const found = whole(of).findChild<QQuickItem *>(name);
        if (!found)
            qFatal("%s has no %s", qPrintable(of), qPrintable(name));
        return *found;
    }
    QQuickItem &piece(const char *ofService, const char *name) {
        return piece(u"cell%1"_s.arg(cellOf(QString::fromLatin1(ofService))),
                     QString::fromLatin1(name));
    }
    QQuickItem &ofRow(int row, const char *name) {
        return piece(u"row%1"_s.arg(row), QString::fromLatin1(name));
    }
    QString marker(const char *service) {
        return piece(service, "marker").property("name").toString();
    }

    /// Where the keyboard is: "cell3 button", "row0 amount", "skip".
    QString place() {
        QStringList names;
        for (const QQuickItem *at = stage->window().activeFocusItem(); at; at = at->parentItem()) {
            const QString name = at->objectName();
            if (name.startsWith(u"cell"_s) && name != u"cells"_s)
                return name + u' ' + names.first();
            if (name.startsWith(u"row"_s) && name != u"rows"_s)
                return name + u' ' + names.first();
            if (!name.isEmpty())
                names.append(name);
        }
        return names.value(0);
    }
    void retype(QQuickItem &field, const QString &text) {
        stage->click(field);
        stage->press(Qt::Key_A, Qt::ControlModifier);
        stage->press(Qt::Key_Backspace);
        stage->type(text);
    }
    bool isInSight(const QQuickItem &it, const char *area) {
        return SheetStage::top(it) >= SheetStage::top(item(area)) &&
               SheetStage::bottom(it) <= SheetStage::bottom(item(area));
    }
    QStringList storedNames() const {
        QStringList names;
        for (const Subscription &sub : store.subscriptions())
            names.append(sub.name);
        return names;
    }

    // The fields write numbers as the user does.
    ScopedVariable locale{"LC_ALL", "en_US.UTF-8"};
    QTemporaryDir folder;
    LanguageScope language{GetParam()};
    ManualClock clock{instant("2025-06-09T20:00:00Z")};
    UserCalendar calendar = calendarIn("Asia/Shanghai");
    Store store{folder.path(), clock, calendar};
    Bundle bundle{u":/resources"_s};
    ServiceLogo logos{bundle};
    MemoryDefaults defaults;
    std::optional<QuickPickModel> pick;
    std::optional<QSignalSpy> dismissed;
    std::optional<SheetStage> stage;
};

} // namespace

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
    EXPECT_EQ(piece("iqiyi", "marker").width(), 16);
    EXPECT_EQ(piece("iqiyi", "marker").height(), 16);
    stage->click(piece("iqiyi", "button"));
    EXPECT_TRUE(pick->selected().contains(u"iqiyi"_s));
    EXPECT_EQ(marker("iqiyi"), u"checkmark.circle.fill"_s);
    EXPECT_EQ(piece("iqiyi", "marker").property("color").value<QColor>(), QColor(u"#F6C94A"_s));
    EXPECT_TRUE(item("continue").isEnabled());
    EXPECT_EQ(item("continue").opacity(), 1);
    stage->click(piece("iqiyi", "button"));
    EXPECT_EQ(marker("iqiyi"), QString());
    EXPECT_FALSE(item("continue").isEnabled());
}

TEST_P(QuickPickTest, OffersTheTiersOfATickedService) {
    open();
    item("cells").setProperty("contentY", 200);
    stage->settle();
    EXPECT_FALSE(piece("icloud-cn", "tiers").isVisible());
    const qreal height = whole(u"cell11"_s).height();
    stage->click(piece("icloud-cn", "button"));
    QQuickItem &tiers = piece("icloud-cn", "tiers");
    EXPECT_TRUE(tiers.isVisible());
    EXPECT_EQ(tiers.property("displayText"), u"50GB · ¥6"_s);
    EXPECT_GT(whole(u"cell11"_s).height(), height);
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
    stage->click(piece("icloud-cn", "button"));
    EXPECT_FALSE(tiers.isVisible());
    EXPECT_TRUE(stage->texts().contains(pair(u"¥6 起/月"_s, u"From ¥6/mo"_s)));
    EXPECT_EQ(whole(u"cell11"_s).height(), height);
    // One without tiers has no picker.
    stage->click(piece("aliyun-pan", "button"));
    EXPECT_FALSE(piece("aliyun-pan", "tiers").isVisible());
}

TEST_P(QuickPickTest, KeepsTheTierInTheOtherLanguage) {
    open();
    pick->toggle(preset(u"notion-cn"_s));
    pick->chooseTier(cellOf(u"notion-cn"_s), 2);
    stage->settle();
    QQuickItem &tiers = piece("notion-cn", "tiers");
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
    QQuickItem &button = piece("netflix", "button");
    EXPECT_EQ(marker("netflix"), u"minus.circle"_s);
    EXPECT_EQ(button.opacity(), 0.45);
    EXPECT_EQ(piece("spotify", "button").opacity(), 1);
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

TEST_P(QuickPickTest, IsWalkedByTheArrowKeys) {
    for (const QString &name : {u"优酷 VIP and Youku VIP"_s, u"Apple TV+"_s})
        store.add(sampleSubscription(name));
    open();
    struct {
        Qt::Key key;
        QString place;
    } const steps[] = {
        {Qt::Key_Right, u"cell0 button"_s}, // Into the grid.
        {Qt::Key_Left, u"cell0 button"_s},  {Qt::Key_Up, u"cell0 button"_s},
        {Qt::Key_Right, u"cell1 button"_s}, {Qt::Key_Right, u"cell3 button"_s},
        {Qt::Key_Left, u"cell1 button"_s},  {Qt::Key_Left, u"cell0 button"_s},
        {Qt::Key_Down, u"cell4 button"_s},  {Qt::Key_Up, u"cell0 button"_s},
        {Qt::Key_End, u"cell19 button"_s},  {Qt::Key_Right, u"cell19 button"_s},
        {Qt::Key_Down, u"cell19 button"_s}, {Qt::Key_Up, u"cell17 button"_s},
        {Qt::Key_Home, u"cell0 button"_s},
    };
    for (const auto &[key, at] : steps) {
        stage->press(key);
        EXPECT_EQ(place(), at) << key;
        const QQuickItem &focused = *stage->window().activeFocusItem();
        EXPECT_TRUE(focused.property("visualFocus").toBool()) << key;
        EXPECT_TRUE(isInSight(focused, "cells")) << key;
    }
    stage->press(Qt::Key_Space);
    EXPECT_EQ(pick->selected().keys(), QStringList{u"iqiyi"_s});
    stage->press(Qt::Key_Right);
    stage->press(Qt::Key_Return);
    EXPECT_TRUE(pick->selected().contains(u"tencent-video"_s));
    stage->hold(Qt::Key_Enter);
    EXPECT_EQ(pick->selected().keys(), QStringList{u"iqiyi"_s});
    EXPECT_EQ(pick->step(), 1);
}

TEST_P(QuickPickTest, IsVisitedInOrderByTab) {
    open();
    const auto visit = [this](Qt::Key key, int times) {
        QStringList visited;
        for (int i = 0; i < times; ++i) {
            stage->press(key);
            visited.append(place());
        }
        return visited;
    };
    EXPECT_EQ(visit(Qt::Key_Tab, 4),
              (QStringList{u"cell0 button"_s, u"skip"_s, u"region"_s, u"cell0 button"_s}));
    stage->press(Qt::Key_End);
    stage->press(Qt::Key_Space);
    EXPECT_EQ(visit(Qt::Key_Tab, 5), (QStringList{u"cell19 tiers"_s, u"skip"_s, u"continue"_s,
                                                  u"region"_s, u"cell19 button"_s}));
    EXPECT_EQ(visit(Qt::Key_Backtab, 2), (QStringList{u"region"_s, u"continue"_s}));
    EXPECT_EQ(visit(Qt::Key_Backtab, 3),
              (QStringList{u"skip"_s, u"cell19 tiers"_s, u"cell19 button"_s}));
    EXPECT_TRUE(isInSight(*stage->window().activeFocusItem(), "cells"));
    // Of several pickers, the one of the cell that the keyboard is at.
    stage->press(Qt::Key_Left);
    stage->press(Qt::Key_Space);
    EXPECT_EQ(visit(Qt::Key_Tab, 2), (QStringList{u"cell18 tiers"_s, u"skip"_s}));
}

TEST_P(QuickPickTest, ChoosesATierByKeys) {
    open();
    stage->press(Qt::Key_End);
    stage->press(Qt::Key_Space);
    stage->press(Qt::Key_Tab);
    ASSERT_EQ(place(), u"cell19 tiers"_s);
    EXPECT_TRUE(isInSight(piece("notion-cn", "tiers"), "cells"));
    stage->press(Qt::Key_Down);
    EXPECT_EQ(pick->selected()[u"notion-cn"_s].tierID, u"business"_s);
    EXPECT_EQ(place(), u"cell19 tiers"_s);
    stage->press(Qt::Key_End);
    EXPECT_EQ(pick->selected()[u"notion-cn"_s].tierID, u"custom"_s);
    EXPECT_EQ(place(), u"cell19 tiers"_s);
    // Back to the cell.
    stage->press(Qt::Key_Left);
    EXPECT_EQ(place(), u"cell19 button"_s);
    stage->press(Qt::Key_Left);
    EXPECT_EQ(place(), u"cell18 button"_s);
}

TEST_P(QuickPickTest, GivesTheKeyboardToAnotherCellWhereOneGoes) {
    open();
    pick->setRegion(ServiceRegion::global);
    stage->settle();
    stage->press(Qt::Key_Home);
    stage->press(Qt::Key_Space);
    ASSERT_EQ(place(), u"cell0 button"_s);
    store.add(sampleSubscription(u"Netflix"_s));
    stage->settle();
    EXPECT_EQ(place(), u"cell0 button"_s);
    stage->press(Qt::Key_Space);
    EXPECT_TRUE(pick->selected().isEmpty());
    EXPECT_EQ(place(), u"cell1 button"_s);
    stage->press(Qt::Key_Space);
    EXPECT_EQ(pick->selected().keys(), QStringList{u"spotify"_s});
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

TEST_P(QuickPickTest, GoesOnByReturn) {
    open();
    stage->press(Qt::Key_Return);
    EXPECT_EQ(pick->step(), 1);
    stage->click(piece("tencent-video", "button"));
    QKeyEvent heldFromBefore(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(&stage->window(), &heldFromBefore);
    EXPECT_EQ(pick->step(), 1);
    stage->hold(Qt::Key_Return);
    EXPECT_EQ(pick->step(), 2);
    EXPECT_EQ(dismissed->size(), 0);
    stage->press(Qt::Key_Enter);
    EXPECT_EQ(dismissed->size(), 1);
    EXPECT_EQ(storedNames(), QStringList{pair(u"腾讯视频 VIP"_s, u"Tencent Video VIP"_s)});
}

TEST_P(QuickPickTest, LeavesTheCellForAClickElsewhere) {
    open();
    stage->press(Qt::Key_Right);
    ASSERT_EQ(place(), u"cell0 button"_s);
    stage->click(piece("youku", "button"));
    EXPECT_EQ(pick->selected().keys(), QStringList{u"youku"_s});
    // Return goes on, and the arrows begin at what was clicked.
    stage->press(Qt::Key_Right);
    EXPECT_EQ(place(), u"cell2 button"_s);
    stage->press(Qt::Key_Right);
    EXPECT_EQ(place(), u"cell3 button"_s);
    stage->click(piece("iqiyi", "button"));
    stage->press(Qt::Key_Return);
    EXPECT_EQ(pick->step(), 2);
    EXPECT_EQ(pick->count(), 2);
}

TEST_P(QuickPickTest, ShowsTheReview) {
    review({u"iqiyi"_s, u"m365-cn"_s, u"netflix"_s});
    EXPECT_EQ(stage->texts(),
              isZh()
                  ? (QStringList{u"返回"_s, u"[ 确认并调整 ]"_s,
                                 u"可改金额；选「其他」需自行填写"_s, u"爱奇艺 VIP"_s, u"30"_s,
                                 u"每月"_s, u"Microsoft 365"_s, u"398"_s, u"每年"_s, u"Netflix"_s,
                                 u"15.49"_s, u"每月"_s, u"跳过"_s, u"添加 3 项"_s})
                  : (QStringList{u"Back"_s, u"[ REVIEW ]"_s,
                                 u"Edit amounts; fill in price for「Other」"_s, u"iQIYI VIP"_s,
                                 u"30"_s, u"Monthly"_s, u"Microsoft 365"_s, u"398"_s, u"Yearly"_s,
                                 u"Netflix"_s, u"15.49"_s, u"Monthly"_s, u"Skip"_s, u"Add 3"_s}));
    EXPECT_EQ(stage->screen().property("label"), pair(u"确认并调整"_s, u"REVIEW"_s));
    EXPECT_EQ(item("add").opacity(), 1);
    const LanguageScope other(otherLang());
    stage->settle();
    EXPECT_TRUE(stage->texts().contains(pair(u"Add 3"_s, u"添加 3 项"_s)));
    EXPECT_TRUE(stage->texts().contains(pair(u"Yearly"_s, u"每年"_s)));
    EXPECT_TRUE(stage->texts().contains(pair(u"爱奇艺 VIP"_s, u"iQIYI VIP"_s)));
}

TEST_P(QuickPickTest, AsksForTheAmountOfACustomPlan) {
    open();
    pick->toggle(preset(u"iqiyi"_s));
    pick->toggle(preset(u"chatgpt-cn"_s));
    pick->chooseTier(cellOf(u"chatgpt-cn"_s), 2);
    stage->settle();
    stage->click(item("continue"));
    EXPECT_TRUE(stage->texts().contains(pair(u"ChatGPT · 其他"_s, u"ChatGPT · Other"_s)));
    // It has the keyboard.
    EXPECT_EQ(place(), u"row1 amount"_s);
    QQuickItem &hint = ofRow(1, "hint");
    EXPECT_EQ(hint.property("text"), pair(u"请填金额"_s, u"Enter amount"_s));
    EXPECT_TRUE(hint.isVisible());
    EXPECT_FALSE(ofRow(0, "hint").isVisible());
    QQuickItem &field = ofRow(1, "amount");
    EXPECT_EQ(field.property("text"), u"0"_s);
    stage->type(u"7"_s);
    EXPECT_EQ(field.property("text"), u"7"_s);
    retype(field, u"0"_s);
    EXPECT_TRUE(hint.isVisible());
    stage->type(u".5"_s);
    EXPECT_FALSE(hint.isVisible());
    EXPECT_EQ(pick->confirmRows()[1].subscription.amount, 0.5);
    retype(field, u"-3"_s);
    EXPECT_TRUE(hint.isVisible());
    retype(ofRow(0, "amount"), u"0"_s);
    EXPECT_TRUE(ofRow(0, "hint").isVisible());
    retype(field, u"12"_s);
    EXPECT_EQ(place(), u"row1 amount"_s);
    stage->press(Qt::Key_Return);
    EXPECT_EQ(dismissed->size(), 1);
    EXPECT_EQ(storedNames(), QStringList{pair(u"ChatGPT · 其他"_s, u"ChatGPT · Other"_s)});
    EXPECT_EQ(store.subscriptions().first().amount, 12);
}

TEST_P(QuickPickTest, LeavesTheAmountForATextThatIsNoNumber) {
    review({u"iqiyi"_s});
    QQuickItem &field = ofRow(0, "amount");
    retype(field, u"4x"_s);
    EXPECT_EQ(pick->confirmRows()[0].subscription.amount, 30);
    EXPECT_FALSE(field.property("acceptable").toBool());
    EXPECT_EQ(place(), u"row0 amount"_s);
    EXPECT_EQ(field.property("text"), u"4x"_s);
    stage->press(Qt::Key_Backspace);
    EXPECT_TRUE(field.property("acceptable").toBool());
    EXPECT_EQ(pick->confirmRows()[0].subscription.amount, 4);
    stage->press(Qt::Key_Backspace);
    EXPECT_EQ(pick->confirmRows()[0].subscription.amount, 30);
    EXPECT_EQ(field.property("placeholderText"), u"0"_s);
    stage->press(Qt::Key_Tab);
    EXPECT_EQ(field.property("text"), u"30"_s);
}

TEST_P(QuickPickTest, TakesAmountsAsTheUserWritesThem) {
    struct {
        const char *locale;
        QString shown;
        QString typed;
        double amount;
        QString refused;
    } const cases[] = {
        {"en_US.UTF-8", u"15.49"_s, u"1,234.5"_s, 1234.5, u"9,99"_s},
        {"de_DE.UTF-8", u"15,49"_s, u"1.234,5"_s, 1234.5, u"9.99"_s},
        {"fa_IR.UTF-8", u"۱۵٫۴۹"_s, u"۱٬۲۳۴٫۵"_s, 1234.5, u"۹٬۹۹"_s},
    };
    for (const auto &[name, shown, typed, amount, refused] : cases) {
        const ScopedVariable variable("LC_ALL", name);
        review({u"netflix"_s});
        QQuickItem &field = ofRow(0, "amount");
        EXPECT_EQ(field.property("text"), shown) << name;
        retype(field, refused);
        EXPECT_EQ(pick->confirmRows()[0].subscription.amount, 15.49) << name;
        EXPECT_FALSE(field.property("acceptable").toBool()) << name;
        retype(field, typed);
        EXPECT_EQ(pick->confirmRows()[0].subscription.amount, amount) << name;
        EXPECT_TRUE(field.property("acceptable").toBool()) << name;
    }
}

TEST_P(QuickPickTest, AddsByAClick) {
    review({u"iqiyi"_s, u"netflix"_s});
    stage->click(item("add"));
    EXPECT_EQ(dismissed->size(), 1);
    EXPECT_EQ(storedNames(), (QStringList{pair(u"爱奇艺 VIP"_s, u"iQIYI VIP"_s), u"Netflix"_s}));
    EXPECT_EQ(defaults.boolean(u"didCompleteQuickPick"_s), true);
}

TEST_P(QuickPickTest, AddsNothingByADoubleClickOnContinue) {
    open();
    stage->click(piece("iqiyi", "button"));
    const QPoint at = stage->middleOf(item("continue"));
    int time = QTest::lastMouseTimestamp + 5000;
    const auto clickAgain = [&](int milliseconds) {
        time += milliseconds;
        QWindow &window = stage->window();
        qt_handleMouseEvent(&window, at, window.mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                            QEvent::MouseButtonPress, {}, time);
        qt_handleMouseEvent(&window, at, window.mapToGlobal(at), {}, Qt::LeftButton,
                            QEvent::MouseButtonRelease, {}, time);
        stage->settle();
    };
    clickAgain(0);
    EXPECT_EQ(pick->step(), 2);
    ASSERT_TRUE(item("add").contains(item("add").mapFromScene(at)));
    clickAgain(100);
    EXPECT_EQ(dismissed->size(), 0);
    clickAgain(5000);
    EXPECT_EQ(dismissed->size(), 1);
    QTest::lastMouseTimestamp = time + 5000;
}

TEST_P(QuickPickTest, GoesBackAndKeepsTheTicks) {
    review({u"iqiyi"_s, u"icloud-cn"_s});
    EXPECT_TRUE(stage->tabTo(u"back"_s));
    stage->press(Qt::Key_Return);
    EXPECT_EQ(pick->step(), 1);
    EXPECT_EQ(marker("iqiyi"), u"checkmark.circle.fill"_s);
    EXPECT_TRUE(piece("icloud-cn", "tiers").isVisible());
    EXPECT_FALSE(item("back").isVisible());
    EXPECT_FALSE(item("add").isVisible());
    stage->press(Qt::Key_Right);
    EXPECT_EQ(place(), u"cell0 button"_s);
    stage->press(Qt::Key_Space);
    stage->click(item("continue"));
    EXPECT_EQ(pick->count(), 1);
    stage->click(item("back"));
    stage->press(Qt::Key_Return);
    EXPECT_EQ(pick->step(), 2);
}

TEST_P(QuickPickTest, SkipsInEitherStep) {
    open();
    stage->click(piece("iqiyi", "button"));
    stage->click(item("skip"));
    EXPECT_EQ(dismissed->size(), 1);
    review({u"iqiyi"_s});
    EXPECT_TRUE(stage->tabTo(u"skip"_s));
    stage->press(Qt::Key_Space);
    EXPECT_EQ(dismissed->size(), 1);
    EXPECT_TRUE(store.subscriptions().isEmpty());
    EXPECT_EQ(defaults.boolean(u"didCompleteQuickPick"_s), true);
}

TEST_P(QuickPickTest, LeavesEscapeToTheSheet) {
    open();
    stage->press(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !stage->isOpen(); }));
    EXPECT_EQ(dismissed->size(), 0);
    EXPECT_EQ(defaults.boolean(u"didCompleteQuickPick"_s), std::nullopt);
}

TEST_P(QuickPickTest, ScrollsBetweenAHeaderAndAFooterThatStay) {
    QStringList ids;
    for (const ServicePreset &one : ServiceCatalog::global())
        ids.append(one.id);
    review(ids);
    EXPECT_EQ(stage->value("add", "title"), pair(u"添加 21 项"_s, u"Add 21"_s));
    const qreal back = SheetStage::top(item("back"));
    const qreal add = SheetStage::top(item("add"));
    EXPECT_FALSE(isInSight(whole(u"row20"_s), "rows"));
    QStringList visited;
    EXPECT_TRUE(stage->tabTo(u"back"_s));
    for (int i = 0; i < 21; ++i) {
        stage->press(Qt::Key_Tab);
        visited.append(place());
        EXPECT_TRUE(isInSight(*stage->window().activeFocusItem(), "rows")) << i;
    }
    EXPECT_EQ(visited.first(), u"row0 amount"_s);
    EXPECT_EQ(visited.last(), u"row20 amount"_s);
    EXPECT_EQ(visited.removeDuplicates(), 0);
    stage->press(Qt::Key_Tab);
    EXPECT_EQ(place(), u"skip"_s);
    EXPECT_EQ(SheetStage::top(item("back")), back);
    EXPECT_EQ(SheetStage::top(item("add")), add);
    // Who goes on again begins at the top.
    EXPECT_GT(item("rows").property("contentY").toReal(), 0);
    stage->click(item("back"));
    stage->click(item("continue"));
    EXPECT_EQ(item("rows").property("contentY"), 0);
    stage->press(Qt::Key_PageDown);
    EXPECT_GT(item("rows").property("contentY").toReal(), 0);
}

TEST_P(QuickPickTest, CutsNoTextShort) {
    for (const ServiceRegion region : allServiceRegions) {
        open();
        pick->setRegion(region);
        for (const ServicePreset &one : ServiceCatalog::presets(region))
            pick->toggle(one);
        for (int tier = 0; tier < 3; ++tier) {
            for (int i = 0; i < pick->cells()->rowCount(); ++i)
                pick->chooseTier(i, tier);
            stage->settle();
            const QQuickItem *const cut = stage->itemWith("truncated", true);
            EXPECT_FALSE(cut) << cut->property("text").toString().toStdString();
        }
        stage->click(item("continue"));
        const QQuickItem *const cut = stage->itemWith("truncated", true);
        EXPECT_FALSE(cut) << cut->property("text").toString().toStdString();
    }
}

TEST_P(QuickPickTest, PlacesItsCellsByTheWidth) {
    open();
    const auto columns = [this] { return item("grid").property("columns").toInt(); };
    EXPECT_EQ(columns(), 2);
    EXPECT_EQ(whole(u"cell1"_s).x() - (whole(u"cell0"_s).x() + whole(u"cell0"_s).width()), 10);
    EXPECT_EQ(whole(u"cell2"_s).y() - whole(u"cell0"_s).y() - whole(u"cell0"_s).height(), 10);
    EXPECT_EQ(whole(u"cell0"_s).width(), whole(u"cell1"_s).width());
    stage->resize({420, 500});
    EXPECT_EQ(columns(), 1);
    stage->press(Qt::Key_Down);
    stage->press(Qt::Key_Down);
    EXPECT_EQ(place(), u"cell1 button"_s);
    stage->resize({320, 240});
    stage->resize({640, 720});
    EXPECT_EQ(columns(), 2);
}

TEST_P(QuickPickTest, TellsTheCellsToAScreenReader) {
    store.add(sampleSubscription(u"优酷 VIP, Youku VIP"_s));
    open();
    pick->toggle(preset(u"icloud-cn"_s));
    stage->settle();
    for (int i = 0; i < pick->cells()->rowCount(); ++i) {
        const QuickPickCells::Cell &cell = pick->cells()->cells()[i];
        QQuickItem &button = piece(u"cell%1"_s.arg(i), u"button"_s);
        const QAccessibleInterface *const seen = Stage::accessible(button);
        ASSERT_TRUE(seen);
        EXPECT_EQ(seen->role(), QAccessible::CheckBox);
        EXPECT_EQ(seen->text(QAccessible::Name), cell.name);
        EXPECT_EQ(seen->text(QAccessible::Description),
                  cell.presetID == u"youku" ? pair(u"¥25/月，已添加"_s, u"¥25/mo, already added"_s)
                                            : cell.priceLabel);
        EXPECT_TRUE(seen->state().checkable);
        EXPECT_EQ(bool(seen->state().checked), cell.presetID == u"icloud-cn");
        EXPECT_EQ(bool(seen->state().focusable), cell.presetID != u"youku");
    }
    EXPECT_TRUE(Stage::pressByScreenReader(piece("notion-cn", "button")));
    EXPECT_TRUE(pick->selected().contains(u"notion-cn"_s));
    const QAccessibleInterface *const tiers = Stage::accessible(piece("icloud-cn", "tiers"));
    ASSERT_TRUE(tiers);
    EXPECT_EQ(tiers->role(), QAccessible::ComboBox);
    EXPECT_EQ(tiers->text(QAccessible::Name), u"iCloud+"_s);
    EXPECT_EQ(tiers->text(QAccessible::Description), u"50GB · ¥6"_s);
}

TEST_P(QuickPickTest, BringsTheTiersOfATickedServiceIntoSight) {
    open({640, 440});
    QQuickItem &button = piece("icloud-cn", "button");
    item("cells").setProperty("contentY", item("cells").property("contentY").toDouble() +
                                              SheetStage::bottom(button) -
                                              SheetStage::bottom(item("cells")));
    stage->settle();
    ASSERT_TRUE(isInSight(button, "cells"));
    stage->click(button);
    stage->settle();
    EXPECT_TRUE(pick->selected().contains(u"icloud-cn"_s));
    EXPECT_TRUE(isInSight(piece("icloud-cn", "tiers"), "cells"));
    EXPECT_TRUE(isInSight(button, "cells"));
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

TEST_P(QuickPickTest, TellsTheReviewToAScreenReader) {
    open();
    pick->toggle(preset(u"iqiyi"_s));
    pick->toggle(preset(u"cursor-cn"_s));
    pick->chooseTier(cellOf(u"cursor-cn"_s), 2);
    stage->settle();
    stage->click(item("continue"));
    EXPECT_EQ(stage->told(),
              isZh() ? (QStringList{u"Dialog 快速添加常见服务"_s, u"Button 返回 [press]"_s,
                                    u"StaticText [ 确认并调整 ]"_s,
                                    u"StaticText 可改金额；选「其他」需自行填写"_s,
                                    u"List 确认并调整"_s, u"ListItem 爱奇艺 VIP"_s,
                                    u"StaticText 爱奇艺 VIP"_s, u"EditableText 爱奇艺 VIP = 30"_s,
                                    u"StaticText 每月"_s, u"ListItem Cursor · 其他"_s,
                                    u"StaticText Cursor · 其他"_s, u"StaticText 请填金额"_s,
                                    u"EditableText Cursor · 其他 = 0"_s, u"StaticText 每月"_s,
                                    u"Button 跳过 [press]"_s, u"Button 添加 2 项 [press]"_s})
                     : (QStringList{u"Dialog QUICK ADD"_s, u"Button Back [press]"_s,
                                    u"StaticText [ REVIEW ]"_s,
                                    u"StaticText Edit amounts; fill in price for「Other」"_s,
                                    u"List REVIEW"_s, u"ListItem iQIYI VIP"_s,
                                    u"StaticText iQIYI VIP"_s, u"EditableText iQIYI VIP = 30"_s,
                                    u"StaticText Monthly"_s, u"ListItem Cursor · Other"_s,
                                    u"StaticText Cursor · Other"_s, u"StaticText Enter amount"_s,
                                    u"EditableText Cursor · Other = 0"_s, u"StaticText Monthly"_s,
                                    u"Button Skip [press]"_s, u"Button Add 2 [press]"_s}));
}

INSTANTIATE_TEST_SUITE_P(, QuickPickTest, bothLanguages(), languageName);

} // namespace tovarin
