#!/usr/bin/python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""test_picks.py PROGRAM PICTURES: picks services from Tovarin's catalog as a user does at the first
start, by mouse, by keys and by a screen reader, and looks at where they arrive. Leaves pictures of
both steps in the folder PICTURES.
"""
import datetime
import json
import os
import sys
import unittest

from main_window import (LOCALES, MainWindow, configuration, configure, data_file,
                         install_records, picture, record, settled)
from reminders import TITLES as REMINDER_TITLES
from reminders import Notifier, at
from session import wait_for
from sheets import (CONFIRM, OPEN, PICK, QUICK_PICK_BUTTON, SETTINGS, SETTINGS_BUTTON, Sheet,
                    SheetTest, session)

PICTURES = None

REGION = {"en": "Region", "zh": "地区"}
CHINA = {"en": "China", "zh": "国内常用"}
GLOBAL = {"en": "Global", "zh": "国际常用"}
SKIP = {"en": "Skip", "zh": "跳过"}
CONTINUE = {"en": "Continue", "zh": "下一步"}
BACK = {"en": "Back", "zh": "返回"}
ADD_THREE = {"en": "Add 3", "zh": "添加 3 项"}
OTHER = {"en": "Other", "zh": "其他"}
OTHER_TIER = {"en": "Other · custom", "zh": "其他 · 自定"}
ENTER_AMOUNT = {"en": "Enter amount", "zh": "请填金额"}
MONTHLY = {"en": "Monthly", "zh": "每月"}
DAYS = {"en": "Remind me how many days ahead", "zh": "提前几天提醒我"}
SAME_DAY = {"en": "Same day", "zh": "当天"}
CLOSE = {"en": "Close", "zh": "关闭"}

# In the order of the lists.
SERVICES = {
    "china": {
        "en": ["iQIYI VIP", "Tencent Video VIP", "Youku VIP", "Bilibili Premium", "Mango TV",
               "NetEase Music VIP", "QQ Music VIP", "WeRead VIP", "Zhihu Yanxuan",
               "Baidu Netdisk SVIP", "Aliyun Drive", "iCloud+", "Apple Music", "Apple TV+",
               "ChatGPT"],
        "zh": ["爱奇艺 VIP", "腾讯视频 VIP", "优酷 VIP", "哔哩哔哩大会员", "芒果 TV 会员",
               "网易云音乐黑胶", "QQ 音乐豪华绿钻", "微信读书 VIP", "知乎盐选会员",
               "百度网盘 SVIP", "阿里云盘超级会员", "iCloud+", "Apple Music", "Apple TV+",
               "ChatGPT"],
    },
    "global": {
        "en": ["Netflix", "Spotify Premium"],
        "zh": ["Netflix", "Spotify Premium"],
    },
}
PICK_LABELS = {
    "en": ["[ QUICK ADD ]", "Check what you use — skip typing each one"],
    "zh": ["[ 快速添加常见服务 ]", "勾选你在用的，不必一个个手填"],
}
CONFIRM_LABELS = {
    "en": ["[ REVIEW ]", "Edit amounts; fill in price for「Other」"],
    "zh": ["[ 确认并调整 ]", "可改金额；选「其他」需自行填写"],
}
# 21 yuan, and 12.50 and 17.99 dollars of 7.20 each; all of it is charged first today.
HEAD = {
    "en": ["[ MONTHLY SPEND ]", "$33.41", "LOCAL DATA · CNY", "Yearly", "$400.88", "Active", "3",
           "Due in 7d", "3"],
    "zh": ["[ 每月订阅支出 ]", "¥240.53", "本地数据 · CNY", "每年支出", "¥2886.34", "进行中", "3",
           "近 7 天待扣", "3"],
}
UPCOMING = {
    "en": [["iCloud+ · 200GB", "Charged today", "¥21"],
           ["ChatGPT · Other", "Charged today", "$12.50"], ["Netflix", "Charged today", "$17.99"]],
    "zh": [["iCloud+ · 200GB", "今天扣费", "¥21"], ["ChatGPT · 其他", "今天扣费", "$12.50"],
           ["Netflix", "今天扣费", "$17.99"]],
}
ROWS = {
    "en": [["Netflix", "Video · Monthly · Charged today", "-$17.99", "≈$17.99/mo"],
           ["ChatGPT · Other", "AI & Tools · Monthly · Charged today", "-$12.50", "≈$12.50/mo"],
           ["iCloud+ · 200GB", "Cloud · Monthly · Charged today", "-¥21", "≈$2.92/mo"]],
    "zh": [["Netflix", "影音 · 每月 · 今天扣费", "-$17.99", "≈¥129.53/月"],
           ["ChatGPT · 其他", "AI/工具 · 每月 · 今天扣费", "-$12.50", "≈¥90/月"],
           ["iCloud+ · 200GB", "云存储 · 每月 · 今天扣费", "-¥21", "≈¥21/月"]],
}
PANEL_ROWS = {
    "en": [["iCloud+ · 200GB", "Today", "-¥21"], ["ChatGPT · Other", "Today", "-$12.50"],
           ["Netflix", "Today", "-$17.99"]],
    "zh": [["iCloud+ · 200GB", "今天", "-¥21"], ["ChatGPT · 其他", "今天", "-$12.50"],
           ["Netflix", "今天", "-$17.99"]],
}
REMINDERS = {
    "en": ["iCloud+ · 200GB will be charged ¥21 today. "
           "Cancel ahead of time if you no longer need it.",
           "ChatGPT · Other will be charged $12.50 today. "
           "Cancel ahead of time if you no longer need it.",
           "Netflix will be charged $17.99 today. "
           "Cancel ahead of time if you no longer need it."],
    "zh": ["「iCloud+ · 200GB」将在今天扣费 ¥21，需要的话记得提前取消。",
           "「ChatGPT · 其他」将在今天扣费 $12.50，需要的话记得提前取消。",
           "「Netflix」将在今天扣费 $17.99，需要的话记得提前取消。"],
}
ENTRY = """  {{
    "amount" : {},
    "billingType" : "recurring",
    "category" : "{}",
    "currency" : "{}",
    "cycle" : "monthly",
    "id" : "{}",
    "isActive" : true,
    "name" : "{}",
    "notes" : "{}",
    "serviceID" : "{}",
    "startDate" : "{}"
  }}"""
NOTES = {"en": "Quick pick", "zh": "快速添加"}
ENTRIES = [("21", "云存储", "CNY", "iCloud+ · 200GB", "icloud-cn"),
           ("12.5", r"AI\/工具", "USD", "ChatGPT · {}", "chatgpt-cn"),
           ("17.99", "影音", "USD", "Netflix", "netflix")]


class PickTest(SheetTest):
    def start_with_offer(self, desktop, language):
        """The quick pick opens by itself."""
        app, window = self.start(desktop, language)
        return app, window, Sheet(app, PICK[language])

    def is_done(self, desktop):
        try:
            with open(configuration(desktop), encoding="utf-8") as file:
                return "didCompleteQuickPick=true" in file.read().splitlines()
        except FileNotFoundError:
            return False

    def reach(self, sheet, name, language):
        return sheet.reach("check box", name, sheet.find("panel", REGION[language]),
                           sheet.find("push button", SKIP[language]))

    def choose_tier(self, sheet, service, tier):
        sheet.find("combo box", service).click()
        line = sheet.app.find("list item", tier)
        sheet.s.click(*line.center())
        wait_for(f"the tier {tier}",
                 lambda: sheet.find("combo box", service).description == tier)

    def tick(self, sheet, service):
        cell = sheet.find("check box", service, hidden=True)
        self.assertFalse(cell.has("checked"))
        cell.do("Toggle")
        wait_for(f"the tick of {service}", lambda: cell.has("checked"))

    def tell_tier(self, sheet, service, tier):
        picker = sheet.find("combo box", service, hidden=True)
        picker.do("Press")
        sheet.app.find("list item", tier).do("Press")
        wait_for(f"the tier {tier}", lambda: picker.description == tier)

    def amount(self, sheet, name):
        return sheet.find("list item", name).find("text", name)

    def expect_arrived(self, desktop, app, window, language):
        """All three are wherever a subscription is."""
        self.assertTrue(self.is_done(desktop))
        wait_for("the entries in the list", lambda: window.head()[:9] == HEAD[language])
        self.assertEqual(window.upcoming(), UPCOMING[language])
        self.assertEqual(window.rows(), ROWS[language])
        self.expect_file(desktop, language)
        panel = self.open_panel(desktop, app)
        self.assertEqual(panel.rows(), PANEL_ROWS[language])
        self.assertEqual(panel.texts()[1:4], {
            "en": ["Monthly spend", "$33.41", "≈$400.88/yr · 3 active"],
            "zh": ["每月订阅支出", "¥240.53", "每年约 ¥2886.34 · 进行中 3 个"]}[language])
        desktop.key("Escape")
        panel.wait_closed()

    def expect_file(self, desktop, language):
        """The file is as expected, but for the moment and the ids."""
        with open(data_file(desktop), encoding="utf-8", newline="") as file:
            written = file.read()
        stored = json.loads(written)
        ids = [entry["id"] for entry in stored]
        self.assertEqual(len(set(ids)), 3)
        for identifier in ids:
            self.assertRegex(identifier, "^[0-9A-F]{8}(-[0-9A-F]{4}){3}-[0-9A-F]{12}$")
        moment, = {entry["startDate"] for entry in stored}
        self.assertRegex(moment, "^2025-06-10T01:[0-9]{2}:[0-9]{2}Z$")
        passed = desktop.clock.now() - datetime.datetime.fromisoformat(moment[:-1] + "+00:00") \
            .timestamp()
        self.assertTrue(0 <= passed < 120, passed)
        self.assertEqual(written, "[\n" + ",\n".join(
            ENTRY.format(amount, category, currency, identifier, name.format(OTHER[language]),
                         NOTES[language], service, moment)
            for identifier, (amount, category, currency, name, service)
            in zip(ids, ENTRIES)) + "\n]")
        return ids

    def expect_reminders(self, desktop, app, language):
        """None three days ahead, which are past; one each on the day itself, once that is chosen."""
        ids = self.expect_file(desktop, language)
        self.assertEqual(Notifier(desktop).pending(), [])
        app.find("push button", SETTINGS_BUTTON[language]).click()
        sheet = Sheet(app, SETTINGS[language])
        sheet.choose(DAYS[language], SAME_DAY[language])
        notifier = Notifier(desktop).wait()
        expected = [at("2025-06-10", "renew-" + identifier, text, title=REMINDER_TITLES[language])
                    for identifier, text in zip(ids, REMINDERS[language])]
        wait_for("the reminders", lambda: len(notifier.pending()) == 3)
        self.assertEqual(notifier.pending(), expected)
        sheet.find("push button", CLOSE[language]).click()
        sheet.wait_closed()

    def expect_no_offer(self, desktop, language):
        """No sheet opens by itself, neither at a start nor when the window is shown again."""
        app, window = self.start(desktop, language)
        window.frame.find("push button", SETTINGS_BUTTON[language])
        self.wait_past_offer(app)
        desktop.key("ctrl+h")
        wait_for("no window in sight", lambda: not app.windows())
        panel = self.open_panel(desktop, app)
        panel.button(OPEN[language]).click()
        panel.wait_closed()
        MainWindow(app, language)
        self.wait_past_offer(app)
        self.end(desktop, app)

    def wait_past_offer(self, app):
        """The offer comes after 0.4 s; a sheet that is open by a later second is found."""
        since = app.s.clock.now()

        def later():
            self.assertEqual(app.find_all("dialog"), [])
            return app.s.clock.now() - since > 1.5
        wait_for("the offer's time to pass", later)


class FirstStart(PickTest):
    def test_picked_by_mouse(self):
        for language in LOCALES:
            with self.subTest(language), session(language, None) as desktop:
                app, window, sheet = self.start_with_offer(desktop, language)
                self.assertFalse(os.path.exists(data_file(desktop)))
                self.assertFalse(self.is_done(desktop))
                self.assertEqual(sheet.labels(), PICK_LABELS[language])
                self.assertEqual(sheet.chosen(REGION[language]), [CHINA[language]])

                cell = self.reach(sheet, "iCloud+", language)
                self.assertEqual(cell.description, {"en": "From ¥6/mo", "zh": "¥6 起/月"}[language])
                cell.click()
                wait_for("the first tier", lambda: sheet.find("combo box", "iCloud+").description
                         == "50GB · ¥6")
                self.choose_tier(sheet, "iCloud+", "200GB · ¥21")
                self.assertEqual(cell.description, {"en": "¥21/mo", "zh": "¥21/月"}[language])
                cell = self.reach(sheet, "ChatGPT", language)
                cell.click()
                cell = self.reach(sheet, "ChatGPT", language)
                self.choose_tier(sheet, "ChatGPT", OTHER_TIER[language])
                self.assertEqual(cell.description,
                                 {"en": "Custom price", "zh": "金额自定"}[language])
                sheet.choose(REGION[language], GLOBAL[language])
                cell = self.reach(sheet, "Netflix", language)
                self.assertEqual(cell.description, {"en": "$15.49/mo", "zh": "$15.49/月"}[language])
                cell.click()
                sheet.find("push button", CONTINUE[language]).click()

                sheet = Sheet(app, CONFIRM[language])
                self.assertEqual(sheet.labels(), CONFIRM_LABELS[language] + [
                    "iCloud+ · 200GB", MONTHLY[language],
                    "ChatGPT · " + OTHER[language], ENTER_AMOUNT[language], MONTHLY[language],
                    "Netflix", MONTHLY[language]])
                self.amount(sheet, "ChatGPT · " + OTHER[language]).fill("12.5")
                sheet.dialog.gone("label", ENTER_AMOUNT[language])
                self.amount(sheet, "Netflix").fill("17.99")
                self.assertFalse(os.path.exists(data_file(desktop)))
                self.assertFalse(self.is_done(desktop))
                sheet.find("push button", ADD_THREE[language]).click()
                sheet.wait_closed()

                self.expect_arrived(desktop, app, window, language)
                self.expect_reminders(desktop, app, language)
                self.end(desktop, app)
                self.expect_no_offer(desktop, language)

    def test_picked_by_keys(self):
        for language in LOCALES:
            with self.subTest(language), session(language, None) as desktop:
                app, window, sheet = self.start_with_offer(desktop, language)
                china, world = SERVICES["china"][language], SERVICES["global"][language]
                # Two columns.
                self.walk(desktop, app, "check box", ("Tab", china[0]),
                          *[("Down", name) for name in china[2:12:2]], ("Right", "iCloud+"))
                desktop.key("space")
                cell = self.wait_focus(app, "check box", "iCloud+")
                wait_for("the tick", lambda: cell.has("checked"))
                self.walk(desktop, app, "combo box", ("Tab", "iCloud+"))
                desktop.key("Down")
                wait_for("the tier", lambda: cell.description
                         == {"en": "¥21/mo", "zh": "¥21/月"}[language])
                self.walk(desktop, app, "check box", ("shift+Tab", "iCloud+"),
                          ("Down", "Apple TV+"), ("Right", "ChatGPT"))
                desktop.key("space")
                self.walk(desktop, app, "combo box", ("Tab", "ChatGPT"))
                desktop.key("Return")
                app.find("list item", OTHER_TIER[language])
                desktop.key("End", "Return")
                app.gone("list item", OTHER_TIER[language])
                self.wait_focus(app, "combo box", "ChatGPT")
                self.walk(desktop, app, "check box", ("shift+Tab", "ChatGPT"))
                self.walk(desktop, app, "radio button", ("shift+Tab", CHINA[language]),
                          ("Right", GLOBAL[language]))
                self.walk(desktop, app, "check box", ("Tab", world[0]), ("Right", world[1]),
                          ("Left", "Netflix"))
                desktop.key("space")
                self.walk(desktop, app, "push button", ("Tab", SKIP[language]),
                          ("Tab", CONTINUE[language]))
                desktop.key("Return")

                # The keyboard is at the amount that is missing.
                sheet = Sheet(app, CONFIRM[language])
                self.wait_focus(app, "text", "ChatGPT · " + OTHER[language])
                desktop.type("12.5")
                sheet.dialog.gone("label", ENTER_AMOUNT[language])
                self.walk(desktop, app, "text", ("Tab", "Netflix"))
                desktop.key("ctrl+a")
                desktop.type("17.99")
                self.walk(desktop, app, "push button", ("Tab", SKIP[language]),
                          ("Tab", ADD_THREE[language]))
                desktop.key("space")
                sheet.wait_closed()
                self.expect_arrived(desktop, app, window, language)
                self.end(desktop, app)

    def test_picked_by_a_screen_reader(self):
        """Every action is one of the accessibility interface; the mouse and the keys rest."""
        for language in LOCALES:
            with self.subTest(language), session(language, None) as desktop:
                app, window, sheet = self.start_with_offer(desktop, language)
                self.tick(sheet, "iCloud+")
                self.tell_tier(sheet, "iCloud+", "200GB · ¥21")
                self.tick(sheet, "ChatGPT")
                self.tell_tier(sheet, "ChatGPT", OTHER_TIER[language])
                sheet.find("radio button", GLOBAL[language]).do("Press")
                self.tick(sheet, "Netflix")
                sheet.find("push button", CONTINUE[language]).do("Press")
                sheet = Sheet(app, CONFIRM[language])
                self.amount(sheet, "ChatGPT · " + OTHER[language]).set_text("12.5")
                sheet.dialog.gone("label", ENTER_AMOUNT[language])
                self.amount(sheet, "Netflix").set_text("17.99")
                sheet.find("push button", ADD_THREE[language]).do("Press")
                sheet.wait_closed()
                self.expect_arrived(desktop, app, window, language)
                self.end(desktop, app)


class Offer(PickTest):
    """When the quick pick opens by itself."""

    def test_comes_again_until_it_was_skipped(self):
        for language in LOCALES:
            with self.subTest(language), session(language, None) as desktop:
                for _ in range(2):
                    app, _, sheet = self.start_with_offer(desktop, language)
                    desktop.key("Escape")
                    sheet.wait_closed()
                    self.assertFalse(self.is_done(desktop))
                    self.end(desktop, app)
                app, window, sheet = self.start_with_offer(desktop, language)
                desktop.key("Escape")
                sheet.wait_closed()
                # Closed and shown again, the window offers it anew.
                desktop.close_window()
                wait_for("no window in sight", lambda: not app.windows())
                panel = self.open_panel(desktop, app)
                panel.button(OPEN[language]).click()
                panel.wait_closed()
                sheet = Sheet(app, PICK[language])
                self.reach(sheet, SERVICES["china"][language][3], language).click()
                sheet.find("push button", SKIP[language]).click()
                sheet.wait_closed()
                self.assertTrue(self.is_done(desktop))
                self.assertEqual(window.count(), 0)
                self.assertFalse(os.path.exists(data_file(desktop)))
                self.end(desktop, app)
                self.expect_no_offer(desktop, language)

    def test_is_over_when_nothing_that_was_picked_could_be_added(self):
        for language in LOCALES:
            with self.subTest(language), session(language, None) as desktop:
                app, _, sheet = self.start_with_offer(desktop, language)
                cell = self.reach(sheet, "ChatGPT", language)
                cell.click()
                self.reach(sheet, "ChatGPT", language)
                self.choose_tier(sheet, "ChatGPT", OTHER_TIER[language])
                sheet.find("push button", CONTINUE[language]).click()
                sheet = Sheet(app, CONFIRM[language])
                sheet.find("push button", {"en": "Add 1", "zh": "添加 1 项"}[language]).click()
                sheet.wait_closed()
                self.assertTrue(self.is_done(desktop))
                self.assertFalse(os.path.exists(data_file(desktop)))
                self.end(desktop, app)


class Stored(PickTest):
    def test_a_stored_service_cannot_be_picked_again(self):
        for language in LOCALES:
            with self.subTest(language), \
                    session(language, settled(lambda s: install_records(
                        s, [record(1, "my NETFLIX plan", "2025-01-12", 9)]))) as desktop:
                app, window = self.start(desktop, language)
                window.frame.find("push button", QUICK_PICK_BUTTON[language]).click()
                sheet = Sheet(app, PICK[language])
                sheet.choose(REGION[language], GLOBAL[language])
                cell = self.reach(sheet, "Netflix", language)
                self.assertEqual(cell.description, {
                    "en": "$15.49/mo, already added", "zh": "$15.49/月，已添加"}[language])
                cell.click()
                cell.do("Toggle")
                cell.do("Press")
                self.walk(desktop, app, "check box", ("Tab", SERVICES["global"][language][1]))
                self.assertFalse(cell.has("checked"))
                picture(desktop, os.path.join(PICTURES, f"pick-stored-{language}.png"))
                self.walk(desktop, app, "push button", ("Tab", SKIP[language]))
                desktop.key("Escape")
                sheet.wait_closed()
                self.end(desktop, app)


class Looks(PickTest):
    """Leaves pictures, and reaches everything with Tab."""

    def test_both_steps(self):
        for language in LOCALES:
            for name, frame in (("", "100 100 960 720 normal"),
                                ("-small", "100 100 640 420 normal")):
                with self.subTest(name, language=language), session(language, lambda s: configure(
                        s, didCompleteQuickPick="false", TovarinMainWindow__frame=frame)) \
                        as desktop:
                    app, _, sheet = self.start_with_offer(desktop, language)
                    path = os.path.join(PICTURES, f"pick{name}-{{}}-{language}.png").format
                    picture(desktop, path("china"))
                    self.expect_usable(sheet)
                    # The last of them cannot be pressed yet.
                    self.expect_stops_in_sight(desktop, app, sheet, 3)
                    for service in (SERVICES["china"][language][3], "iCloud+", "ChatGPT"):
                        self.reach(sheet, service, language).click()
                    self.reach(sheet, "ChatGPT", language)
                    self.choose_tier(sheet, "ChatGPT", OTHER_TIER[language])
                    picture(desktop, path("china-ticked"))
                    sheet.choose(REGION[language], GLOBAL[language])
                    picture(desktop, path("global"))
                    self.reach(sheet, "Netflix", language).click()
                    self.reach(sheet, "Claude", language).click()
                    picture(desktop, path("global-ticked"))
                    self.expect_usable(sheet)
                    # The picker of the ticked cell, too.
                    self.expect_stops_in_sight(desktop, app, sheet, 5)
                    sheet.find("push button", CONTINUE[language]).click()
                    sheet = Sheet(app, CONFIRM[language])
                    picture(desktop, path("review"))
                    self.expect_usable(sheet)
                    self.expect_stops_in_sight(desktop, app, sheet, 8)
                    # What was ticked is kept.
                    sheet.find("push button", BACK[language]).click()
                    sheet = Sheet(app, PICK[language])
                    self.assertEqual(sheet.chosen(REGION[language]), [GLOBAL[language]])
                    self.assertTrue(self.reach(sheet, "Claude", language).has("checked"))
                    self.end(desktop, app)
                    self.assertFalse(self.is_done(desktop))

    def test_quits_in_the_second_step(self):
        with session("en", None) as desktop:
            app, _, sheet = self.start_with_offer(desktop, "en")
            sheet.find("check box", "iQIYI VIP").click()
            sheet.find("push button", "Continue").click()
            Sheet(app, CONFIRM["en"])
            self.end(desktop, app)
            self.assertFalse(self.is_done(desktop))

    def test_twice_as_large(self):
        with session("en", None, size=(2000, 1400)) as desktop:
            app = desktop.start([self.program], QT_SCALE_FACTOR="2")
            sheet = Sheet(app, PICK["en"])
            for service in ("iQIYI VIP", "Bilibili Premium", "iCloud+"):
                self.tick(sheet, service)
            picture(desktop, os.path.join(PICTURES, "pick-2x.png"))
            sheet.find("push button", "Continue").do("Press")
            Sheet(app, CONFIRM["en"])
            picture(desktop, os.path.join(PICTURES, "pick-review-2x.png"))
            self.end(desktop, app)


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    SheetTest.program, PICTURES = map(os.path.abspath, sys.argv[1:3])
    os.makedirs(PICTURES, exist_ok=True)
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]], verbosity=2)
