// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// The settings' sheet, handled as a user does.

#include "tests/support/LanguageScope.h"
#include "tests/support/LanguageTest.h"
#include "tests/support/ManualDelay.h"
#include "tests/support/MemoryDefaults.h"
#include "tests/support/Printing.h"
#include "tests/ui/SheetStage.h"
#include "ui/SettingsModel.h"

#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

class SettingsTest : public LanguageTest {
protected:
    /// The segment with this text in one of the choices.
    QQuickItem &segment(const QString &text) {
        QQuickItem *const found = stage.itemWith("modelData", text);
        if (!found)
            qFatal("there is no %s", qPrintable(text));
        return *found;
    }

    QStringList expectedTexts() const {
        if (isZh())
            return {u"[ 设置 ]"_s,
                    u"快选常见服务"_s,
                    u"国内 / 国际两套清单，勾选即添加"_s,
                    u"语言"_s,
                    u"跟随系统"_s,
                    u"English"_s,
                    u"中文"_s,
                    u"续费提醒"_s,
                    u"提前几天提醒我"_s,
                    u"当天"_s,
                    u"1 天"_s,
                    u"2 天"_s,
                    u"3 天"_s,
                    u"5 天"_s,
                    u"7 天"_s,
                    u"每次到点会在上午 10:00 发送系统通知，提醒你即将扣费的订阅。"_s,
                    u"发送测试通知"_s,
                    u"若收不到通知，请到「系统设置 → 通知 → Tovarin」中允许通知。"_s};
        return {u"[ SETTINGS ]"_s,
                u"Quick add services"_s,
                u"China & global lists — check to add"_s,
                u"Language"_s,
                u"System"_s,
                u"English"_s,
                u"中文"_s,
                u"Renewal reminders"_s,
                u"Remind me how many days ahead"_s,
                u"Same day"_s,
                u"1d"_s,
                u"2d"_s,
                u"3d"_s,
                u"5d"_s,
                u"7d"_s,
                u"A system notification is sent at 10:00 AM to remind you of upcoming charges."_s,
                u"Send test notification"_s,
                u"If you don't see notifications, allow them in System Settings → "
                "Notifications → Tovarin."_s};
    }

    LanguageScope language{GetParam()};
    MemoryDefaults defaults;
    ManualDelay delays;
    SettingsModel model{defaults, LocalizationManager::shared(), delays.delay()};
    SheetStage stage{u"SettingsView"_s, {{u"settings"_s, QVariant::fromValue(&model)}}};
};

} // namespace

TEST_P(SettingsTest, ShowTheirTexts) {
    EXPECT_EQ(stage.texts(), expectedTexts());
    EXPECT_EQ(stage.screen().property("label"), isZh() ? u"设置"_s : u"Settings"_s);
    const QQuickItem *const cut = stage.itemWith("truncated", true);
    EXPECT_FALSE(cut) << cut->property("text").toString().toStdString();
}

TEST_P(SettingsTest, FitTheirSheet) {
    EXPECT_EQ(stage.screen().implicitWidth(), 500);
    EXPECT_EQ(stage.screen().implicitHeight(), 660);
    EXPECT_EQ(stage.screen().height(), 660);
    EXPECT_LE(SheetStage::bottom(stage.item("test")), SheetStage::bottom(stage.screen()));
}

TEST_P(SettingsTest, ChangeTheLanguageAtOnce) {
    stage.click(segment(isZh() ? u"English"_s : u"中文"_s));
    EXPECT_EQ(LocalizationManager::shared().lang(), otherLang());
    EXPECT_EQ(stage.texts().first(), isZh() ? u"[ SETTINGS ]"_s : u"[ 设置 ]"_s);
    EXPECT_TRUE(stage.texts().contains(isZh() ? u"Same day"_s : u"当天"_s));
}

TEST_P(SettingsTest, StoreTheDayCount) {
    stage.click(segment(isZh() ? u"当天"_s : u"Same day"_s));
    EXPECT_EQ(defaults.integer(u"remindDaysBefore"_s), 0);
    EXPECT_EQ(stage.value("days", "currentIndex"), 0);
    stage.press(Qt::Key_Right);
    EXPECT_EQ(defaults.integer(u"remindDaysBefore"_s), 1);
    stage.press(Qt::Key_Left);
    EXPECT_EQ(defaults.integer(u"remindDaysBefore"_s), 0);
}

TEST_P(SettingsTest, ShowNoDayCountForOneThatIsNotOffered) {
    defaults.setInteger(u"remindDaysBefore"_s, 4);
    SettingsModel other(defaults, LocalizationManager::shared(), delays.delay());
    SheetStage second(u"SettingsView"_s, {{u"settings"_s, QVariant::fromValue(&other)}});
    EXPECT_EQ(second.value("days", "currentIndex"), -1);
    EXPECT_EQ(other.dayIndex(), -1);
    EXPECT_EQ(defaults.integer(u"remindDaysBefore"_s), 4);
}

TEST_P(SettingsTest, SendATest) {
    const QSignalSpy sent(&model, &SettingsModel::testRequested);
    stage.click(stage.item("test"));
    EXPECT_EQ(sent.size(), 1);
    EXPECT_EQ(stage.value("test", "title"),
              isZh() ? u"已发送，请留意通知"_s : u"Sent — check notifications"_s);
    delays.pass(3s);
    EXPECT_EQ(stage.value("test", "title"),
              isZh() ? u"发送测试通知"_s : u"Send test notification"_s);
}

TEST_P(SettingsTest, SendATestForEachPress) {
    const QSignalSpy sent(&model, &SettingsModel::testRequested);
    QQuickItem &button = stage.item("test");
    stage.click(button);
    QTest::mouseDClick(&stage.window(), Qt::LeftButton, {}, stage.middleOf(button));
    EXPECT_EQ(sent.size(), 3);
}

TEST_P(SettingsTest, AreVisitedInOrderByTab) {
    const QSignalSpy quickPick(&model, &SettingsModel::quickPickRequested);
    const QSignalSpy dismissed(&model, &SettingsModel::dismissed);
    stage.screen().setFocus(true);
    QStringList visited;
    for (int i = 0; i < 6; ++i) {
        visited.append(stage.focused());
        stage.press(Qt::Key_Tab);
    }
    EXPECT_EQ(visited, QStringList({u"quickPick"_s, u"language"_s, u"days"_s, u"test"_s, u"close"_s,
                                    u"quickPick"_s}));
    stage.press(Qt::Key_Backtab);
    ASSERT_EQ(stage.focused(), u"quickPick"_s);
    stage.press(Qt::Key_Return);
    EXPECT_EQ(quickPick.size(), 1);
    stage.press(Qt::Key_Backtab);
    ASSERT_EQ(stage.focused(), u"close"_s);
    stage.press(Qt::Key_Space);
    EXPECT_EQ(dismissed.size(), 1);
}

TEST_P(SettingsTest, TellTheirControlsToAScreenReader) {
    struct {
        const char *item;
        QAccessible::Role role;
        QString name;
        QString description;
    } const cases[] = {
        {"close", QAccessible::Button, isZh() ? u"关闭"_s : u"Close"_s, {}},
        {"quickPick", QAccessible::Button, isZh() ? u"快选常见服务"_s : u"Quick add services"_s,
         isZh() ? u"国内 / 国际两套清单，勾选即添加"_s : u"China & global lists — check to add"_s},
        {"language", QAccessible::Grouping, isZh() ? u"语言"_s : u"Language"_s, {}},
        {"days",
         QAccessible::Grouping,
         isZh() ? u"提前几天提醒我"_s : u"Remind me how many days ahead"_s,
         {}},
        {"test", QAccessible::Button, isZh() ? u"发送测试通知"_s : u"Send test notification"_s, {}},
    };
    for (const auto &[name, role, text, description] : cases) {
        const QAccessibleInterface *const seen = Stage::accessible(stage.item(name));
        ASSERT_TRUE(seen) << name;
        EXPECT_EQ(seen->role(), role) << name;
        EXPECT_EQ(seen->text(QAccessible::Name), text) << name;
        EXPECT_EQ(seen->text(QAccessible::Description), description) << name;
    }
    const QSignalSpy quickPick(&model, &SettingsModel::quickPickRequested);
    EXPECT_TRUE(Stage::pressByScreenReader(stage.item("quickPick")));
    EXPECT_EQ(quickPick.size(), 1);
    EXPECT_TRUE(Stage::pressByScreenReader(segment(isZh() ? u"7 天"_s : u"7d"_s)));
    EXPECT_EQ(model.remindDaysBefore(), 7);
}

INSTANTIATE_TEST_SUITE_P(, SettingsTest, bothLanguages(), languageName);

} // namespace tovarin
