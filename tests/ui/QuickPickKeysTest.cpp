// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/support/Printing.h"
#include "tests/ui/QuickPickTest.h"

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

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
    EXPECT_TRUE(isInSight(ofCell("notion-cn", "tiers"), "cells"));
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

TEST_P(QuickPickTest, GoesOnByReturn) {
    open();
    stage->press(Qt::Key_Return);
    EXPECT_EQ(pick->step(), 1);
    stage->click(ofCell("tencent-video", "button"));
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
    stage->click(ofCell("youku", "button"));
    EXPECT_EQ(pick->selected().keys(), QStringList{u"youku"_s});
    // Return goes on, and the arrows begin at what was clicked.
    stage->press(Qt::Key_Right);
    EXPECT_EQ(place(), u"cell2 button"_s);
    stage->press(Qt::Key_Right);
    EXPECT_EQ(place(), u"cell3 button"_s);
    stage->click(ofCell("iqiyi", "button"));
    stage->press(Qt::Key_Return);
    EXPECT_EQ(pick->step(), 2);
    EXPECT_EQ(pick->count(), 2);
}

} // namespace tovarin
