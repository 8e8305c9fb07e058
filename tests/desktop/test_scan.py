#!/usr/bin/python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""test_scan.py PROGRAM PICTURES: has Tovarin read bills as a user does, with its real scanner, in a
desktop session of its own. Leaves pictures of what is seen on the way in the folder PICTURES.
"""
import json
import os
import shutil

from main_window import BILLS, LOCALES, TITLES, MainWindow, data_file, settled
from program_test import ProgramTest, main
from session import Session, wait_for
from words import (CANCEL, CHOOSE, CONFIRM_SCAN, EDITORS, FIRST_CHARGE, NOTHING, SAVE, SCAN,
                   SCANNED_TEXT)

ROWS = {
    "en": ["YouTube Premium", "Video · Monthly · Charges 2025/06/26", "-¥55", "≈$7.64/mo"],
    "zh": ["YouTube Premium", "影音 · 每月 · 2025/06/26 扣费", "-¥55", "≈¥55/月"],
}
# What the editor says of the same bill: its fields but for the notes, and its pickers.
FIELDS = ["YouTube Premium", "55"]
PICKERS = {"en": ["CNY", "Video", "Monthly"], "zh": ["CNY", "影音", "每月"]}


def session(language):
    """A desktop on which it is 10 June 2025, nine in the morning in Shanghai."""
    return Session(lang=LOCALES[language], tz="Asia/Shanghai", clock="2025-06-10 09:00:00",
                   tray="none", notifications="none", prepare=settled())


def bill(desktop, sample, name):
    """A copy of the sample under a name that can be typed."""
    path = os.path.join(desktop.env["HOME"], name)
    shutil.copyfile(os.path.join(BILLS, sample), path)
    return path


def stored(desktop):
    with open(data_file(desktop), encoding="utf-8") as file:
        return json.load(file)


def choose(desktop, app, path, language):
    """Types the path into the open panel."""
    panel = app.find("dialog", CHOOSE[language], timeout=10)
    field = panel.find("text", where=lambda element: element.has("focused"))
    desktop.type(path)
    wait_for("the typed path", lambda: field.text == path)
    desktop.key("Return")
    app.gone("dialog", CHOOSE[language])


class Scan(ProgramTest):
    def start(self, desktop, language):
        app = desktop.start([self.program])
        return app, MainWindow(app, language)

    def button(self, window, language):
        return window.frame.find("push button", SCAN[language], timeout=30)

    def test_a_chosen_bill_reaches_the_list(self):
        for language in LOCALES:
            with self.subTest(language), session(language) as desktop:
                app, window = self.start(desktop, language)
                path = bill(desktop, "clean/message-1x.png", "bill.png")
                self.button(window, language).click()
                app.find("dialog", CHOOSE[language], timeout=10)
                self.picture(desktop, f"choose-bills-{language}.png")
                choose(desktop, app, path, language)
                app.find("label", CONFIRM_SCAN[language], timeout=30)
                self.picture(desktop, f"confirm-scan-{language}.png")
                self.assertFalse(os.path.exists(data_file(desktop)))
                app.find("push button", SAVE[language]).click()
                wait_for("the draft in the list", lambda: window.count() == 1)
                row, = window.rows()
                self.assertEqual(row, ROWS[language])
                draft, = stored(desktop)
                self.assertTrue(draft["notes"].startswith(SCANNED_TEXT[language]), draft["notes"])
                del draft["id"], draft["notes"]
                self.assertEqual(draft, {
                    "name": "YouTube Premium", "amount": 55, "currency": "CNY",
                    "billingType": "recurring", "cycle": "monthly", "category": "影音",
                    "startDate": "2024-11-25T16:00:00Z", "isActive": True})
                self.picture(desktop, f"scanned-{language}.png")
                self.end(desktop, app, language)

    def drop(self, desktop, dropped, target, name):
        """Drops it onto the middle of the element, and leaves a picture of the moment before."""
        return desktop.drop_files([dropped], target.center(),
                                  hold=lambda: self.picture(desktop, name + ".png"))

    def expect_editor(self, app, language):
        editor = app.find("dialog", EDITORS["scan"][language], timeout=30)
        *fields, notes = [field.text for field in editor.find_all("text")]
        self.assertEqual(fields, FIELDS)
        self.assertTrue(notes.startswith(SCANNED_TEXT[language]), notes)
        self.assertEqual([picker.description for picker in editor.find_all("combo box")],
                         PICKERS[language])
        self.assertEqual(editor.find("push button", FIRST_CHARGE[language]).description,
                         "2024/11/26")
        return editor

    def test_a_dropped_bill_is_read_and_stays_where_it_is(self):
        """A source that is told "move" deletes its file."""
        for language in LOCALES:
            with self.subTest(language), session(language) as desktop:
                app, window = self.start(desktop, language)
                app.wait_window(TITLES[language])
                path = bill(desktop, "clean/message-1x.png", "bill.png")
                with open(path, "rb") as file:
                    content = file.read()
                for place, target in (("window", window.frame),
                                      ("menus", app.find("menu bar", ""))):
                    taken, told = self.drop(desktop, path, target, f"drop-on-{place}-{language}")
                    self.assertTrue(taken, place)
                    self.assertEqual(set(told), {"copy"}, place)
                    editor = self.expect_editor(app, language)
                    editor.find("push button", CANCEL[language]).click()
                    app.gone("dialog")
                    with open(path, "rb") as file:
                        self.assertEqual(file.read(), content, place)
                self.assertFalse(os.path.exists(data_file(desktop)))
                self.end(desktop, app, language)

    def test_what_is_no_copy_of_a_file_is_refused(self):
        for language in LOCALES:
            with self.subTest(language), session(language) as desktop:
                app, window = self.start(desktop, language)
                app.wait_window(TITLES[language])
                before = window.head()
                path = bill(desktop, "clean/message-1x.png", "bill.png")
                # Shift asks for a move.
                for what, dropped, key in (("address", "https://example.org/bill.png", None),
                                           ("move", path, "shift")):
                    if key:
                        desktop.xdotool("keydown", key)
                    taken, told = self.drop(desktop, dropped, window.frame,
                                            f"drop-of-{what}-{language}")
                    if key:
                        desktop.xdotool("keyup", key)
                    self.assertFalse(taken, what)
                    self.assertNotIn("move", told, what)
                    # The button says so while something is read.
                    self.assertEqual(len(app.find_all("push button", SCAN[language])), 1, what)
                    self.assertEqual(app.find_all("dialog"), [], what)
                    self.assertEqual(window.head(), before, what)
                    self.assertTrue(os.path.exists(path), what)
                taken, _ = self.drop(desktop, path, window.frame, f"drop-after-all-{language}")
                self.assertTrue(taken)
                self.expect_editor(app, language)
                self.assertFalse(os.path.exists(data_file(desktop)))
                self.end(desktop, app, language)

    def test_a_cancelled_panel_changes_nothing(self):
        for language in LOCALES:
            with self.subTest(language), session(language) as desktop:
                app, window = self.start(desktop, language)
                before = window.head()
                self.button(window, language).click()
                panel = app.find("dialog", CHOOSE[language], timeout=10)
                panel.find("push button", CANCEL[language]).click()
                app.gone("dialog", CHOOSE[language])
                self.assertEqual(window.head(), before)
                self.assertFalse(os.path.exists(data_file(desktop)))
                self.end(desktop, app, language)

    def test_says_when_nothing_was_found(self):
        for language in LOCALES:
            with self.subTest(language), session(language) as desktop:
                app, window = self.start(desktop, language)
                path = bill(desktop, "pdf/blank-page.pdf", "blank.pdf")
                self.button(window, language).click()
                choose(desktop, app, path, language)
                window.frame.find("label", NOTHING[language], timeout=30)
                self.picture(desktop, f"nothing-found-{language}.png")
                self.assertFalse(os.path.exists(data_file(desktop)))
                self.end(desktop, app, language)


if __name__ == "__main__":
    main(__doc__)
