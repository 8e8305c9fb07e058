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

#include <cmath>

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

    /// Whether such a text is in sight soon.
    bool isInSight(const QString &text) {
        return QTest::qWaitFor([&] { return stage.itemWith("text", text) != nullptr; });
    }
    bool isGone(const QString &text) {
        return QTest::qWaitFor([&] { return !stage.itemWith("text", text); });
    }

    /// Chooses a line of the edit menu.
    void choose(const QString &text) {
        QQuickItem *const item = line(pair(u"编辑"_s, u"Edit"_s), text);
        ASSERT_TRUE(item) << text.toStdString();
        EXPECT_TRUE(item->isEnabled()) << text.toStdString();
        stage.click(*item);
        ASSERT_TRUE(isGone(text));
        stage.settle();
    }

    void openSheet() {
        QObject &sheet = stage.object("sheet");
        QMetaObject::invokeMethod(&sheet, "open");
        ASSERT_TRUE(QTest::qWaitFor([&] { return sheet.property("opened").toBool(); }));
        stage.settle();
    }

    // The menu speaks the language of the start, whatever the program speaks now.
    LanguageScope language{GetParam() ? LocalizationManager::Lang::en
                                      : LocalizationManager::Lang::zh};
    MainMenu menu{GetParam()};
    Stage stage{
        u"Item { objectName: 'holder'; property var menu: null; width: 480;"
        "  Loader { id: bar; active: parent.menu; onLoaded: item.parent = Window.contentItem;"
        "    sourceComponent: MainMenuBar { width: 480; menu: bar.parent.menu } } }"
        "TextField { objectName: 'field'; y: 200; label: 'Name' }"
        "SoftButton { objectName: 'button'; y: 250; title: 'Button' }"
        "Sheet { objectName: 'sheet'; label: 'Sheet'; menuBar: bar.item;"
        "  TextField { objectName: 'inside'; label: 'Inside' } }"_s};
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
    openSheet();
    stage.press(Qt::Key_H, Qt::ControlModifier);
    EXPECT_EQ(hide.size(), 1);
    stage.press(Qt::Key_Q, Qt::ControlModifier);
    EXPECT_EQ(quit.size(), 1);
}

TEST_P(MainMenuBar, EditsTheFieldOfASheet) {
    openSheet();
    QGuiApplication::clipboard()->setText(u"brought"_s);
    stage.click(stage.item("inside"));
    choose(pair(u"粘贴"_s, u"Paste"_s));
    EXPECT_EQ(stage.value("inside", "text"), u"brought"_s);
    EXPECT_EQ(stage.focused(), u"inside"_s);
    choose(pair(u"全选"_s, u"Select All"_s));
    choose(pair(u"剪切"_s, u"Cut"_s));
    EXPECT_EQ(stage.value("inside", "text"), QString());
    EXPECT_EQ(stage.focused(), u"inside"_s);

    // And by the keyboard, which stays in the sheet afterwards.
    stage.press(Qt::Key_F10);
    ASSERT_TRUE(isInSight(pair(u"隐藏 Tovarin"_s, u"Hide Tovarin"_s)));
    stage.settle();
    stage.press(Qt::Key_Right);
    ASSERT_TRUE(isInSight(pair(u"粘贴"_s, u"Paste"_s)));
    stage.settle();
    stage.press(Qt::Key_Escape);
    ASSERT_TRUE(isGone(pair(u"粘贴"_s, u"Paste"_s)));
    EXPECT_EQ(stage.focused(), u"inside"_s);
    EXPECT_TRUE(stage.object("sheet").property("opened").toBool());
    stage.type(u"typed"_s);
    EXPECT_EQ(stage.value("inside", "text"), u"typed"_s);
}

TEST_P(MainMenuBar, ClosesWhenASheetOpens) {
    const QString hideText = pair(u"隐藏 Tovarin"_s, u"Hide Tovarin"_s);
    stage.click(stage.item("field"));
    stage.press(Qt::Key_F10);
    ASSERT_TRUE(isInSight(hideText));
    stage.settle();
    openSheet();
    EXPECT_TRUE(isGone(hideText));
    EXPECT_FALSE(stage.item("field").hasActiveFocus());
    QMetaObject::invokeMethod(&stage.object("sheet"), "close");
    ASSERT_TRUE(QTest::qWaitFor([&] { return stage.item("field").hasActiveFocus(); }));
    stage.type(u"typed"_s);
    EXPECT_EQ(stage.value("field", "text"), u"typed"_s);
}

TEST_P(MainMenuBar, ClosesByWhatOpensIt) {
    const QString pasteText = pair(u"粘贴"_s, u"Paste"_s);
    const QString hideText = pair(u"隐藏 Tovarin"_s, u"Hide Tovarin"_s);
    openSheet();
    stage.click(stage.item("inside"));
    stage.type(u"ab"_s);
    for (int i = 0; i < 2; ++i) {
        stage.press(Qt::Key_F10);
        ASSERT_TRUE(isInSight(hideText));
        stage.press(Qt::Key_F10);
        ASSERT_TRUE(isGone(hideText));
        EXPECT_EQ(stage.focused(), u"inside"_s);
    }
    stage.press(Qt::Key_F10);
    ASSERT_TRUE(isInSight(hideText));
    stage.settle();
    stage.press(Qt::Key_Right);
    ASSERT_TRUE(isInSight(pasteText));
    stage.press(Qt::Key_F10);
    ASSERT_TRUE(isGone(pasteText));
    EXPECT_FALSE(stage.itemWith("text", hideText));
    EXPECT_EQ(stage.focused(), u"inside"_s);
    QQuickItem &title = *stage.itemWith("text", pair(u"编辑"_s, u"Edit"_s));
    for (int i = 0; i < 2; ++i) {
        stage.point(title);
        stage.click(title);
        ASSERT_TRUE(isInSight(pasteText));
        stage.click(title);
        ASSERT_TRUE(isGone(pasteText));
        ASSERT_TRUE(QTest::qWaitFor([&] { return stage.focused() == u"inside"_s; }));
    }
    stage.type(u"c"_s);
    EXPECT_EQ(stage.value("inside", "text"), u"abc"_s);
    stage.press(Qt::Key_Escape);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !stage.value("sheet", "visible").toBool(); }));
}

TEST_P(MainMenuBar, OpensAtOnceWhereverThePointerWasWhenItClosed) {
    const QString hideText = pair(u"隐藏 Tovarin"_s, u"Hide Tovarin"_s);
    const QString pasteText = pair(u"粘贴"_s, u"Paste"_s);
    QQuickItem &title = *stage.itemWith("text", u"Tovarin"_s);
    QQuickItem &beside = *stage.itemWith("text", pair(u"编辑"_s, u"Edit"_s));
    stage.click(stage.item("field"));
    for (const bool bySheet : {false, true}) {
        stage.point(title);
        stage.click(title);
        ASSERT_TRUE(isInSight(hideText));
        if (bySheet)
            openSheet();
        else
            stage.press(Qt::Key_Escape);
        ASSERT_TRUE(isGone(hideText));
        // The pointer alone opens nothing.
        stage.point(beside);
        stage.settle();
        EXPECT_FALSE(stage.itemWith("text", pasteText));
        stage.point(title);
        stage.click(title);
        ASSERT_TRUE(isInSight(hideText));
        stage.press(Qt::Key_Escape);
        ASSERT_TRUE(isGone(hideText));
    }
    QMetaObject::invokeMethod(&stage.object("sheet"), "close");
    ASSERT_TRUE(QTest::qWaitFor([&] { return stage.item("field").hasActiveFocus(); }));
}

TEST_P(MainMenuBar, IsNotCoveredByASheet) {
    QObject &sheet = stage.object("sheet");
    sheet.setProperty("preferredHeight", 5000);
    openSheet();
    const qreal end = stage.itemWith("text", u"Tovarin"_s)->height();
    const qreal height = stage.window().height();
    EXPECT_EQ(sheet.property("y").toReal(), end + 16);
    EXPECT_EQ(sheet.property("height").toReal(), height - end - 32);
    sheet.setProperty("preferredHeight", 100);
    EXPECT_EQ(sheet.property("y").toReal(), std::round((end + height - 100) / 2));
}

TEST_P(MainMenuBar, IsOpenedAndWalkedByKeys) {
    const QString hideText = pair(u"隐藏 Tovarin"_s, u"Hide Tovarin"_s);
    const QString pasteText = pair(u"粘贴"_s, u"Paste"_s);
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
