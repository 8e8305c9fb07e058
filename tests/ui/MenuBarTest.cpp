// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/LocalizationManager.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/Printing.h"
#include "tests/ui/Stage.h"
#include "ui/MainMenu.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

class MainMenuBar : public testing::TestWithParam<bool> {
protected:
    MainMenuBar() {
        stage.item("holder").setProperty("menu", QVariant::fromValue(&menu));
        stage.settle();
    }

    QString pair(const QString &chinese, const QString &english) const {
        return GetParam() ? chinese : english;
    }

    /// Opens the menu of this title and gives its line of that text.
    QQuickItem *line(const QString &title, const QString &text) {
        stage.click(*stage.itemWith("text", title));
        if (!QTest::qWaitFor([&] { return stage.itemWith("text", text) != nullptr; }))
            return nullptr;
        stage.settle();
        return stage.itemWith("text", text);
    }

    // The menu speaks the language of the start, whatever the program speaks now.
    LanguageScope language{GetParam() ? LocalizationManager::Lang::en
                                      : LocalizationManager::Lang::zh};
    MainMenu menu{GetParam()};
    Stage stage{u"Item { objectName: 'holder'; property var menu: null; width: 480;"
                "  Loader { active: parent.menu; width: 480; sourceComponent: MainMenuBar {"
                "    menu: parent.parent.menu } } }"
                "TextField { objectName: 'field'; y: 200; label: 'Name' }"
                "SoftButton { objectName: 'button'; y: 250; title: 'Button' }"
                "Sheet { objectName: 'sheet'; label: 'Sheet' }"_s};
    QSignalSpy hide{&menu, &MainMenu::hide};
    QSignalSpy quit{&menu, &MainMenu::quit};
};

} // namespace

TEST_P(MainMenuBar, HidesAndQuits) {
    QQuickItem *const hideLine = line(u"Tovarin"_s, pair(u"隐藏 Tovarin"_s, u"Hide Tovarin"_s));
    ASSERT_TRUE(hideLine);
    EXPECT_TRUE(stage.texts().contains(u"Ctrl+H"_s));
    stage.click(*hideLine);
    EXPECT_EQ(hide.size(), 1);
    QQuickItem *const quitLine = line(u"Tovarin"_s, pair(u"退出 Tovarin"_s, u"Quit Tovarin"_s));
    ASSERT_TRUE(quitLine);
    stage.click(*quitLine);
    EXPECT_EQ(quit.size(), 1);
}

TEST_P(MainMenuBar, HidesAndQuitsByKeys) {
    stage.click(stage.item("field"));
    stage.press(Qt::Key_H, Qt::ControlModifier);
    EXPECT_EQ(hide.size(), 1);
    stage.press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(quit.size(), 1);
}

TEST_P(MainMenuBar, HidesAndQuitsByKeysWhileASheetIsOpen) {
    QObject &sheet = stage.object("sheet");
    QMetaObject::invokeMethod(&sheet, "open");
    ASSERT_TRUE(QTest::qWaitFor([&] { return sheet.property("opened").toBool(); }));
    stage.settle();
    stage.press(Qt::Key_H, Qt::ControlModifier);
    EXPECT_EQ(hide.size(), 1);
    stage.press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(quit.size(), 1);
    // The menus are out of reach.
    stage.press(Qt::Key_F10);
    stage.settle();
    EXPECT_FALSE(stage.itemWith("text", pair(u"隐藏 Tovarin"_s, u"Hide Tovarin"_s)));
}

TEST_P(MainMenuBar, IsOpenedAndWalkedByKeys) {
    const QString hideText = pair(u"隐藏 Tovarin"_s, u"Hide Tovarin"_s);
    const QString pasteText = pair(u"粘贴"_s, u"Paste"_s);
    const auto isInSight = [this](const QString &text) {
        return QTest::qWaitFor([&] { return stage.itemWith("text", text) != nullptr; });
    };
    const auto isGone = [this](const QString &text) {
        return QTest::qWaitFor([&] { return !stage.itemWith("text", text); });
    };
    QGuiApplication::clipboard()->setText(u"brought"_s);
    stage.click(stage.item("field"));
    stage.press(Qt::Key_F10);
    ASSERT_TRUE(isInSight(hideText));
    stage.settle();
    stage.press(Qt::Key_Right);
    ASSERT_TRUE(isInSight(pasteText));
    ASSERT_TRUE(isGone(hideText));
    stage.press(Qt::Key_Left);
    ASSERT_TRUE(isInSight(hideText));
    stage.press(Qt::Key_Escape);
    ASSERT_TRUE(isGone(hideText));
    EXPECT_EQ(stage.focused(), u"field"_s);
    EXPECT_EQ(hide.size(), 0);

    // What is selected in the field stays so, and can be edited from here.
    stage.type(u"selected"_s);
    stage.press(Qt::Key_A, Qt::ControlModifier);
    stage.press(Qt::Key_F10);
    ASSERT_TRUE(isInSight(hideText));
    stage.settle();
    stage.press(Qt::Key_Right);
    ASSERT_TRUE(isInSight(pasteText));
    stage.settle();
    stage.press(Qt::Key_Down);
    stage.press(Qt::Key_Return);
    ASSERT_TRUE(isGone(pasteText));
    EXPECT_EQ(stage.focused(), u"field"_s);
    EXPECT_EQ(stage.value("field", "text"), QString());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"selected"_s);

    // The first line is chosen already.
    stage.press(Qt::Key_F10);
    ASSERT_TRUE(isInSight(hideText));
    stage.settle();
    stage.press(Qt::Key_Return);
    EXPECT_EQ(hide.size(), 1);
    EXPECT_EQ(quit.size(), 0);
    ASSERT_TRUE(isGone(hideText));
    EXPECT_EQ(stage.focused(), u"field"_s);
}

TEST_P(MainMenuBar, EditsTheFieldThatTheKeyboardIsAt) {
    const QString edit = pair(u"编辑"_s, u"Edit"_s);
    const auto choose = [&](const QString &text) {
        QQuickItem *const item = line(edit, text);
        ASSERT_TRUE(item) << text.toStdString();
        EXPECT_TRUE(item->isEnabled()) << text.toStdString();
        stage.click(*item);
        ASSERT_TRUE(QTest::qWaitFor([&] { return !stage.itemWith("text", text); }));
        stage.settle();
    };
    stage.click(stage.item("field"));
    QGuiApplication::clipboard()->setText(u"brought"_s);
    choose(pair(u"粘贴"_s, u"Paste"_s));
    EXPECT_EQ(stage.value("field", "text"), u"brought"_s);
    EXPECT_EQ(stage.focused(), u"field"_s);
    stage.type(u" here"_s);
    choose(pair(u"全选"_s, u"Select All"_s));
    choose(pair(u"拷贝"_s, u"Copy"_s));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"brought here"_s);
    choose(pair(u"剪切"_s, u"Cut"_s));
    EXPECT_EQ(stage.value("field", "text"), QString());
}

TEST_P(MainMenuBar, EditsByKeys) {
    QGuiApplication::clipboard()->setText(u"by keys"_s);
    stage.click(stage.item("field"));
    stage.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(stage.value("field", "text"), u"by keys"_s);
    stage.press(Qt::Key_A, Qt::ControlModifier);
    stage.press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(stage.value("field", "text"), QString());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"by keys"_s);
}

TEST_P(MainMenuBar, HasNothingToEditElsewhere) {
    stage.click(stage.item("field"));
    stage.type(u"stays"_s);
    stage.press(Qt::Key_A, Qt::ControlModifier);
    stage.item("button").forceActiveFocus();
    ASSERT_TRUE(line(pair(u"编辑"_s, u"Edit"_s), pair(u"剪切"_s, u"Cut"_s)));
    for (const QString &text : {pair(u"剪切"_s, u"Cut"_s), pair(u"拷贝"_s, u"Copy"_s),
                                pair(u"粘贴"_s, u"Paste"_s), pair(u"全选"_s, u"Select All"_s)})
        EXPECT_FALSE(stage.itemWith("text", text)->isEnabled()) << text.toStdString();
    stage.press(Qt::Key_Escape);
    stage.press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(stage.value("field", "text"), u"stays"_s);
}

INSTANTIATE_TEST_SUITE_P(, MainMenuBar, testing::Values(false, true),
                         [](const testing::TestParamInfo<bool> &isZh) {
                             return isZh.param ? "Chinese" : "English";
                         });

} // namespace tovarin
