// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/LocalizationManager.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/LanguageTest.h"
#include "tests/support/Printing.h"
#include "tests/support/ScopedVariable.h"
#include "tests/ui/Stage.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

const QString field = u"TextField { objectName: 'field'; x: 9; y: 9; label: 'Name';"
                      " placeholderText: 'e.g. this' }"_s;
const QString area = u"TextArea { objectName: 'area'; x: 9; y: 60; label: 'Notes';"
                     " placeholderText: 'Optional' }"_s;
const QString number = u"NumberField { objectName: 'number'; x: 9; y: 200; label: 'Amount';"
                       " value: 9.99; onEdited: typed => value = typed }"_s;

QQuickItem *menuItem(Stage &stage, const QString &text) {
    return stage.itemWith("text", text);
}

} // namespace

// Numbers are written as the user's locale writes them, and a test may run in any.
class NumberField : public testing::Test {
    const ScopedVariable m_locale{"LC_ALL", "en_US.UTF-8"};
};

TEST(TextField, TakesWhatIsTyped) {
    Stage stage(field);
    EXPECT_TRUE(stage.texts().contains(u"e.g. this"_s));
    stage.press(Qt::Key_Tab);
    ASSERT_EQ(stage.focused(), u"field"_s);
    stage.type(u"晨跑 Club"_s);
    EXPECT_EQ(stage.value("field", "text"), u"晨跑 Club"_s);
    EXPECT_FALSE(stage.texts().contains(u"e.g. this"_s));
    stage.press(Qt::Key_A, Qt::ControlModifier);
    stage.press(Qt::Key_Backspace);
    EXPECT_EQ(stage.value("field", "text"), QString());
    EXPECT_TRUE(stage.texts().contains(u"e.g. this"_s));
}

TEST(TextField, IsReadByAScreenReader) {
    Stage stage(field);
    const QAccessibleInterface *const seen = Stage::accessible(stage.item("field"));
    EXPECT_EQ(seen->role(), QAccessible::EditableText);
    EXPECT_EQ(seen->text(QAccessible::Name), u"Name"_s);
    EXPECT_EQ(seen->text(QAccessible::Description), u"e.g. this"_s);
    stage.press(Qt::Key_Tab);
    stage.type(u"x"_s);
    EXPECT_EQ(seen->text(QAccessible::Description), QString());
}

TEST(TextField, ShowsWhereOneTypesInALongText) {
    Stage stage(u"TextField { objectName: 'field'; x: 9; y: 9; width: 80; label: 'L';"
                " text: 'A text that is longer than its field is wide' }"_s);
    const auto cursor = [&stage] {
        return stage.value("field", "cursorRectangle").toRectF().left();
    };
    EXPECT_GT(cursor(), 80);
    stage.press(Qt::Key_Tab);
    ASSERT_EQ(stage.focused(), u"field"_s);
    EXPECT_GT(cursor(), 0);
    EXPECT_LT(cursor(), 80);
}

TEST(TextField, ShowsHowALongTextBegins) {
    Stage stage(field + area);
    const QString text = u"The beginning of a text that is longer than its field is wide"_s;
    stage.press(Qt::Key_Tab);
    stage.type(text);
    EXPECT_GT(stage.item("field").property("cursorRectangle").toRectF().right(), 180);
    stage.press(Qt::Key_Tab);
    QRectF first;
    ASSERT_TRUE(QMetaObject::invokeMethod(&stage.item("field"), "positionToRectangle",
                                          Q_RETURN_ARG(QRectF, first), Q_ARG(int, 0)));
    EXPECT_GE(first.left(), 0);
}

TEST(TextField, IsOutOfReachWhileDisabled) {
    Stage stage(field + area);
    stage.item("field").setEnabled(false);
    stage.press(Qt::Key_Tab);
    EXPECT_EQ(stage.focused(), u"area"_s);
    stage.click(stage.item("field"));
    stage.click(stage.item("field"), Qt::RightButton);
    EXPECT_EQ(stage.focused(), u"area"_s);
    EXPECT_EQ(menuItem(stage, u"Select All"_s), nullptr);
}

class EditMenu : public LanguageTest {
protected:
    LanguageScope language{GetParam()};
};

TEST_P(EditMenu, ChangesTheText) {
    Stage stage(field);
    QQuickItem &item = stage.item("field");
    QGuiApplication::clipboard()->setText(u"paste me"_s);
    const auto choose = [&](const QString &text) {
        stage.click(item, Qt::RightButton);
        ASSERT_TRUE(QTest::qWaitFor([&] { return menuItem(stage, text) != nullptr; }));
        stage.settle();
        stage.click(*menuItem(stage, text));
        ASSERT_TRUE(QTest::qWaitFor([&] { return menuItem(stage, text) == nullptr; }));
    };
    choose(pair(u"粘贴"_s, u"Paste"_s));
    EXPECT_EQ(stage.value("field", "text"), u"paste me"_s);
    choose(pair(u"全选"_s, u"Select All"_s));
    EXPECT_EQ(stage.value("field", "selectedText"), u"paste me"_s);
    stage.type(u"other"_s);
    choose(pair(u"全选"_s, u"Select All"_s));
    choose(pair(u"拷贝"_s, u"Copy"_s));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"other"_s);
    choose(pair(u"剪切"_s, u"Cut"_s));
    EXPECT_EQ(stage.value("field", "text"), QString());
    EXPECT_EQ(stage.focused(), u"field"_s);
}

TEST_P(EditMenu, OffersOnlyWhatCanBeDone) {
    Stage stage(field);
    QGuiApplication::clipboard()->clear();
    stage.press(Qt::Key_Tab);
    stage.press(Qt::Key_Menu);
    ASSERT_TRUE(QTest::qWaitFor([&] { return menuItem(stage, pair(u"剪切"_s, u"Cut"_s)); }));
    for (const QString &text : {pair(u"剪切"_s, u"Cut"_s), pair(u"拷贝"_s, u"Copy"_s),
                                pair(u"粘贴"_s, u"Paste"_s), pair(u"全选"_s, u"Select All"_s)})
        EXPECT_FALSE(menuItem(stage, text)->isEnabled()) << text.toStdString();
    stage.press(Qt::Key_Escape);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !menuItem(stage, pair(u"剪切"_s, u"Cut"_s)); }));
    EXPECT_EQ(stage.focused(), u"field"_s);
}

TEST_P(EditMenu, ChangesNothingThatIsForReading) {
    Stage stage(
        u"TextField { objectName: 'field'; label: 'Name'; text: 'fixed'; readOnly: true }"_s);
    QGuiApplication::clipboard()->setText(u"other"_s);
    stage.press(Qt::Key_Tab);
    stage.press(Qt::Key_A, Qt::ControlModifier);
    stage.press(Qt::Key_Menu);
    ASSERT_TRUE(QTest::qWaitFor([&] { return menuItem(stage, pair(u"剪切"_s, u"Cut"_s)); }));
    EXPECT_FALSE(menuItem(stage, pair(u"剪切"_s, u"Cut"_s))->isEnabled());
    EXPECT_TRUE(menuItem(stage, pair(u"拷贝"_s, u"Copy"_s))->isEnabled());
    EXPECT_FALSE(menuItem(stage, pair(u"粘贴"_s, u"Paste"_s))->isEnabled());
    stage.press(Qt::Key_Escape);
    ASSERT_TRUE(QTest::qWaitFor([&] { return !menuItem(stage, pair(u"剪切"_s, u"Cut"_s)); }));
    EXPECT_FALSE(stage.value("field", "persistentSelection").toBool());
}

TEST_P(EditMenu, BelongsToTextAreasToo) {
    Stage stage(area);
    stage.press(Qt::Key_Tab);
    EXPECT_EQ(Stage::accessible(*stage.window().activeFocusItem())->text(QAccessible::Description),
              u"Optional"_s);
    stage.type(u"note"_s);
    stage.press(Qt::Key_Menu);
    ASSERT_TRUE(QTest::qWaitFor([&] { return menuItem(stage, pair(u"全选"_s, u"Select All"_s)); }));
    stage.settle();
    stage.click(*menuItem(stage, pair(u"全选"_s, u"Select All"_s)));
    ASSERT_TRUE(QTest::qWaitFor([&] { return stage.focused() == u"area"_s; }));
    EXPECT_EQ(stage.window().activeFocusItem()->property("selectedText"), u"note"_s);
}

INSTANTIATE_TEST_SUITE_P(, EditMenu, bothLanguages(), languageName);

TEST(TextArea, TakesSeveralLinesAndLetsTabThrough) {
    Stage stage(field + area);
    stage.press(Qt::Key_Tab);
    stage.press(Qt::Key_Tab);
    ASSERT_EQ(stage.focused(), u"area"_s);
    stage.type(u"one"_s);
    stage.press(Qt::Key_Return);
    stage.type(u"two"_s);
    EXPECT_EQ(stage.value("area", "text"), u"one\ntwo"_s);
    stage.press(Qt::Key_Tab);
    EXPECT_NE(stage.focused(), u"area"_s);
    stage.press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(stage.focused(), u"area"_s);
    EXPECT_EQ(stage.value("area", "text"), u"one\ntwo"_s);
}

TEST(TextArea, ScrollsToWhereOneTypes) {
    Stage stage(area);
    stage.press(Qt::Key_Tab);
    for (int i = 0; i < 40; ++i) {
        stage.type(u"line"_s);
        stage.press(Qt::Key_Return);
    }
    const QQuickItem &editor = *stage.window().activeFocusItem();
    const QRectF cursor =
        editor.mapRectToItem(&stage.item("area"), editor.property("cursorRectangle").toRectF());
    EXPECT_LE(cursor.bottom(), stage.item("area").height());
    EXPECT_GE(cursor.top(), 0);
    EXPECT_EQ(Stage::accessible(*stage.window().activeFocusItem())->text(QAccessible::Name),
              u"Notes"_s);
}

TEST_F(NumberField, ShowsAndTakesNumbers) {
    Stage stage(number + field);
    EXPECT_EQ(stage.value("number", "text"), u"9.99"_s);
    stage.click(stage.item("number"));
    stage.press(Qt::Key_A, Qt::ControlModifier);
    stage.type(u"12.5"_s);
    EXPECT_EQ(stage.value("number", "value"), 12.5);
    stage.press(Qt::Key_Tab);
    EXPECT_EQ(stage.value("number", "text"), u"12.5"_s);
}

TEST_F(NumberField, LeavesTheNumberAsItWasForATextThatIsNone) {
    for (const QString &text : {u"12x"_s, u"abc"_s, u"1.2.3"_s, u"9,99"_s, u"--1"_s}) {
        Stage stage(number + field);
        stage.click(stage.item("number"));
        stage.press(Qt::Key_A, Qt::ControlModifier);
        stage.type(text);
        EXPECT_EQ(stage.value("number", "value"), 9.99) << text.toStdString();
        stage.press(Qt::Key_Return);
        EXPECT_EQ(stage.value("number", "text"), u"9.99"_s) << text.toStdString();
    }
}

TEST_F(NumberField, LeavesTheNumberWhereTheTextIsDeleted) {
    Stage stage(number + field);
    stage.click(stage.item("number"));
    stage.press(Qt::Key_A, Qt::ControlModifier);
    stage.type(u"5"_s);
    stage.press(Qt::Key_Backspace);
    EXPECT_EQ(stage.value("number", "value"), 9.99);
    EXPECT_EQ(stage.value("number", "text"), QString());
    EXPECT_TRUE(stage.texts().contains(u"0"_s));
    stage.click(stage.item("field"));
    EXPECT_EQ(stage.value("number", "text"), u"9.99"_s);
}

TEST_F(NumberField, SaysThatATextIsNoNumber) {
    for (const Lang lang : {Lang::en, Lang::zh}) {
        const LanguageScope language(lang);
        for (const QString &text : {u"12x"_s, u"9,99"_s, u"-"_s, u"12e400"_s, u" "_s, QString()}) {
            Stage stage(number + field);
            QQuickItem &item = stage.item("number");
            const QAccessibleInterface *const seen = Stage::accessible(item);
            const auto outline = [&] { return stage.settle().pixelColor(60, 200); };
            const QColor orange(242, 138, 46);
            EXPECT_TRUE(stage.value("number", "acceptable").toBool());
            EXPECT_NE(outline(), orange);
            EXPECT_EQ(seen->text(QAccessible::Description), QString());

            stage.click(item);
            EXPECT_EQ(outline(), QColor(246, 201, 74));
            stage.press(Qt::Key_A, Qt::ControlModifier);
            stage.press(Qt::Key_Backspace);
            stage.type(text);
            EXPECT_FALSE(stage.value("number", "acceptable").toBool()) << text.toStdString();
            EXPECT_EQ(outline(), orange) << text.toStdString();
            EXPECT_EQ(seen->text(QAccessible::Description),
                      lang == Lang::zh ? u"不是数字"_s : u"Not a number"_s);
            EXPECT_EQ(stage.value("number", "value"), 9.99) << text.toStdString();

            stage.press(Qt::Key_A, Qt::ControlModifier);
            stage.type(u"7"_s);
            EXPECT_EQ(outline(), QColor(246, 201, 74));
            stage.type(u"x"_s);
            EXPECT_EQ(outline(), orange);
            // Whoever leaves it leaves a number.
            stage.click(stage.item("field"));
            EXPECT_TRUE(stage.value("number", "acceptable").toBool());
            EXPECT_NE(outline(), orange);
        }
    }
}

TEST_F(NumberField, StartsAnewAfterReturn) {
    Stage stage(number);
    stage.click(stage.item("number"));
    stage.press(Qt::Key_A, Qt::ControlModifier);
    stage.type(u"12"_s);
    stage.press(Qt::Key_Return);
    stage.type(u"x"_s);
    EXPECT_EQ(stage.value("number", "value"), 12);
    EXPECT_EQ(stage.value("number", "horizontalAlignment").toInt(), int(Qt::AlignRight));
}

TEST_F(NumberField, IsFilledByAScreenReader) {
    Stage stage(number + field);
    QAccessibleInterface *const seen = Stage::accessible(stage.item("number"));
    for (const bool hasKeyboard : {false, true}) {
        if (hasKeyboard)
            stage.click(stage.item("number"));
        seen->setText(QAccessible::Value, u"12.5"_s);
        EXPECT_EQ(stage.value("number", "value"), 12.5);
        seen->setText(QAccessible::Value, u"1,000"_s);
        EXPECT_EQ(stage.value("number", "value"), 1000);
        seen->setText(QAccessible::Value, u"12x"_s);
        EXPECT_EQ(stage.value("number", "value"), hasKeyboard ? 9.99 : 1000);
        EXPECT_FALSE(stage.value("number", "acceptable").toBool());
        stage.click(stage.item("field"));
        stage.object("number").setProperty("value", 9.99);
    }
}

TEST_F(NumberField, FollowsTheNumber) {
    Stage stage(number + field);
    stage.object("number").setProperty("value", 1234567.25);
    EXPECT_EQ(stage.value("number", "text"), u"1,234,567.25"_s);
    stage.object("number").setProperty("value", 0);
    EXPECT_EQ(stage.value("number", "text"), u"0"_s);
}

TEST_F(NumberField, IsWrittenAsTheUserWritesNumbers) {
    for (const auto &[locale, text] : {std::pair{"de_DE.UTF-8", u"9,99"_s},
                                       {"fa_IR.UTF-8", u"۹٫۹۹"_s},
                                       {"C.UTF-8", u"9.99"_s}}) {
        const ScopedVariable variable("LC_ALL", locale);
        Stage stage(number);
        EXPECT_EQ(stage.value("number", "text"), text) << locale;
        stage.click(stage.item("number"));
        stage.object("number").setProperty("text", QString());
        stage.press(Qt::Key_A, Qt::ControlModifier);
        stage.type(text);
        EXPECT_EQ(stage.value("number", "value"), 9.99) << locale;
    }
}

} // namespace tovarin
