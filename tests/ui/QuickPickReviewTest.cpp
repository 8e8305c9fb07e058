// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "catalog/ServiceCatalog.h"
#include "tests/support/Printing.h"
#include "tests/ui/QuickPickTest.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

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
    stage->click(ofCell("iqiyi", "button"));
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
    EXPECT_TRUE(ofCell("icloud-cn", "tiers").isVisible());
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

TEST_P(QuickPickTest, ScrollsBetweenAHeaderAndAFooterThatStay) {
    QStringList ids;
    for (const ServicePreset &one : ServiceCatalog::global())
        ids.append(one.id);
    review(ids);
    EXPECT_EQ(stage->value("add", "title"), pair(u"添加 21 项"_s, u"Add 21"_s));
    const qreal back = SheetStage::top(item("back"));
    const qreal add = SheetStage::top(item("add"));
    EXPECT_FALSE(isInSight(row(20), "rows"));
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

} // namespace tovarin
