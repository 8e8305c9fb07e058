// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/support/Printing.h"
#include "tests/ui/Stage.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

const QString window =
    u"SoftButton { objectName: 'behind'; title: 'Behind' }"
    "TextField { objectName: 'field'; y: 50; label: 'Field' }"
    "Sheet { objectName: 'sheet'; label: 'Settings'; preferredWidth: 300;"
    " preferredHeight: 200;"
    "  SoftButton { objectName: 'first'; focus: true; x: 20; y: 20; title: 'First' }"
    "  SoftButton { objectName: 'second'; x: 20; y: 80; title: 'Second' } }"_s;

class SheetTest : public testing::Test {
protected:
    void open() {
        QMetaObject::invokeMethod(&sheet, "open");
        ASSERT_TRUE(QTest::qWaitFor([this] { return sheet.property("opened").toBool(); }));
        stage.settle();
    }
    bool isClosed() {
        return QTest::qWaitFor([this] { return !sheet.property("visible").toBool(); });
    }

    Stage stage{window};
    QObject &sheet = stage.object("sheet");
};

} // namespace

TEST_F(SheetTest, KeepsTheKeyboardInside) {
    stage.press(Qt::Key_Tab);
    stage.press(Qt::Key_Tab);
    ASSERT_EQ(stage.focused(), u"field"_s);
    open();
    // Without a key: what is typed goes into the sheet.
    EXPECT_EQ(stage.focused(), u"first"_s);
    QStringList visited;
    for (int i = 0; i < 6; ++i) {
        stage.press(Qt::Key_Tab);
        visited.append(stage.focused());
    }
    EXPECT_TRUE(visited.contains(u"first"_s));
    EXPECT_TRUE(visited.contains(u"second"_s));
    EXPECT_FALSE(visited.contains(u"behind"_s));
    EXPECT_FALSE(visited.contains(u"field"_s));
    stage.press(Qt::Key_Escape);
    ASSERT_TRUE(isClosed());
    EXPECT_EQ(stage.focused(), u"field"_s);
}

TEST_F(SheetTest, PutsTheRestOutOfReach) {
    QSignalSpy behind(&stage.item("behind"), SIGNAL(clicked()));
    QSignalSpy first(&stage.item("first"), SIGNAL(clicked()));
    const QColor before = stage.settle().pixelColor(470, 390);
    open();
    EXPECT_LT(stage.settle().pixelColor(470, 390).lightnessF(), before.lightnessF());
    stage.click(stage.item("behind"));
    EXPECT_EQ(behind.size(), 0);
    EXPECT_TRUE(sheet.property("visible").toBool());
    Stage::pressByScreenReader(stage.item("behind"));
    EXPECT_EQ(behind.size(), 0);
    stage.click(stage.item("first"));
    EXPECT_EQ(first.size(), 1);
    stage.press(Qt::Key_Escape);
    ASSERT_TRUE(isClosed());
    stage.click(stage.item("behind"));
    EXPECT_EQ(behind.size(), 1);
}

TEST_F(SheetTest, IsADialogToAScreenReaderWhileItIsOpen) {
    auto &content = *sheet.property("contentItem").value<QQuickItem *>();
    EXPECT_TRUE(Stage::accessible(content)->state().invisible);
    open();
    EXPECT_EQ(Stage::accessible(content)->role(), QAccessible::Dialog);
    EXPECT_EQ(Stage::accessible(content)->text(QAccessible::Name), u"Settings"_s);
    EXPECT_FALSE(Stage::accessible(content)->state().invisible);
}

TEST_F(SheetTest, IsNoLargerThanTheWindow) {
    open();
    EXPECT_EQ(sheet.property("width"), 300);
    stage.window().resize(200, 120);
    stage.settle();
    EXPECT_EQ(sheet.property("width"), 200 - 32);
    EXPECT_EQ(sheet.property("height"), 120 - 32);
}

TEST(MenuTest, IsUsedByTheKeyboardAndByAScreenReader) {
    Stage stage(u"Menu { objectName: 'menu'; title: 'Things';"
                "  property int first: 0; property int second: 0;"
                "  MenuItem { objectName: 'first'; text: 'First'; onTriggered: menu.first++ }"
                "  MenuItem { text: 'Off'; enabled: false }"
                "  MenuItem { objectName: 'second'; text: 'Second'; onTriggered: menu.second++ }"
                "  id: menu }"_s);
    QObject &menu = stage.object("menu");
    const auto open = [&] {
        QMetaObject::invokeMethod(&menu, "open");
        ASSERT_TRUE(QTest::qWaitFor([&] { return menu.property("opened").toBool(); }));
        stage.settle();
    };
    open();
    auto &list = *menu.property("contentItem").value<QQuickItem *>();
    EXPECT_EQ(Stage::accessible(list)->role(), QAccessible::PopupMenu);
    EXPECT_EQ(Stage::accessible(list)->text(QAccessible::Name), u"Things"_s);
    const QImage before = stage.settle();
    stage.press(Qt::Key_Down);
    const QImage highlighted = stage.settle();
    EXPECT_NE(highlighted, before);
    stage.press(Qt::Key_Down);
    EXPECT_NE(stage.settle(), highlighted);
    stage.press(Qt::Key_Return);
    EXPECT_EQ(menu.property("first"), 0);
    EXPECT_EQ(menu.property("second"), 1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !menu.property("visible").toBool(); }));

    open();
    EXPECT_EQ(Stage::accessible(stage.item("first"))->text(QAccessible::Name), u"First"_s);
    ASSERT_TRUE(Stage::pressByScreenReader(stage.item("first")));
    EXPECT_EQ(menu.property("first"), 1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !menu.property("visible").toBool(); }));
}

TEST(ScrollBarTest, CanBeTakenHoldOfHoweverMuchThereIs) {
    Stage stage(u"Flickable { width: 100; height: 200; contentHeight: 1e6;"
                " ScrollBar.vertical: ScrollBar { objectName: 'bar' } }"_s);
    const auto *const handle = stage.value("bar", "contentItem").value<QQuickItem *>();
    EXPECT_GE(handle->height(), 30);
}

TEST(ScrollBarTest, IsThereOnlyWhereThereIsMore) {
    Stage stage(u"Flickable { width: 100; height: 100; contentHeight: 50;"
                " ScrollBar.vertical: ScrollBar { objectName: 'idle' } }"
                "Flickable { objectName: 'long'; x: 200; width: 100; height: 100;"
                " contentHeight: 1000; ScrollBar.vertical: ScrollBar { objectName: 'busy' } }"_s);
    EXPECT_FALSE(stage.item("idle").isVisible());
    QQuickItem &busy = stage.item("busy");
    ASSERT_TRUE(busy.isVisible());
    const QPoint top = busy.mapToScene({6, 5}).toPoint();
    QTest::mousePress(&stage.window(), Qt::LeftButton, {}, top);
    QTest::mouseMove(&stage.window(), top + QPoint(0, 90));
    QTest::mouseRelease(&stage.window(), Qt::LeftButton, {}, top + QPoint(0, 90));
    EXPECT_EQ(stage.value("long", "contentY"), 900);
}

} // namespace tovarin
