#!/usr/bin/python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""test_picks.py PROGRAM PICTURES: picks services from Tovarin's catalog as a user does at the first
start, by mouse, by keys and by a screen reader, and looks at where they arrive. Leaves pictures of
both steps in the folder PICTURES.
"""
import os

from main_window import LOCALES, configure, data_file, install_records, record, settled
from picks import CONFIRM_LABELS, OTHER, PICK_LABELS, SERVICES, PickTest
from program_test import main
from session import wait_for
from sheets import Sheet, session
from words import (BACK, CHINA, CONFIRM, CONTINUE, ENTER_AMOUNT, GLOBAL, MONTHLY, OPEN,
                   OTHER_TIER, PICK, QUICK_PICK_BUTTON, REGION, SKIP, add)


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
                sheet.find("push button", add(language, 3)).click()
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
                          ("Tab", add(language, 3)))
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
                sheet.find("push button", add(language, 3)).do("Press")
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
                self.picture(desktop, f"pick-stored-{language}.png")
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
                    path = f"pick{name}-{{}}-{language}.png".format
                    self.picture(desktop, path("china"))
                    self.expect_usable(sheet)
                    # The last of them cannot be pressed yet.
                    self.expect_stops_in_sight(desktop, app, sheet, 3)
                    for service in (SERVICES["china"][language][3], "iCloud+", "ChatGPT"):
                        self.reach(sheet, service, language).click()
                    self.reach(sheet, "ChatGPT", language)
                    self.choose_tier(sheet, "ChatGPT", OTHER_TIER[language])
                    self.picture(desktop, path("china-ticked"))
                    sheet.choose(REGION[language], GLOBAL[language])
                    self.picture(desktop, path("global"))
                    self.reach(sheet, "Netflix", language).click()
                    self.reach(sheet, "Claude", language).click()
                    self.picture(desktop, path("global-ticked"))
                    self.expect_usable(sheet)
                    # The picker of the ticked cell, too.
                    self.expect_stops_in_sight(desktop, app, sheet, 5)
                    sheet.find("push button", CONTINUE[language]).click()
                    sheet = Sheet(app, CONFIRM[language])
                    self.picture(desktop, path("review"))
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
            self.picture(desktop, "pick-2x.png")
            sheet.find("push button", "Continue").do("Press")
            Sheet(app, CONFIRM["en"])
            self.picture(desktop, "pick-review-2x.png")
            self.end(desktop, app)


if __name__ == "__main__":
    main(__doc__)
