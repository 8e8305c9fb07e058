// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/support/Printing.h"
#include "tests/ui/Stage.h"

#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

const QString picker = u"Picker { objectName: 'picker'; x: 9; y: 9; label: 'Cycle';"
                       " model: ['Weekly', 'Monthly', 'Quarterly', 'Yearly']; currentIndex: 1 }"_s;
const QString segments = u"SegmentedPicker { objectName: 'segments'; x: 9; y: 60; label: 'Days';"
                         " labels: ['Same day', '1d', '2d', '3d'];"
                         " onActivated: index => currentIndex = index }"_s;

QQuickItem *choice(Stage &stage, const QString &text) {
    return stage.itemWith("modelData", text);
}

class Toggles : public testing::TestWithParam<const char *> {
protected:
    Stage stage{
        u"%1 { objectName: 'toggle'; x: 9; y: 9; label: 'Still active'; text: label }"_s.arg(
            QString::fromLatin1(GetParam()))};
    QQuickItem &toggle = stage.item("toggle");
    QSignalSpy toggled{&toggle, SIGNAL(toggled())};

    bool isOn() const { return toggle.property("checked").toBool(); }
};

} // namespace

TEST(Picker, ChoosesByTheMouse) {
    Stage stage(picker);
    QSignalSpy activated(&stage.item("picker"), SIGNAL(activated(int)));
    EXPECT_EQ(stage.texts(), QStringList{u"Monthly"_s});
    stage.click(stage.item("picker"));
    ASSERT_TRUE(choice(stage, u"Quarterly"_s));
    stage.click(*choice(stage, u"Quarterly"_s));
    EXPECT_EQ(stage.value("picker", "currentIndex"), 2);
    EXPECT_EQ(activated.size(), 1);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !choice(stage, u"Weekly"_s); }));
    EXPECT_EQ(stage.texts(), QStringList{u"Quarterly"_s});
}

TEST(Picker, ChoosesByTheKeyboard) {
    Stage stage(picker);
    stage.press(Qt::Key_Tab);
    ASSERT_EQ(stage.focused(), u"picker"_s);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        const int before = stage.value("picker", "currentIndex").toInt();
        stage.press(key);
        ASSERT_TRUE(choice(stage, u"Weekly"_s)) << key;
        stage.press(before == 3 ? Qt::Key_Up : Qt::Key_Down);
        stage.press(key);
        EXPECT_TRUE(QTest::qWaitFor([&] { return !choice(stage, u"Weekly"_s); })) << key;
        EXPECT_EQ(stage.value("picker", "currentIndex"), before == 3 ? 2 : before + 1) << key;
    }
    // Without its list, the arrows choose at once.
    stage.press(Qt::Key_Up);
    const int before = stage.value("picker", "currentIndex").toInt();
    stage.press(Qt::Key_Space);
    stage.press(Qt::Key_Up);
    stage.press(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !choice(stage, u"Weekly"_s); }));
    EXPECT_EQ(stage.value("picker", "currentIndex"), before);
    EXPECT_EQ(stage.focused(), u"picker"_s);
}

TEST(Picker, ChoosesByAScreenReader) {
    Stage stage(picker);
    const QAccessibleInterface *const seen = Stage::accessible(stage.item("picker"));
    EXPECT_EQ(seen->role(), QAccessible::ComboBox);
    EXPECT_EQ(seen->text(QAccessible::Name), u"Cycle"_s);
    EXPECT_EQ(seen->text(QAccessible::Description), u"Monthly"_s);
    ASSERT_TRUE(Stage::pressByScreenReader(stage.item("picker")));
    stage.settle();
    QQuickItem *const yearly = choice(stage, u"Yearly"_s);
    ASSERT_TRUE(yearly);
    EXPECT_EQ(Stage::accessible(*yearly)->text(QAccessible::Name), u"Yearly"_s);
    ASSERT_TRUE(Stage::pressByScreenReader(*yearly));
    EXPECT_EQ(stage.value("picker", "currentIndex"), 3);
    EXPECT_EQ(seen->text(QAccessible::Description), u"Yearly"_s);
}

TEST(Picker, IsNotOpenedWhileDisabled) {
    Stage stage(picker);
    stage.item("picker").setEnabled(false);
    Stage::pressByScreenReader(stage.item("picker"));
    stage.click(stage.item("picker"));
    EXPECT_FALSE(choice(stage, u"Weekly"_s));
}

TEST(Picker, TicksWhatIsChosen) {
    Stage stage(picker);
    stage.press(Qt::Key_Tab);
    stage.press(Qt::Key_Space);
    for (const QString &text : {u"Weekly"_s, u"Monthly"_s}) {
        double opacity = -1;
        QList<QQuickItem *> waiting{choice(stage, text)};
        while (!waiting.isEmpty()) {
            const QQuickItem *const item = waiting.takeFirst();
            if (item->property("name") == u"checkmark"_s)
                opacity = item->opacity();
            waiting.append(item->childItems());
        }
        EXPECT_EQ(opacity, text == u"Monthly"_s ? 1 : 0) << text.toStdString();
    }
}

TEST(Picker, LeavesTheWheelToWhatScrolls) {
    Stage stage(picker);
    const QPointF middle = stage.middleOf(stage.item("picker"));
    QWheelEvent wheel(middle, middle, {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&stage.window(), &wheel);
    EXPECT_EQ(stage.value("picker", "currentIndex"), 1);
}

TEST(Picker, KeepsALongListInTheWindow) {
    Stage stage(u"Picker { objectName: 'picker'; y: 350; label: 'Many';"
                " model: Array.from({length: 300}, (_, i) => 'choice ' + i) }"_s);
    stage.press(Qt::Key_Tab);
    stage.press(Qt::Key_Space);
    auto *const popup = stage.value("picker", "popup").value<QObject *>();
    ASSERT_TRUE(popup);
    EXPECT_LE(popup->property("height").toReal(), 400);
    for (int i = 0; i < 299; ++i)
        QTest::keyClick(&stage.window(), Qt::Key_Down);
    stage.press(Qt::Key_Return);
    EXPECT_EQ(stage.value("picker", "currentIndex"), 299);
}

TEST(SegmentedPicker, MayHaveNoneChosen) {
    Stage stage(segments);
    EXPECT_EQ(stage.value("segments", "currentIndex"), -1);
    for (const QString &text : {u"Same day"_s, u"1d"_s, u"2d"_s, u"3d"_s}) {
        const QAccessibleInterface *const seen = Stage::accessible(*choice(stage, text));
        EXPECT_EQ(seen->role(), QAccessible::RadioButton);
        EXPECT_EQ(seen->text(QAccessible::Name), text);
        EXPECT_FALSE(seen->state().checked);
    }
    // The first one is where the keyboard begins; reaching it chooses nothing.
    stage.press(Qt::Key_Tab);
    EXPECT_TRUE(choice(stage, u"Same day"_s)->hasActiveFocus());
    EXPECT_TRUE(choice(stage, u"Same day"_s)->property("visualFocus").toBool());
    EXPECT_EQ(stage.value("segments", "currentIndex"), -1);
    stage.press(Qt::Key_Space);
    EXPECT_EQ(stage.value("segments", "currentIndex"), 0);
}

TEST(SegmentedPicker, ChoosesByTheMouse) {
    Stage stage(segments);
    QSignalSpy activated(&stage.item("segments"), SIGNAL(activated(int)));
    stage.click(*choice(stage, u"2d"_s));
    EXPECT_EQ(stage.value("segments", "currentIndex"), 2);
    EXPECT_TRUE(Stage::accessible(*choice(stage, u"2d"_s))->state().checked);
    EXPECT_FALSE(Stage::accessible(*choice(stage, u"1d"_s))->state().checked);
    EXPECT_EQ(activated.size(), 1);
}

TEST(SegmentedPicker, LeavesTheChoiceToWhoListens) {
    Stage stage(u"SegmentedPicker { objectName: 'segments'; label: 'Days'; labels: ['a', 'b'];"
                " currentIndex: 0 }"_s);
    stage.click(*choice(stage, u"b"_s));
    EXPECT_EQ(stage.value("segments", "currentIndex"), 0);
    EXPECT_TRUE(Stage::accessible(*choice(stage, u"a"_s))->state().checked);
    EXPECT_FALSE(Stage::accessible(*choice(stage, u"b"_s))->state().checked);
}

TEST(SegmentedPicker, ChoosesByTheArrows) {
    Stage stage(segments + picker);
    stage.press(Qt::Key_Tab);
    const std::pair<Qt::Key, int> steps[] = {
        {Qt::Key_Right, 0}, {Qt::Key_Right, 1}, {Qt::Key_Down, 2},
        {Qt::Key_Right, 3}, {Qt::Key_Right, 3}, {Qt::Key_Left, 2},
        {Qt::Key_Up, 1},    {Qt::Key_Left, 0},  {Qt::Key_Left, 0}};
    for (const auto &[key, index] : steps) {
        stage.press(key);
        EXPECT_EQ(stage.value("segments", "currentIndex"), index) << key;
    }
    EXPECT_TRUE(choice(stage, u"Same day"_s)->hasActiveFocus());
    // One stop for Tab, in both directions, at the chosen one.
    stage.press(Qt::Key_Right);
    stage.press(Qt::Key_Tab);
    EXPECT_EQ(stage.focused(), u"picker"_s);
    stage.press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_TRUE(choice(stage, u"1d"_s)->hasActiveFocus());
    stage.press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_NE(stage.focused(), u"segments"_s);
}

TEST(SegmentedPicker, ChoosesByAScreenReader) {
    Stage stage(segments);
    const QAccessibleInterface *const group = Stage::accessible(stage.item("segments"));
    EXPECT_EQ(group->role(), QAccessible::Grouping);
    EXPECT_EQ(group->text(QAccessible::Name), u"Days"_s);
    ASSERT_TRUE(Stage::pressByScreenReader(*choice(stage, u"3d"_s)));
    EXPECT_EQ(stage.value("segments", "currentIndex"), 3);
}

TEST(SegmentedPicker, ChoosesNothingWhileDisabled) {
    Stage stage(segments);
    stage.item("segments").setEnabled(false);
    stage.click(*choice(stage, u"2d"_s));
    stage.press(Qt::Key_Tab);
    stage.press(Qt::Key_Right);
    Stage::pressByScreenReader(*choice(stage, u"2d"_s));
    EXPECT_EQ(stage.value("segments", "currentIndex"), -1);
}

TEST_P(Toggles, AreFlippedByTheMouse) {
    stage.click(toggle);
    EXPECT_TRUE(isOn());
    stage.click(toggle);
    EXPECT_FALSE(isOn());
    EXPECT_EQ(toggled.size(), 2);
}

TEST_P(Toggles, AreFlippedByTheKeyboard) {
    stage.press(Qt::Key_Tab);
    ASSERT_EQ(stage.focused(), u"toggle"_s);
    bool on = false;
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        stage.press(key);
        on = !on;
        EXPECT_EQ(isOn(), on) << key;
    }
    EXPECT_EQ(toggled.size(), 3);
    stage.hold(Qt::Key_Return);
    EXPECT_EQ(toggled.size(), 4);
    stage.hold(Qt::Key_Space);
    EXPECT_EQ(toggled.size(), 5);
}

TEST_P(Toggles, AreFlippedByAScreenReader) {
    QAccessibleInterface *const seen = Stage::accessible(toggle);
    EXPECT_EQ(seen->text(QAccessible::Name), u"Still active"_s);
    EXPECT_FALSE(seen->state().checked);
    ASSERT_TRUE(seen->actionInterface());
    seen->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_TRUE(isOn());
    EXPECT_TRUE(seen->state().checked);
    seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_FALSE(isOn());
    EXPECT_EQ(toggled.size(), 2);
}

TEST_P(Toggles, StayAsTheyAreWhileDisabled) {
    toggle.setEnabled(false);
    stage.click(toggle);
    stage.press(Qt::Key_Tab);
    stage.press(Qt::Key_Space);
    stage.press(Qt::Key_Return);
    QAccessibleActionInterface *const actions = Stage::accessible(toggle)->actionInterface();
    actions->doAction(QAccessibleActionInterface::toggleAction());
    actions->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_FALSE(isOn());
    EXPECT_EQ(toggled.size(), 0);
}

INSTANTIATE_TEST_SUITE_P(, Toggles, testing::Values("Switch", "CheckBox"),
                         [](const testing::TestParamInfo<const char *> &kind) {
                             return std::string(kind.param);
                         });

} // namespace tovarin
