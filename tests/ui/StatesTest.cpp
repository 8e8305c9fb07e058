// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// Every control looks different in each of its states.

#include "tests/support/Printing.h"
#include "tests/ui/Stage.h"

#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

struct Control {
    const char *name;
    const char *qml; ///< Its object name is "control".
    bool isPressed = true;
};

void PrintTo(const Control &control, std::ostream *out) {
    *out << control.name;
}

class States : public testing::TestWithParam<Control> {
protected:
    Stage stage{QString::fromUtf8(GetParam().qml)};
    QQuickItem &control = stage.item("control");

    States() {
        // The pointer stays where the last test left it.
        QTest::mouseMove(&stage.window(), {470, 390});
        stage.settle();
    }
};

} // namespace

TEST_P(States, LookDifferent) {
    const QImage normal = stage.settle();
    QTest::mouseMove(&stage.window(), stage.middleOf(control));
    const QImage hovered = stage.settle();
    EXPECT_NE(hovered, normal);
    if (GetParam().isPressed) {
        QTest::mousePress(&stage.window(), Qt::LeftButton, {}, stage.middleOf(control));
        const QImage pressed = stage.settle();
        EXPECT_NE(pressed, hovered);
        EXPECT_NE(pressed, normal);
    }
}

TEST_P(States, LookDifferentAtTheKeyboard) {
    const QImage normal = stage.settle();
    stage.press(Qt::Key_Tab);
    EXPECT_NE(stage.settle(), normal);
}

TEST_P(States, LookDifferentWhileDisabled) {
    const QImage normal = stage.settle();
    control.setEnabled(false);
    const QImage disabled = stage.settle();
    EXPECT_NE(disabled, normal);
    QTest::mouseMove(&stage.window(), stage.middleOf(control));
    EXPECT_EQ(stage.settle(), disabled);
    stage.press(Qt::Key_Tab);
    EXPECT_EQ(stage.settle(), disabled);
}

INSTANTIATE_TEST_SUITE_P(
    , States,
    testing::Values(
        Control{"SoftButton", "SoftButton { objectName: 'control'; x: 9; y: 9; title: 'T' }"},
        Control{"Prominent",
                "SoftButton { objectName: 'control'; x: 9; y: 9; title: 'T'; prominent: true }"},
        Control{"Destructive",
                "SoftButton { objectName: 'control'; x: 9; y: 9; title: 'T'; destructive: true }"},
        Control{"IconButton",
                "IconButton { objectName: 'control'; x: 9; y: 9; title: 'T'; icon.name: 'plus' }"},
        Control{"TextButton", "TextButton { objectName: 'control'; x: 9; y: 9; title: 'T' }"},
        Control{"TileButton",
                "TileButton { objectName: 'control'; x: 9; y: 9; title: 'T'; icon.name: 'plus' }"},
        Control{"FoldButton",
                "FoldButton { objectName: 'control'; x: 9; y: 9; title: 'T'; value: 'V' }"},
        Control{"Unfolded", "FoldButton { objectName: 'control'; x: 9; y: 9; title: 'T';"
                            " value: 'V'; unfolded: true }"},
        Control{"Day", "DayButton { objectName: 'control'; x: 9; y: 9; title: 'T'; number: '7';"
                       " isCurrentMonth: true; isSelected: false; isToday: false }"},
        Control{"OtherMonthsDay",
                "DayButton { objectName: 'control'; x: 9; y: 9; title: 'T'; number: '7';"
                " isCurrentMonth: false; isSelected: false; isToday: false }"},
        Control{"Today", "DayButton { objectName: 'control'; x: 9; y: 9; title: 'T'; number: '7';"
                         " isCurrentMonth: true; isSelected: false; isToday: true }"},
        Control{"SelectedDay",
                "DayButton { objectName: 'control'; x: 9; y: 9; title: 'T'; number: '7';"
                " isCurrentMonth: true; isSelected: true; isToday: false }"},
        Control{"Cell", "CellButton { objectName: 'control'; x: 9; y: 9; title: 'T' }"},
        Control{"TickedCell",
                "CellButton { objectName: 'control'; x: 9; y: 9; title: 'T'; ticked: true }"},
        Control{"TextField",
                "TextField { objectName: 'control'; x: 9; y: 9; label: 'L'; text: 'T' }", false},
        Control{"NumberField", "NumberField { objectName: 'control'; x: 9; y: 9; label: 'L' }",
                false},
        Control{"TextArea", "TextArea { objectName: 'control'; x: 9; y: 9; label: 'L'; text: 'T' }",
                false},
        Control{"Picker",
                "Picker { objectName: 'control'; x: 9; y: 9; label: 'L'; model: ['a', 'b'] }"},
        Control{"ChosenSegment", "SegmentedPicker { objectName: 'control'; x: 9; y: 9; label: 'L';"
                                 " labels: ['a']; currentIndex: 0 }"},
        Control{"Segment", "SegmentedPicker { objectName: 'control'; x: 9; y: 9; label: 'L';"
                           " labels: ['a'] }"},
        Control{"SwitchOff", "Switch { objectName: 'control'; x: 9; y: 9; label: 'L' }"},
        Control{"SwitchOn",
                "Switch { objectName: 'control'; x: 9; y: 9; label: 'L'; checked: true }"},
        Control{"CheckBoxOff", "CheckBox { objectName: 'control'; x: 9; y: 9; label: 'L' }"},
        Control{"CheckBoxOn",
                "CheckBox { objectName: 'control'; x: 9; y: 9; label: 'L'; checked: true }"}),
    [](const testing::TestParamInfo<Control> &control) { return std::string(control.param.name); });

TEST(FocusRing, IsSeenOnTheAccentToo) {
    for (const char *prominent : {"false", "true"}) {
        Stage stage(
            u"SoftButton { objectName: 'button'; x: 20; y: 20; title: 'T'; prominent: %1 }"_s.arg(
                QString::fromLatin1(prominent)));
        stage.press(Qt::Key_Tab);
        const QImage image = stage.settle();
        const int middle = qRound(20 + stage.item("button").width() / 2);
        // The ring, and the ground between it and the button.
        EXPECT_EQ(image.pixelColor(middle, 17), QColor(246, 201, 74));
        EXPECT_EQ(image.pixelColor(middle, 19), QColor(15, 15, 17));
    }
}

TEST(TextCursor, IsSeenWhereOneTypes) {
    Stage stage(u"TextField { objectName: 'field'; x: 9; y: 9; label: 'L' }"_s);
    stage.press(Qt::Key_Tab);
    const QRectF cursor =
        stage.item("field").mapRectToScene(stage.value("field", "cursorRectangle").toRectF());
    EXPECT_EQ(stage.settle().pixelColor(cursor.center().toPoint()), QColor(246, 201, 74));
}

} // namespace tovarin
