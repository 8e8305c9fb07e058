#!/usr/bin/python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""test_jobs_by_keyboard.py PROGRAM PICTURES: what other tests do by the mouse is done here by the
keyboard alone. Adding, the quick pick and the panel are used by keys in tests of their own.
"""
import os
import time

from entries import NETFLIX, OTHER
from jobs import COPIED, Jobs, only_keys
from main_window import LOCALES, TITLES
from reminders import TEST
from program_test import main
from session import wait_for
from sheets import Sheet
from words import (ACTIVE, ADD, AMOUNT, CANCEL, CATEGORY, CHOOSE, CLOSE, COPY, CURRENCY, DAYS,
                   DAY_NAMES, DELETE, DELETE_THIS, DETAILS, EDIT, LANGUAGE, MENU_CUT, MENU_HIDE,
                   MENU_QUIT, NOTES, ONE_TIME, OWN_NAMES, PAUSE, PURCHASE, QUICK_PICK,
                   QUICK_PICK_BUTTON, RECURRING, RESUME, REVIEW, SAVE, SCAN, SEND_TEST, SENT,
                   SETTINGS, SYSTEM, add)


class ByKeyboard(Jobs):
    def tab(self, desktop, app, *stops, key="Tab"):
        """Presses the key as often, and comes to each of these."""
        for role, words in stops:
            desktop.key(key)
            self.expect_focus(app, role, words)

    def test_the_menus(self):
        for language in LOCALES:
            with self.subTest(language), self.desktop(language) as desktop, only_keys():
                app, _ = self.start(desktop, language)
                desktop.key("F10")
                app.find("menu item", MENU_HIDE[language])
                desktop.key("Right")
                app.find("menu item", MENU_CUT[language])
                desktop.key("Escape")
                wait_for("no menu", lambda: not app.find_all("menu item"))
                desktop.key("F10")
                app.find("menu item", MENU_QUIT[language])
                since = time.monotonic()
                desktop.key("Down", "Return")
                self.expect_end(app, since)

    def test_an_entry_from_pausing_to_deleting(self):
        for language in LOCALES:
            with self.subTest(language), self.desktop(language) as desktop, only_keys():
                app, _ = self.start(desktop, language)
                button = lambda *words: [("push button", word[language]) for word in words]
                self.tab(desktop, app, *button(SETTINGS, ADD, QUICK_PICK_BUTTON, SCAN),
                         ("list item", "Netflix"))
                desktop.key("Down", "Up")
                self.expect_focus(app, "list item", "Netflix")

                desktop.key("Return")
                app.find("dialog", DETAILS[language])
                self.expect_focus(app, "push button", CLOSE[language])
                self.tab(desktop, app, *button(EDIT, PAUSE))
                desktop.key("Return")
                self.expect_focus(app, "push button", RESUME[language])
                self.expect_stored(desktop, OTHER, {**NETFLIX, "isActive": False})
                desktop.key("space")
                self.expect_focus(app, "push button", PAUSE[language])
                self.expect_stored(desktop, OTHER, NETFLIX)
                self.tab(desktop, app, *button(COPY))
                desktop.key("Return")
                wait_for(lambda: f"{COPIED[language]!r}; had {desktop.clipboard()!r}",
                         lambda: desktop.clipboard() == COPIED[language])

                self.tab(desktop, app, *button(PAUSE, EDIT), key="shift+Tab")
                desktop.key("Return")
                self.editor(app, language, "edit")
                self.tab(desktop, app, ("text", AMOUNT[language]))
                desktop.key("ctrl+a")
                desktop.type("30")
                self.tab(desktop, app, ("combo box", CURRENCY[language]),
                         ("combo box", CATEGORY[language]), ("radio button", RECURRING[language]))
                desktop.key("Right")
                self.expect_focus(app, "radio button", ONE_TIME[language])
                self.tab(desktop, app, ("push button", PURCHASE[language]),
                         ("check box", ACTIVE[language]), ("text", NOTES[language]),
                         *button(DELETE, CANCEL, SAVE))
                desktop.key("Return")
                self.wait_closed(app)
                bought = {**NETFLIX, "amount": 30, "billingType": "oneTime"}
                self.expect_stored(desktop, OTHER, bought)

                # The keyboard is with the entry, which is last now.
                self.expect_focus(app, "list item", "Netflix")
                desktop.key("Up")
                self.expect_focus(app, "list item", "Other")
                desktop.key("Down", "Return")
                self.expect_focus(app, "push button", CLOSE[language])
                self.tab(desktop, app, *button(EDIT, PAUSE, COPY, DELETE_THIS))
                desktop.key("Return")
                self.wait_closed(app)
                self.expect_stored(desktop, OTHER)
                self.expect_focus(app, "list item", "Other")
                self.end(desktop, app, language)

    def test_bills_from_the_button_to_the_list(self):
        for language in LOCALES:
            with self.subTest(language), self.desktop(language) as desktop, only_keys():
                bills = [os.path.basename(path) for path in self.bills(desktop)]
                app, window = self.start(desktop, language)
                desktop.key("Tab", "Tab", "Tab", "Tab")
                self.expect_focus(app, "push button", SCAN[language])
                desktop.key("Return")
                app.find("dialog", CHOOSE[language], timeout=10)
                desktop.key("Escape")
                app.gone("dialog", CHOOSE[language])
                self.expect_focus(app, "push button", SCAN[language])
                desktop.key("space")
                dialog = app.find("dialog", CHOOSE[language], timeout=10)
                field = dialog.find("text", where=lambda element: element.has("focused"))
                # From the field to the list beside it, and from its first file to its last.
                desktop.key("shift+Tab")
                self.expect_focus(app, "tree item", bills[0])
                desktop.key("Home", "shift+End")
                wait_for(lambda: f"both bills in {field!r}",
                         lambda: field.text == " ".join(f'"{name}"' for name in bills))
                desktop.key("Return")
                sheet = Sheet(app, REVIEW[language])
                self.expect_focus(app, "check box", "收款凭证")
                # Around to the last button.
                self.tab(desktop, app, ("push button", add(language, 2)), key="shift+Tab")
                desktop.key("Return")
                sheet.wait_closed()
                self.expect_bills(desktop, language, OTHER, NETFLIX)
                wait_for("the bills in the list", lambda: window.count() == 4)
                self.end(desktop, app, language)

    def test_the_settings_and_the_way_out(self):
        for language, other in (("en", "zh"), ("zh", "en")):
            with self.subTest(language), self.desktop(language) as desktop, only_keys():
                app, _ = self.start(desktop, language)
                self.tab(desktop, app, ("push button", SETTINGS[language]))
                desktop.key("Return")
                sheet = Sheet(app, SETTINGS[language])
                self.expect_focus(app, "push button", QUICK_PICK[language])
                self.tab(desktop, app, ("radio button", SYSTEM[language]))
                for _ in range({"en": 2, "zh": 1}[language]):
                    desktop.key("Right")
                sheet = Sheet(app, SETTINGS[other])
                self.expect_focus(app, "radio button", OWN_NAMES[other])
                self.assertEqual(sheet.chosen(LANGUAGE[other]), [OWN_NAMES[other]])
                self.tab(desktop, app, ("radio button", DAY_NAMES[other][3]))
                desktop.key("Left")
                self.expect_focus(app, "radio button", DAY_NAMES[other][2])
                self.assertEqual(sheet.chosen(DAYS[other]), [DAY_NAMES[other][2]])
                self.tab(desktop, app, ("push button", SEND_TEST[other]))
                desktop.key("Return")
                sheet.find("push button", SENT[other])
                arrived, = desktop.notifications.wait(timeout=10)
                self.assertEqual((arrived["summary"], arrived["body"]), TEST[other])
                self.tab(desktop, app, ("push button", CLOSE[other]))
                desktop.key("Return")
                sheet.wait_closed()
                self.expect_focus(app, "push button", SETTINGS[other])

                # Hidden and closed, it comes back where it was at the next start.
                for hide in (lambda: desktop.key("ctrl+h"), desktop.close_window):
                    hide()
                    wait_for("no window in sight", lambda: not app.windows())
                    again = desktop.start([self.program])
                    self.assertEqual(again.wait(), 0)
                    app.wait_window(TITLES[language])
                    self.expect_focus(app, "push button", SETTINGS[other])
                self.end(desktop, app, language)


if __name__ == "__main__":
    main(__doc__)
