#!/usr/bin/python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""test_settings.py PROGRAM PICTURES: changes Tovarin's settings as a user does and looks at what
follows them. Leaves pictures of them in the folder PICTURES.
"""
import time

from main_window import (LOCALES, TITLES, MainWindow, configuration, configure, install_records,
                         record, settled)
from program_test import main
from reminders import MOST_SECONDS_LATE, TEST, Notifier
from session import wait_for
from sheets import Sheet, SheetTest, session
from words import (CLOSE, DAYS, DAY_NAMES, EDIT, LANGUAGE, OWN_NAMES, PICK, QUICK_PICK, SEND_TEST,
                   SENT, SETTINGS, SYSTEM)

SUBTITLE = {"en": "China & global lists — check to add", "zh": "国内 / 国际两套清单，勾选即添加"}
CAPTION = {"en": "[ MONTHLY SPEND ]", "zh": "[ 每月订阅支出 ]"}
PANEL_CAPTION = {"en": "Monthly spend", "zh": "每月订阅支出"}

LABELS = {
    "en": ["[ SETTINGS ]", "Language", "Renewal reminders", "Remind me how many days ahead",
           "A system notification is sent at 10:00 AM to remind you of upcoming charges.",
           "If you don't see notifications, allow them in System Settings → Notifications → "
           "Tovarin."],
    "zh": ["[ 设置 ]", "语言", "续费提醒", "提前几天提醒我",
           "每次到点会在上午 10:00 发送系统通知，提醒你即将扣费的订阅。",
           "若收不到通知，请到「系统设置 → 通知 → Tovarin」中允许通知。"],
}
# Charged on the 20th and the 25th.
RECORDS = [record(1, "First", "2025-01-20", 10), record(2, "Second", "2025-01-25", 20)]
# A timer for a time that need not be exact may be 5 % early.
LEAST_SECONDS = 2.85


class SettingsTest(SheetTest):
    def open(self, app, language):
        app.find("push button", SETTINGS[language]).click()
        return Sheet(app, SETTINGS[language])

    def close(self, sheet, language):
        sheet.find("push button", CLOSE[language]).click()
        sheet.wait_closed()

    def stored(self, desktop):
        """What the file of settings says, without what the program keeps for itself."""
        with open(configuration(desktop), encoding="utf-8") as file:
            lines = dict(line.rstrip("\n").split("=", 1) for line in file if "=" in line)
        return {key: value for key, value in lines.items() if key in ("appLanguage",
                                                                      "remindDaysBefore")}


class Languages(SettingsTest):
    def test_change_at_once_and_stay(self):
        for first, second in (("en", "zh"), ("zh", "en")):
            with self.subTest(first), session(first) as desktop:
                app, _ = self.start(desktop, first)
                sheet = self.open(app, first)
                self.assertEqual(sheet.labels(), LABELS[first])
                self.assertEqual(sheet.chosen(LANGUAGE[first]), [SYSTEM[first]])
                self.assertEqual(
                    [button.name for button in sheet.find("panel", LANGUAGE[first]).children],
                    [SYSTEM[first], "English", "中文"])
                sheet.find("radio button", OWN_NAMES[second]).click()
                sheet = Sheet(app, SETTINGS[second])
                self.assertEqual(sheet.labels(), LABELS[second])
                self.assertEqual(sheet.chosen(LANGUAGE[second]), [OWN_NAMES[second]])
                self.assertEqual(self.stored(desktop), {"appLanguage": second})
                # The window's content follows; its title and its menu wait for the next start.
                self.assertEqual(app.find("list", where=lambda e: e.name != SETTINGS[second])
                                 .children[0].name, CAPTION[second])
                self.expect_titles(app, first)
                self.close(sheet, second)
                panel = self.open_panel(desktop, app)
                self.assertEqual(panel.texts()[1], PANEL_CAPTION[second])
                desktop.key("Escape")
                panel.wait_closed()
                self.end(desktop, app)

                app, window = self.start(desktop, second)
                self.assertEqual(window.head()[0], CAPTION[second])
                self.expect_titles(app, second)
                sheet = self.open(app, second)
                self.assertEqual(sheet.chosen(LANGUAGE[second]), [OWN_NAMES[second]])
                sheet.find("radio button", SYSTEM[second]).click()
                sheet = Sheet(app, SETTINGS[first])
                self.assertEqual(sheet.labels(), LABELS[first])
                self.assertEqual(self.stored(desktop), {"appLanguage": "system"})
                self.end(desktop, app)

    def expect_titles(self, app, language):
        self.assertEqual([child.name for child in app.children], [TITLES[language]])
        self.assertEqual([menu.name for menu in app.find_all("menu bar") if menu.name],
                         ["Tovarin", EDIT[language]])


class Days(SettingsTest):
    def reminders(self, notifier):
        return [(request["calendar"]["month"], request["calendar"]["day"])
                for request in notifier.pending()]

    def test_change_the_reminders_at_once_and_stay(self):
        for language in LOCALES:
            with self.subTest(language), \
                    session(language, settled(lambda s: install_records(s, RECORDS))) as desktop:
                app, _ = self.start(desktop, language)
                notifier = Notifier(desktop).wait()
                sheet = self.open(app, language)
                names = DAY_NAMES[language]
                self.assertEqual(
                    [button.name for button in sheet.find("panel", DAYS[language]).children],
                    names)
                self.assertEqual(sheet.chosen(DAYS[language]), [names[3]])
                wait_for("the reminders of 3 days",
                         lambda: self.reminders(notifier) == [(6, 17), (6, 22)])
                for name, days in ((names[5], [(6, 13), (6, 18)]), (names[0], [(6, 20), (6, 25)]),
                                   (names[4], [(6, 15), (6, 20)])):
                    sheet.choose(DAYS[language], name)
                    wait_for(f"the reminders of {name}", lambda: self.reminders(notifier) == days)
                self.assertEqual(self.stored(desktop), {"remindDaysBefore": "5"})
                # By keys, too.
                desktop.key("Left")
                wait_for("3 days", lambda: sheet.chosen(DAYS[language]) == [names[3]])
                wait_for("the reminders of 3 days",
                         lambda: self.reminders(notifier) == [(6, 17), (6, 22)])
                desktop.key("Right")
                wait_for("5 days", lambda: sheet.chosen(DAYS[language]) == [names[4]])
                self.end(desktop, app)

                self.assertEqual(self.stored(desktop), {"remindDaysBefore": "5"})
                app, _ = self.start(desktop, language)
                sheet = self.open(app, language)
                self.assertEqual(sheet.chosen(DAYS[language]), [names[4]])
                wait_for("the reminders of 5 days",
                         lambda: self.reminders(notifier) == [(6, 15), (6, 20)])
                self.end(desktop, app)

    def test_a_count_that_is_not_offered_stays(self):
        for language in LOCALES:
            with self.subTest(language), \
                    session(language, lambda s: (configure(s, remindDaysBefore="4"),
                                                 install_records(s, RECORDS))) as desktop:
                app, _ = self.start(desktop, language)
                notifier = Notifier(desktop).wait()
                wait_for("the reminders of 4 days",
                         lambda: self.reminders(notifier) == [(6, 16), (6, 21)])
                sheet = self.open(app, language)
                self.assertEqual(sheet.chosen(DAYS[language]), [])
                self.picture(desktop, f"settings-4-days-{language}.png")
                self.close(sheet, language)
                self.end(desktop, app)
                self.assertEqual(self.stored(desktop), {"remindDaysBefore": "4"})
                self.assertEqual(self.reminders(notifier), [(6, 16), (6, 21)])


class Tests(SettingsTest):
    def test_sends_a_test_notification(self):
        for language in LOCALES:
            with self.subTest(language), session(language) as desktop:
                app, _ = self.start(desktop, language)
                sheet = self.open(app, language)
                before = time.monotonic()
                sheet.find("push button", SEND_TEST[language]).click()
                sheet.find("push button", SENT[language])
                sheet.dialog.gone("push button", SENT[language], 3 + MOST_SECONDS_LATE)
                self.assertGreaterEqual(time.monotonic() - before, LEAST_SECONDS)
                sheet.find("push button", SEND_TEST[language])
                arrived, = desktop.notifications.wait(timeout=MOST_SECONDS_LATE)
                self.assertEqual((arrived["summary"], arrived["body"]), TEST[language])
                self.assertGreaterEqual(arrived["mono"] - before, LEAST_SECONDS)
                self.end(desktop, app)


class Ways(SettingsTest):
    def test_leads_to_the_quick_pick(self):
        for language in LOCALES:
            with self.subTest(language), session(language) as desktop:
                app, _ = self.start(desktop, language)
                sheet = self.open(app, language)
                entry = sheet.find("push button", QUICK_PICK[language])
                self.assertEqual(entry.description, SUBTITLE[language])
                entry.click()
                sheet.wait_closed()
                sheet = Sheet(app, PICK[language])
                desktop.key("Escape")
                sheet.wait_closed()
                # By a key alone: the keyboard is at the entry from the beginning.
                sheet = self.open(app, language)
                self.wait_focus(app, "push button", QUICK_PICK[language])
                desktop.key("Return")
                Sheet(app, PICK[language])
                self.end(desktop, app)

    def test_everything_by_a_screen_reader(self):
        with session("en", settled(lambda s: install_records(s, RECORDS))) as desktop:
            app, _ = self.start(desktop, "en")
            app.find("push button", "Settings").do("Press")
            sheet = Sheet(app, SETTINGS["en"])
            self.expect_usable(sheet)
            sheet.find("radio button", "7d").do("Press")
            wait_for("7 days", lambda: sheet.chosen(DAYS["en"]) == ["7d"])
            sheet.find("radio button", "中文").do("Press")
            sheet = Sheet(app, SETTINGS["zh"])
            self.expect_usable(sheet)
            self.assertEqual(self.stored(desktop), {"appLanguage": "zh", "remindDaysBefore": "7"})
            sheet.find("push button", SEND_TEST["zh"]).do("Press")
            self.assertEqual(desktop.notifications.wait(timeout=10)[0]["summary"], TEST["zh"][0])
            sheet.find("push button", CLOSE["zh"]).do("Press")
            sheet.wait_closed()
            self.end(desktop, app)


class Looks(SettingsTest):
    """Leaves pictures, and reaches everything with Tab in the smallest window."""

    def test_pictures(self):
        for language in LOCALES:
            for name, frame in (("", "100 100 960 720 normal"),
                                ("-small", "100 100 640 420 normal")):
                with self.subTest(name, language=language), \
                        session(language, lambda s: configure(
                            s, TovarinMainWindow__frame=frame)) as desktop:
                    app, _ = self.start(desktop, language)
                    sheet = self.open(app, language)
                    self.picture(desktop, f"settings{name}-{language}.png")
                    self.expect_stops_in_sight(desktop, app, sheet, 5)
                    self.picture(desktop, f"settings{name}-end-{language}.png")
                    self.end(desktop, app)

    def test_pictures_twice_as_large(self):
        with session("zh", size=(2000, 1400)) as desktop:
            app = desktop.start([self.program], QT_SCALE_FACTOR="2")
            MainWindow(app, "zh")
            app.wait_window(TITLES["zh"])
            # The places that a screen reader is told are another matter at this scale.
            app.find("push button", SETTINGS["zh"]).do("Press")
            Sheet(app, SETTINGS["zh"])
            self.picture(desktop, "settings-2x.png")
            self.end(desktop, app)


if __name__ == "__main__":
    main(__doc__)
