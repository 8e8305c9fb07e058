// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// The sheets of the main window: what opens them, and what they leave behind.

#include "tests/support/Printing.h"
#include "tests/ui/MainWindow.h"
#include "ui/SettingsModel.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace tovarin {

using Lang = LocalizationManager::Lang;
using Sheet = ContentSheets::Sheet;

namespace {

class Sheets : public MainWindow {
protected:
    /// The title in brackets of the sheet in sight; empty without one.
    QString shownTitle() const {
        // The main window has one of its own.
        for (const QString &text : texts()) {
            if (text.startsWith(u"[ "_s) &&
                text != pair(u"[ 每月订阅支出 ]"_s, u"[ MONTHLY SPEND ]"_s))
                return text;
        }
        return {};
    }

    void openWith(const QStringList &names) {
        open();
        for (const QString &name : names)
            store->add(sampleSubscription(name));
        settle();
    }
};

} // namespace

TEST_P(Sheets, OpenByTheButtonsOfTheWindow) {
    open();
    struct {
        const char *button;
        Sheet sheet;
        QString title;
    } const cases[] = {
        {"add", Sheet::Editor, pair(u"[ 添加订阅 ]"_s, u"[ Add subscription ]"_s)},
        {"quickPick", Sheet::QuickPick, pair(u"[ 快速添加常见服务 ]"_s, u"[ QUICK ADD ]"_s)},
        {"emptyQuickPick", Sheet::QuickPick, pair(u"[ 快速添加常见服务 ]"_s, u"[ QUICK ADD ]"_s)},
        {"emptyAdd", Sheet::Editor, pair(u"[ 添加订阅 ]"_s, u"[ Add subscription ]"_s)},
        {"settings", Sheet::Settings, pair(u"[ 设置 ]"_s, u"[ SETTINGS ]"_s)},
    };
    for (const auto &[button, sheet, title] : cases) {
        click(item(button));
        EXPECT_EQ(sheets->sheet(), sheet) << button;
        EXPECT_EQ(shownTitle(), title) << button;
        press(Qt::Key_Escape);
        EXPECT_EQ(sheets->sheet(), Sheet::None) << button;
        EXPECT_EQ(shownTitle(), QString()) << button;
        EXPECT_EQ(focused(), QString::fromLatin1(button));
    }
}

TEST_P(Sheets, KeepTheWindowOutOfReach) {
    openWith({u"Morning Run"_s});
    click(item("settings"));
    EXPECT_FALSE(item("add").isEnabled());
    click(item("add"));
    EXPECT_EQ(sheets->sheet(), Sheet::Settings);
    press(Qt::Key_Escape);
    EXPECT_TRUE(item("add").isEnabled());
}

TEST_P(Sheets, AddAnEntryByTheKeyboardAlone) {
    open();
    while (focused() != u"add"_s)
        press(Qt::Key_Tab);
    press(Qt::Key_Return);
    ASSERT_EQ(sheets->sheet(), Sheet::Editor);
    EXPECT_EQ(focused(), u"name"_s);
    type(u"Morning Run"_s);
    press(Qt::Key_Tab);
    type(u"9.99"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(sheets->sheet(), Sheet::None);
    ASSERT_EQ(store->subscriptions().size(), 1);
    EXPECT_EQ(store->subscriptions().first().name, u"Morning Run"_s);
    EXPECT_TRUE(texts().contains(u"Morning Run"_s));
    EXPECT_TRUE(texts().contains(pair(u"1 项"_s, u"1 items"_s)));
}

TEST_P(Sheets, ShowAnEntryByItsRow) {
    openWith({u"Morning Run"_s, u"Evening Swim"_s});
    click(u"Evening Swim"_s);
    EXPECT_EQ(shownTitle(), pair(u"[ 详情 ]"_s, u"[ DETAILS ]"_s));
    EXPECT_EQ(sheets->detailSub()->name, u"Evening Swim"_s);
    click(pair(u"停用"_s, u"Pause"_s));
    EXPECT_FALSE(store->subscriptions().last().isActive);
    EXPECT_TRUE(texts().contains(pair(u"启用"_s, u"Resume"_s)));
    click(item("edit"));
    EXPECT_EQ(shownTitle(), QString());
    delays.pass(150ms);
    settle();
    EXPECT_EQ(shownTitle(), pair(u"[ 编辑订阅 ]"_s, u"[ Edit subscription ]"_s));
    EXPECT_EQ(item("name").property("text"), u"Evening Swim"_s);
    click(pair(u"取消"_s, u"Cancel"_s));
    click(u"Evening Swim"_s);
    click(pair(u"删除这个订阅"_s, u"Delete subscription"_s));
    EXPECT_EQ(shownTitle(), QString());
    EXPECT_FALSE(texts().contains(u"Evening Swim"_s));
    ASSERT_EQ(store->subscriptions().size(), 1);
}

TEST_P(Sheets, AreReachedByKeysFromTheRows) {
    QStringList names;
    for (int i = 0; i < 40; ++i)
        names.append(u"entry %1"_s.arg(i));
    openWith(names);
    while (focused() != u"scan"_s)
        press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    const auto row = [this] { return window->activeFocusItem()->property("name").toString(); };
    EXPECT_EQ(row(), u"entry 0"_s);
    for (int i = 0; i < 30; ++i)
        press(Qt::Key_Down);
    EXPECT_EQ(row(), u"entry 30"_s);
    // It came into sight.
    EXPECT_LE(window->activeFocusItem()->mapToScene({0, 0}).y() +
                  window->activeFocusItem()->height(),
              window->height());
    press(Qt::Key_Up);
    EXPECT_EQ(row(), u"entry 29"_s);
    press(Qt::Key_Return);
    EXPECT_EQ(sheets->detailSub()->name, u"entry 29"_s);
    press(Qt::Key_Escape);
    EXPECT_EQ(row(), u"entry 29"_s);
    // Tab passes the list by, and comes back to the row that it left.
    press(Qt::Key_Backtab);
    EXPECT_EQ(focused(), u"scan"_s);
    EXPECT_GE(window->activeFocusItem()->mapToItem(&list(), {0, 0}).y(), 0);
    press(Qt::Key_Tab);
    EXPECT_EQ(row(), u"entry 29"_s);
    press(Qt::Key_End);
    for (int i = 0; i < 20; ++i)
        press(Qt::Key_Down);
    EXPECT_EQ(row(), u"entry 39"_s);
}

/// The second half of a double click must not press what opens, or stands behind, at that place.
TEST_P(Sheets, BearDoubleClicks) {
    QStringList names;
    for (int i = 0; i < 40; ++i)
        names.append(u"entry %1"_s.arg(i));
    openWith(names);
    press(Qt::Key_PageDown);
    press(Qt::Key_PageDown);
    sheets->showDetail(store->subscriptions().last().id.toString());
    settle();
    for (const char *button : {"edit", "toggle", "copy", "delete"}) {
        const QPoint place = middleOf(item(button));
        press(Qt::Key_Escape);
        doubleClick(place);
        ASSERT_EQ(sheets->sheet(), Sheet::Detail) << button;
        EXPECT_TRUE(sheets->detailSub()->isActive) << button;
        ASSERT_EQ(store->subscriptions().size(), 40) << button;
    }
    const QPoint place = middleOf(item("delete"));
    doubleClick(place);
    EXPECT_EQ(sheets->sheet(), Sheet::None);
    QTest::mouseClick(window, Qt::LeftButton, {}, place);
    settle();
    EXPECT_EQ(store->subscriptions().size(), 39);
    press(Qt::Key_Escape);
    click(item("settings"));
    press(Qt::Key_Escape);
    sheets->showEditor();
    settle();
    doubleClick(middleOf(item("cancel")));
    EXPECT_EQ(sheets->sheet(), Sheet::None);
}

TEST_P(Sheets, CloseOneForAHeldEscape) {
    open();
    click(item("settings"));
    sheets->showQuickPick();
    press(Qt::Key_Escape);
    ASSERT_EQ(sheets->sheet(), Sheet::QuickPick);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(window, &held);
    settle();
    EXPECT_EQ(sheets->sheet(), Sheet::QuickPick);
    press(Qt::Key_Escape);
    EXPECT_EQ(sheets->sheet(), Sheet::None);
}

TEST_P(Sheets, TakeTheKeyboardWhenTheirTurnComes) {
    openWith({u"one"_s, u"two"_s});
    while (focused() != u"scan"_s)
        press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    ASSERT_EQ(sheets->sheet(), Sheet::Detail);
    sheets->take({sampleSubscription(u"bill"_s)});
    press(Qt::Key_Escape);
    ASSERT_EQ(sheets->sheet(), Sheet::Editor);
    type(u"!"_s);
    EXPECT_EQ(item("name").property("text"), u"bill!"_s);
    press(Qt::Key_Escape);
    EXPECT_EQ(sheets->sheet(), Sheet::None);
    EXPECT_EQ(window->activeFocusItem()->property("name"), u"one"_s);
}

TEST_P(Sheets, LeaveTheKeyboardAtTheEntry) {
    openWith({u"one"_s, u"two"_s, u"three"_s});
    while (focused() != u"scan"_s)
        press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    const auto row = [this] { return window->activeFocusItem()->property("name").toString(); };
    ASSERT_EQ(row(), u"one"_s);
    press(Qt::Key_Return);
    click(item("toggle"));
    press(Qt::Key_Escape);
    // It went to the end of the list.
    EXPECT_EQ(row(), u"one"_s);
    press(Qt::Key_Up);
    EXPECT_EQ(row(), u"three"_s);
    press(Qt::Key_Return);
    click(item("delete"));
    EXPECT_EQ(row(), u"one"_s);
    press(Qt::Key_Return);
    click(item("delete"));
    EXPECT_EQ(row(), u"two"_s);
    press(Qt::Key_Return);
    click(item("delete"));
    EXPECT_EQ(focused(), u"emptyQuickPick"_s);
}

TEST_P(Sheets, TakeWhatAScanFinds) {
    open();
    panel.choice = filesNamed({u"bill"_s});
    click(item("scan"));
    waitForScan();
    EXPECT_EQ(shownTitle(), pair(u"[ 确认识别结果 ]"_s, u"[ Confirm scan ]"_s));
    EXPECT_EQ(item("name").property("text"), u"bill"_s);
    press(Qt::Key_Escape);
    EXPECT_TRUE(store->subscriptions().isEmpty());
    panel.choice = filesNamed({u"bill a"_s, u"crash"_s, u"bill b"_s, u"bill c"_s});
    click(item("scan"));
    waitForScan();
    EXPECT_EQ(shownTitle(), pair(u"[ 批量识别结果 ]"_s, u"[ BATCH SCAN ]"_s));
    EXPECT_TRUE(texts().contains(pair(u"[ 3/3 项 ]"_s, u"[ 3/3 ]"_s)));
    click(pair(u"添加 3 项"_s, u"Add 3"_s));
    EXPECT_EQ(shownTitle(), QString());
    EXPECT_EQ(store->subscriptions().size(), 3);
}

TEST_P(Sheets, LeadFromTheSettingsToTheQuickPick) {
    open();
    click(item("settings"));
    click(pair(u"国内 / 国际两套清单，勾选即添加"_s, u"China & global lists — check to add"_s));
    EXPECT_EQ(sheets->sheet(), Sheet::QuickPick);
    EXPECT_EQ(shownTitle(), pair(u"[ 快速添加常见服务 ]"_s, u"[ QUICK ADD ]"_s));
    click(pair(u"跳过"_s, u"Skip"_s));
    EXPECT_EQ(shownTitle(), QString());
    EXPECT_TRUE(sheets->didCompleteQuickPick());
}

TEST_P(Sheets, FollowTheLanguage) {
    open();
    click(item("settings"));
    sheets->settings()->chooseLang(isZh() ? 1 : 2);
    settle();
    EXPECT_TRUE(texts().contains(pair(u"[ SETTINGS ]"_s, u"[ 设置 ]"_s)));
    EXPECT_TRUE(texts().contains(pair(u"[ MONTHLY SPEND ]"_s, u"[ 每月订阅支出 ]"_s)));
    EXPECT_FALSE(texts().contains(pair(u"[ 设置 ]"_s, u"[ SETTINGS ]"_s)));
}

TEST_P(Sheets, FitASmallWindow) {
    openWith({u"Morning Run"_s});
    window->resize(640, 420);
    settle();
    for (const char *button : {"add", "quickPick", "settings"}) {
        click(item(button));
        const QQuickItem *sheet = window->activeFocusItem();
        while (sheet->parentItem() && sheet->property("label").toString().isEmpty())
            sheet = sheet->parentItem();
        EXPECT_LE(sheet->mapToScene({sheet->width(), sheet->height()}).x(), 640) << button;
        EXPECT_LE(sheet->mapToScene({sheet->width(), sheet->height()}).y(), 420) << button;
        press(Qt::Key_Escape);
        ASSERT_EQ(sheets->sheet(), Sheet::None) << button;
    }
}

INSTANTIATE_TEST_SUITE_P(, Sheets, bothLanguages(), languageName);

} // namespace tovarin
