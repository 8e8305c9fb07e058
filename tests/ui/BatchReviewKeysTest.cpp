// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// The batch review without a mouse: by the keyboard, and with a screen reader.

#include "tests/support/Printing.h"
#include "tests/ui/BatchReviewTest.h"

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

TEST_P(BatchReviewTest, LeavesTheKeyboardWhereItIs) {
    open({u"abcd"_s, u"b"_s});
    const QQuickItem *const before = &row(0);
    stage->click(piece(0, u"name"_s));
    stage->press(Qt::Key_Home);
    stage->press(Qt::Key_Right);
    stage->type(u"XY"_s);
    EXPECT_EQ(items[0].subscription.name, u"aXYbcd"_s);
    EXPECT_EQ(piece(0, u"name"_s).property("cursorPosition"), 3);
    const LanguageScope other(otherLang());
    review->setIncluded(0, false);
    review->setIncluded(1, false);
    review->setAmount(0, 5);
    stage->settle();
    EXPECT_EQ(&row(0), before);
    EXPECT_EQ(place(), u"row0 name"_s);
    stage->type(u"Z"_s);
    EXPECT_EQ(piece(0, u"name"_s).property("text"), u"aXYZbcd"_s);
    EXPECT_EQ(piece(0, u"amount"_s).property("text"), u"5"_s);
    EXPECT_EQ(piece(0, u"cycle"_s).property("text"), pair(u"Monthly"_s, u"每月"_s));
    EXPECT_EQ(counter(), pair(u"[ 0/2 ]"_s, u"[ 0/2 项 ]"_s));
}

TEST_P(BatchReviewTest, IsUsedByTheKeyboardAlone) {
    open({u"a"_s, u"b"_s});
    ASSERT_EQ(place(), u"row0 check"_s);
    QStringList visited;
    for (int i = 0; i < 8; ++i) {
        visited.append(place());
        stage->press(Qt::Key_Tab);
    }
    EXPECT_EQ(visited,
              (QStringList{u"row0 check"_s, u"row0 name"_s, u"row0 amount"_s, u"row1 check"_s,
                           u"row1 name"_s, u"row1 amount"_s, u"cancel"_s, u"confirm"_s}));
    ASSERT_EQ(place(), u"row0 check"_s);
    stage->press(Qt::Key_Space);
    EXPECT_FALSE(items[0].isIncluded);
    stage->press(Qt::Key_Return);
    EXPECT_TRUE(items[0].isIncluded);
    stage->press(Qt::Key_Space);
    stage->press(Qt::Key_Backtab);
    ASSERT_EQ(place(), u"confirm"_s);
    stage->press(Qt::Key_Return);
    EXPECT_EQ(dismissed->size(), 1);
    EXPECT_EQ(store.subscriptions(), QList{items[1].subscription});
}

TEST_P(BatchReviewTest, AddsNothingByReturnInAField) {
    open({u"a"_s});
    stage->click(piece(0, u"name"_s));
    stage->press(Qt::Key_Return);
    stage->click(piece(0, u"amount"_s));
    stage->press(Qt::Key_Return);
    EXPECT_EQ(dismissed->size(), 0);
    EXPECT_EQ(store.subscriptions().size(), 0);
}

TEST_P(BatchReviewTest, ScrollsToWhatTheKeyboardIsAt) {
    QStringList names;
    for (int i = 0; i < 12; ++i)
        names.append(u"bill %1"_s.arg(i));
    open(names);
    const qreal headerBottom = SheetStage::top(item("middle"));
    const qreal cancelTop = SheetStage::top(item("cancel"));
    EXPECT_GT(SheetStage::bottom(row(11)), cancelTop);
    for (int number = 0; number < 12; ++number) {
        for (const QString &name : {u"check"_s, u"name"_s, u"amount"_s}) {
            ASSERT_EQ(place(), u"row%1 %2"_s.arg(number).arg(name));
            EXPECT_GE(SheetStage::top(piece(number, name)), headerBottom);
            EXPECT_LE(SheetStage::bottom(piece(number, name)), SheetStage::bottom(item("middle")));
            stage->press(Qt::Key_Tab);
        }
    }
    EXPECT_EQ(place(), u"cancel"_s);
    // What stands around the rows stays where it is.
    EXPECT_EQ(SheetStage::top(item("cancel")), cancelTop);
    EXPECT_EQ(SheetStage::top(item("middle")), headerBottom);
    stage->press(Qt::Key_Home);
    EXPECT_EQ(stage->value("middle", "contentY"), 0);
    stage->press(Qt::Key_PageDown);
    EXPECT_GT(stage->value("middle", "contentY").toReal(), 0);
    stage->press(Qt::Key_Tab);
    stage->press(Qt::Key_Tab);
    ASSERT_EQ(place(), u"row0 check"_s);
    EXPECT_GE(SheetStage::top(piece(0, u"check"_s)), headerBottom);
}

TEST_P(BatchReviewTest, TellsAllOfItToAScreenReader) {
    open({u"Netflix"_s, QString()});
    const QStringList english{u"Dialog Batch scan"_s,
                              u"StaticText [ BATCH SCAN ]"_s,
                              u"StaticText [ 2/2 ]"_s,
                              u"StaticText Select items to add; edit name or amount"_s,
                              u"List Batch scan"_s,
                              u"ListItem Netflix"_s,
                              u"CheckBox Netflix (ticked) [press] [toggle]"_s,
                              u"EditableText Name = Netflix"_s,
                              u"EditableText Amount = 30"_s,
                              u"StaticText Monthly"_s,
                              u"ListItem No name"_s,
                              u"CheckBox No name (ticked) [press] [toggle]"_s,
                              u"EditableText Name = "_s,
                              u"StaticText No name"_s,
                              u"EditableText Amount = 30"_s,
                              u"StaticText Monthly"_s,
                              u"Button Cancel [press]"_s,
                              u"Button Add 2 [press]"_s};
    const QStringList chinese{u"Dialog 批量识别结果"_s,
                              u"StaticText [ 批量识别结果 ]"_s,
                              u"StaticText [ 2/2 项 ]"_s,
                              u"StaticText 勾选要添加的项，可改名称和金额"_s,
                              u"List 批量识别结果"_s,
                              u"ListItem Netflix"_s,
                              u"CheckBox Netflix (ticked) [press] [toggle]"_s,
                              u"EditableText 名称 = Netflix"_s,
                              u"EditableText 金额 = 30"_s,
                              u"StaticText 每月"_s,
                              u"ListItem 未识别名称"_s,
                              u"CheckBox 未识别名称 (ticked) [press] [toggle]"_s,
                              u"EditableText 名称 = "_s,
                              u"StaticText 未识别名称"_s,
                              u"EditableText 金额 = 30"_s,
                              u"StaticText 每月"_s,
                              u"Button 取消 [press]"_s,
                              u"Button 添加 2 项 [press]"_s};
    EXPECT_EQ(stage->told(), isZh() ? chinese : english);
    EXPECT_TRUE(Stage::pressByScreenReader(piece(0, u"check"_s)));
    EXPECT_FALSE(items[0].isIncluded);
    QAccessibleInterface *const check = Stage::accessible(piece(0, u"check"_s));
    check->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(items[0].isIncluded);
    Stage::accessible(piece(1, u"name"_s))->setText(QAccessible::Value, u"Club"_s);
    EXPECT_EQ(items[1].subscription.name, u"Club"_s);
    EXPECT_EQ(Stage::accessible(row(1))->text(QAccessible::Name), u"Club"_s);
    EXPECT_TRUE(Stage::pressByScreenReader(item("cancel")));
    EXPECT_EQ(dismissed->size(), 1);
    EXPECT_TRUE(Stage::pressByScreenReader(item("confirm")));
    EXPECT_EQ(dismissed->size(), 2);
    EXPECT_EQ(store.subscriptions().size(), 2);
}

} // namespace tovarin
