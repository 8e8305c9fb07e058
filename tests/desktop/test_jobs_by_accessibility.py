#!/usr/bin/python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""test_jobs_by_accessibility.py PROGRAM PICTURES: what other tests do by the mouse or by keys is
done here by what the accessibility tree offers alone. Adding, the quick pick and the settings are
used so in tests of their own.
"""
from entries import NETFLIX, OTHER
from jobs import COPIED, Jobs, activate, only_accessibility
from main_window import LOCALES, TITLES, Panel
from program_test import main
from session import wait_for
from sheets import Sheet
from words import (AMOUNT, CANCEL, CHOOSE, CLOSE, CONFIRM, CONTINUE, COPY, DELETE_THIS, DETAILS,
                   EDIT, MENU_HIDE, MENU_QUIT, NOTES, ONE_TIME, OPEN, PAUSE, PICK, QUICK_PICK,
                   QUIT, RESUME, REVIEW, SAVE, SCAN, SETTINGS, add)

# The buttons of the file panel are Qt's.
OPEN_FILES = {"en": "Open", "zh": "打开(O)"}


class ByAccessibility(Jobs):
    def press(self, holder, words, language):
        holder.find("push button", words[language], hidden=True).do("Press")

    def choose_in_menu(self, app, words, language):
        app.find("menu bar", "Tovarin").do("Press")
        app.find("menu item", words[language]).do("Press")

    def expect_quit(self, app):
        self.assertEqual(app.wait(), 0)
        self.assertEqual(app.log(), "")

    def detail(self, app, window, language, name):
        self.row(window, name).do("Press")
        sheet = app.find("dialog", DETAILS[language])
        self.expect_focus(app, "push button", CLOSE[language])
        return sheet

    def test_an_entry_from_pausing_to_deleting(self):
        for language in LOCALES:
            with self.subTest(language), self.desktop(language) as desktop, only_accessibility():
                app, window = self.start(desktop, language)
                sheet = self.detail(app, window, language, "Netflix")
                self.press(sheet, PAUSE, language)
                sheet.find("push button", RESUME[language])
                self.expect_stored(desktop, OTHER, {**NETFLIX, "isActive": False})
                self.press(sheet, RESUME, language)
                sheet.find("push button", PAUSE[language])
                self.expect_stored(desktop, OTHER, NETFLIX)
                self.press(sheet, COPY, language)
                wait_for(lambda: f"{COPIED[language]!r}; had {desktop.clipboard()!r}",
                         lambda: desktop.clipboard() == COPIED[language])
                self.press(sheet, CLOSE, language)
                self.wait_closed(app)

                self.press(self.detail(app, window, language, "Netflix"), EDIT, language)
                sheet = self.editor(app, language, "edit")
                sheet.find("text", AMOUNT[language]).set_text("30")
                sheet.find("radio button", ONE_TIME[language]).do("Press")
                sheet.find("text", NOTES[language], hidden=True).set_text("一\ntwo")
                self.press(sheet, SAVE, language)
                self.wait_closed(app)
                bought = {**NETFLIX, "amount": 30, "billingType": "oneTime", "notes": "一\ntwo"}
                self.expect_stored(desktop, OTHER, bought)
                self.press(self.detail(app, window, language, "Other"), EDIT, language)
                sheet = self.editor(app, language, "edit")
                sheet.find("text", AMOUNT[language]).set_text("1")
                self.press(sheet, CANCEL, language)
                self.wait_closed(app)
                self.press(self.detail(app, window, language, "Other"), DELETE_THIS, language)
                self.wait_closed(app)
                self.expect_stored(desktop, bought)
                self.assertEqual([row[0] for row in window.rows()], ["Netflix"])
                self.choose_in_menu(app, MENU_QUIT, language)
                self.expect_quit(app)

    def test_bills_from_the_button_to_the_list(self):
        for language in LOCALES:
            with self.subTest(language), self.desktop(language) as desktop, only_accessibility():
                bills = self.bills(desktop)
                app, window = self.start(desktop, language)
                scan = window.list.find("push button", SCAN[language])
                scan.do("Press")
                dialog = app.find("dialog", CHOOSE[language], timeout=10)
                # Meanwhile the button opens no other.
                scan.do("Press")
                self.assertEqual(app.find_all("dialog", CHOOSE[language]), [dialog])
                self.press(dialog, CANCEL, language)
                app.gone("dialog", CHOOSE[language])
                scan.do("Press")
                dialog = app.find("dialog", CHOOSE[language], timeout=10)
                named = " ".join(f'"{bill}"' for bill in bills)
                dialog.find("text", where=lambda element: element.has("focused")).set_text(named)
                self.press(dialog, OPEN_FILES, language)
                sheet = Sheet(app, REVIEW[language])
                self.press(sheet, {language: add(language, 2)}, language)
                sheet.wait_closed()
                self.expect_bills(desktop, language, OTHER, NETFLIX)
                wait_for("the bills in the list", lambda: window.count() == 4)
                self.choose_in_menu(app, MENU_QUIT, language)
                self.expect_quit(app)

    def test_the_quick_pick_from_the_settings(self):
        for language in LOCALES:
            with self.subTest(language), self.desktop(language) as desktop, only_accessibility():
                app, window = self.start(desktop, language)
                self.press(window.frame, SETTINGS, language)
                sheet = Sheet(app, SETTINGS[language])
                self.press(sheet, QUICK_PICK, language)
                sheet.wait_closed()
                sheet = Sheet(app, PICK[language])
                sheet.find("check box", "iCloud+").do("Press")
                self.press(sheet, CONTINUE, language)
                sheet.wait_closed()
                sheet = Sheet(app, CONFIRM[language])
                self.press(sheet, {language: add(language, 1)}, language)
                sheet.wait_closed()
                wait_for("the service in the list", lambda: window.count() == 3)
                self.choose_in_menu(app, MENU_QUIT, language)
                self.expect_quit(app)

    def test_the_window_and_the_panel(self):
        for language in LOCALES:
            with self.subTest(language), self.desktop(language) as desktop, only_accessibility():
                app, _ = self.start(desktop, language)
                self.choose_in_menu(app, MENU_HIDE, language)
                wait_for("no window in sight", lambda: not app.windows())
                activate(desktop.tray.wait())
                panel = Panel(app)
                panel.button(OPEN[language]).do("Press")
                panel.wait_closed()
                app.wait_window(TITLES[language])
                activate(desktop.tray.wait())
                Panel(app).button(QUIT[language]).do("Press")
                self.expect_quit(app)


if __name__ == "__main__":
    main(__doc__)
