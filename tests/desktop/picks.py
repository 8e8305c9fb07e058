# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""What the tests of the quick pick share: what it shows, what comes of the picks, and how to pick."""
import datetime
import json

from main_window import MainWindow, configuration, data_file
from reminders import TITLES as REMINDER_TITLES
from reminders import Notifier, at
from session import wait_for
from sheets import Sheet, SheetTest
from words import CLOSE, DAYS, DAY_NAMES, OPEN, PICK, PICK_NOTES, REGION, SETTINGS, SKIP

OTHER = {"en": "Other", "zh": "其他"}

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
                         PICK_NOTES[language], service, moment)
            for identifier, (amount, category, currency, name, service)
            in zip(ids, ENTRIES)) + "\n]")
        return ids

    def expect_reminders(self, desktop, app, language):
        """None three days ahead, which are past; one each on the day itself, once that is chosen."""
        ids = self.expect_file(desktop, language)
        self.assertEqual(Notifier(desktop).pending(), [])
        app.find("push button", SETTINGS[language]).click()
        sheet = Sheet(app, SETTINGS[language])
        sheet.choose(DAYS[language], DAY_NAMES[language][0])
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
        window.frame.find("push button", SETTINGS[language])
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
