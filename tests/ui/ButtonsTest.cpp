// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/support/Printing.h"
#include "tests/ui/Stage.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

struct Kind {
    const char *name;
    const char *qml;
    QAccessible::Role role;
};

void PrintTo(const Kind &kind, std::ostream *out) {
    *out << kind.name;
}

class Buttons : public testing::TestWithParam<Kind> {
protected:
    Stage stage{u"%1"_s.arg(QString::fromLatin1(GetParam().qml))};
    QQuickItem &button = stage.item("button");
    QSignalSpy clicks{&button, SIGNAL(clicked())};

    Buttons() {
        // The pointer stays where the last test left it.
        QTest::mouseMove(&stage.window(), {470, 390});
        stage.settle();
    }
};

} // namespace

TEST_P(Buttons, ArePressedByTheMouse) {
    stage.click(button);
    EXPECT_EQ(clicks.size(), 1);
    stage.click(button, Qt::RightButton);
    EXPECT_EQ(clicks.size(), 1);
    // Whoever leaves it before letting go has thought better of it.
    QTest::mousePress(&stage.window(), Qt::LeftButton, {}, stage.middleOf(button));
    QTest::mouseRelease(&stage.window(), Qt::LeftButton, {}, {470, 390});
    EXPECT_EQ(clicks.size(), 1);
}

TEST_P(Buttons, ArePressedByTheKeyboard) {
    stage.press(Qt::Key_Tab);
    ASSERT_TRUE(button.hasActiveFocus());
    EXPECT_TRUE(button.property("visualFocus").toBool());
    int presses = 0;
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        stage.press(key);
        EXPECT_EQ(clicks.size(), ++presses) << key;
    }
    stage.press(Qt::Key_A);
    EXPECT_EQ(clicks.size(), presses);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
        stage.hold(key);
        EXPECT_EQ(clicks.size(), ++presses) << key;
    }
}

TEST_P(Buttons, ArePressedByAScreenReader) {
    const QAccessibleInterface *const seen = Stage::accessible(button);
    ASSERT_TRUE(seen);
    EXPECT_EQ(seen->role(), GetParam().role);
    EXPECT_EQ(seen->text(QAccessible::Name), u"Name"_s);
    EXPECT_TRUE(seen->state().focusable);
    ASSERT_TRUE(Stage::pressByScreenReader(button));
    EXPECT_EQ(clicks.size(), 1);
}

TEST_P(Buttons, AreNotPressedWhileDisabled) {
    const QImage before = stage.settle();
    button.setEnabled(false);
    // An empty row has nothing to dim.
    EXPECT_EQ(stage.settle() == before, GetParam().role == QAccessible::ListItem);
    stage.click(button);
    stage.press(Qt::Key_Tab);
    EXPECT_FALSE(button.hasActiveFocus());
    stage.press(Qt::Key_Space);
    stage.press(Qt::Key_Return);
    Stage::pressByScreenReader(button);
    EXPECT_EQ(clicks.size(), 0);
}

TEST_P(Buttons, LookDifferentInEachState) {
    const QImage normal = stage.settle();
    QTest::mouseMove(&stage.window(), stage.middleOf(button));
    const QImage hovered = stage.settle();
    EXPECT_NE(hovered, normal);
    QTest::mousePress(&stage.window(), Qt::LeftButton, {}, stage.middleOf(button));
    const QImage pressed = stage.settle();
    EXPECT_NE(pressed, normal);
    EXPECT_NE(pressed, hovered);
    QTest::mouseRelease(&stage.window(), Qt::LeftButton, {}, stage.middleOf(button));
    QTest::mouseMove(&stage.window(), {470, 390});
    button.setFocus(false);
    stage.press(Qt::Key_Tab);
    EXPECT_NE(stage.settle(), normal);
    EXPECT_TRUE(button.hasActiveFocus());
}

INSTANTIATE_TEST_SUITE_P(
    , Buttons,
    testing::Values(
        Kind{"SoftButton", "SoftButton { objectName: 'button'; x: 9; y: 9; title: 'Name' }",
             QAccessible::Button},
        Kind{"ProminentSoftButton",
             "SoftButton { objectName: 'button'; x: 9; y: 9; title: 'Name'; icon.name: 'plus';"
             " prominent: true }",
             QAccessible::Button},
        Kind{"DestructiveSoftButton",
             "SoftButton { objectName: 'button'; x: 9; y: 9; title: 'Name'; icon.name: 'trash';"
             " destructive: true }",
             QAccessible::Button},
        Kind{"IconButton",
             "IconButton { objectName: 'button'; x: 9; y: 9; title: 'Name'; icon.name: 'plus' }",
             QAccessible::Button},
        Kind{"TextButton", "TextButton { objectName: 'button'; x: 9; y: 9; title: 'Name' }",
             QAccessible::Button},
        Kind{"CellButton", "CellButton { objectName: 'button'; x: 9; y: 9; title: 'Name' }",
             QAccessible::CheckBox},
        Kind{"TickedCellButton",
             "CellButton { objectName: 'button'; x: 9; y: 9; title: 'Name'; ticked: true }",
             QAccessible::CheckBox},
        Kind{"TileButton",
             "TileButton { objectName: 'button'; x: 9; y: 9; title: 'Name'; icon.name: 'pencil' }",
             QAccessible::Button},
        Kind{"FoldButton",
             "FoldButton { objectName: 'button'; x: 9; y: 9; title: 'Name'; value: 'Value' }",
             QAccessible::Button},
        Kind{"DayButton",
             "DayButton { objectName: 'button'; x: 9; y: 9; title: 'Name'; number: '7';"
             " isCurrentMonth: true; isSelected: false; isToday: false }",
             QAccessible::Button},
        Kind{"SelectedDayButton",
             "DayButton { objectName: 'button'; x: 9; y: 9; title: 'Name'; number: '7';"
             " isCurrentMonth: true; isSelected: true; isToday: false }",
             QAccessible::Button},
        Kind{"RowButton",
             "RowButton { objectName: 'button'; y: 9; width: 400; name: 'Name'; pressable: true }",
             QAccessible::ListItem}),
    [](const testing::TestParamInfo<Kind> &kind) { return std::string(kind.param.name); });

TEST(SoftButton, HasItsSizeAndColours) {
    Stage stage(u"SoftButton { objectName: 'plain'; title: 'A'; icon.name: 'plus' }"
                "SoftButton { objectName: 'bare'; y: 50; title: 'A' }"
                "SoftButton { objectName: 'prominent'; y: 100; width: 300; title: 'A';"
                " icon.name: 'plus'; prominent: true }"_s);
    EXPECT_EQ(stage.item("plain").height(), 40);
    // The symbol and the 6 points beside it.
    EXPECT_EQ(stage.item("plain").width() - stage.item("bare").width(), 16 + 6);
    const QImage image = stage.settle();
    EXPECT_EQ(image.pixelColor(10, 120), QColor(246, 201, 74));
    const QColor plain = image.pixelColor(10, 70);
    // 8 % of the text's colour over the window's.
    EXPECT_NEAR(plain.red(), 15 + 0.08 * (232 - 15), 1.5);
    EXPECT_NEAR(plain.blue(), 17 + 0.08 * (232 - 17), 1.5);
    int darkest = 255;
    for (int x = 100; x < 200; ++x)
        darkest = std::min(darkest, image.pixelColor(x, 120).red());
    EXPECT_LT(darkest, 40);
}

TEST(CellButton, TellsWhetherItIsTicked) {
    Stage stage(u"CellButton { objectName: 'cell'; title: 'Name'; onClicked: ticked = !ticked }"_s);
    QQuickItem &cell = stage.item("cell");
    QAccessibleInterface *const seen = Stage::accessible(cell);
    ASSERT_TRUE(seen);
    EXPECT_TRUE(seen->state().checkable);
    EXPECT_FALSE(seen->state().checked);
    const QImage before = stage.settle();
    stage.press(Qt::Key_Tab);
    stage.press(Qt::Key_Space);
    EXPECT_TRUE(seen->state().checked);
    cell.setFocus(false);
    EXPECT_NE(stage.settle(), before);
    seen->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_FALSE(seen->state().checked);
    EXPECT_EQ(stage.settle(), before);
    cell.setEnabled(false);
    seen->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_FALSE(seen->state().checked);
}

TEST(TileButton, IsATileWithASymbolOverItsTitle) {
    Stage stage(u"TileButton { width: 120; title: 'Edit'; icon.name: 'pencil' }"
                "TileButton { y: 90; width: 40; title: 'A title that is cut' }"
                "HUDSurface { y: 180; width: 120; height: 72; cornerRadius: 14 }"_s);
    QTest::mouseMove(&stage.window(), {470, 390});
    const QImage image = stage.settle();
    // The ground is that of every other surface.
    EXPECT_EQ(image.pixelColor(10, 36), image.pixelColor(10, 180 + 36));
    EXPECT_EQ(image.pixelColor(0, 36), image.pixelColor(0, 180 + 36));
    const auto inked = [&image](QRect area) {
        for (int y = area.top(); y <= area.bottom(); ++y)
            for (int x = area.left(); x <= area.right(); ++x)
                if (image.pixelColor(x, y).red() > 200)
                    return true;
        return false;
    };
    EXPECT_TRUE(inked({51, 16, 18, 18}));
    EXPECT_TRUE(inked({40, 42, 40, 16}));
    EXPECT_FALSE(inked({10, 4, 35, 64}));
    EXPECT_TRUE(stage.itemWith("truncated", true));
}

TEST(FoldButton, TellsItsValueAndWhetherItIsUnfolded) {
    Stage stage(u"FoldButton { objectName: 'fold'; title: 'Date'; value: '2025/03/01';"
                " onClicked: unfolded = !unfolded }"_s);
    const QAccessibleInterface *const seen = Stage::accessible(stage.item("fold"));
    ASSERT_TRUE(seen);
    EXPECT_EQ(seen->text(QAccessible::Name), u"Date"_s);
    EXPECT_EQ(seen->text(QAccessible::Description), u"2025/03/01"_s);
    EXPECT_TRUE(seen->state().checkable);
    EXPECT_FALSE(seen->state().checked);
    EXPECT_EQ(stage.texts(), QStringList{u"2025/03/01"_s});
    const QImage folded = stage.settle();
    ASSERT_TRUE(Stage::pressByScreenReader(stage.item("fold")));
    EXPECT_TRUE(seen->state().checked);
    EXPECT_NE(stage.settle(), folded);
}

TEST(DayButton, TellsItsDayAndWhetherItIsSelected) {
    Stage stage(u"DayButton { objectName: 'day'; title: 'Monday, June 9, 2025'; number: '9';"
                " isCurrentMonth: true; isSelected: false; isToday: false }"_s);
    const QAccessibleInterface *const seen = Stage::accessible(stage.item("day"));
    ASSERT_TRUE(seen);
    EXPECT_EQ(seen->text(QAccessible::Name), u"Monday, June 9, 2025"_s);
    EXPECT_TRUE(seen->state().selectable);
    EXPECT_FALSE(seen->state().selected);
    EXPECT_EQ(stage.texts(), QStringList{u"9"_s});
    // Each of these is seen.
    QList<QImage> looks{stage.settle()};
    for (const char *property : {"isSelected", "isToday", "isCurrentMonth"}) {
        QQuickItem &day = stage.item("day");
        const bool before = day.property(property).toBool();
        day.setProperty(property, !before);
        const QImage look = stage.settle();
        EXPECT_FALSE(looks.contains(look)) << property;
        looks.append(look);
        EXPECT_EQ(bool(seen->state().selected), property == std::string_view("isSelected"));
        day.setProperty(property, before);
    }
}

TEST(RowButton, IsPartOfTheListOnlyWhereNothingOpens) {
    Stage stage(u"RowButton { objectName: 'row'; width: 400; name: 'Name' }"_s);
    QSignalSpy clicks(&stage.item("row"), SIGNAL(clicked()));
    stage.press(Qt::Key_Tab);
    EXPECT_FALSE(stage.item("row").hasActiveFocus());
    const QImage before = stage.settle();
    QTest::mouseMove(&stage.window(), {200, 30});
    EXPECT_EQ(stage.settle(), before);
    ASSERT_TRUE(Stage::pressByScreenReader(stage.item("row")));
    EXPECT_EQ(clicks.size(), 0);
}

TEST(IconButton, ShowsItsTitleAsATooltip) {
    Stage stage(u"IconButton { objectName: 'button'; x: 200; y: 9; title: 'Settings';"
                " icon.name: 'gearshape.fill' }"_s);
    EXPECT_FALSE(stage.texts().contains(u"Settings"_s));
    QTest::mouseMove(&stage.window(), stage.middleOf(stage.item("button")));
    EXPECT_TRUE(QTest::qWaitFor([&stage] { return stage.texts().contains(u"Settings"_s); }));
    QTest::mouseMove(&stage.window(), {10, 390});
    EXPECT_TRUE(QTest::qWaitFor([&stage] { return !stage.texts().contains(u"Settings"_s); }));
    stage.press(Qt::Key_Tab);
    EXPECT_TRUE(QTest::qWaitFor([&stage] { return stage.texts().contains(u"Settings"_s); }));
}

} // namespace tovarin
