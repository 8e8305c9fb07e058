#!/usr/bin/python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""test_scan.py PROGRAM PICTURES: has Tovarin read bills as a user does, with its real scanner, in a
desktop session of its own. Leaves pictures of what is seen on the way in the folder PICTURES.
"""
import json
import os
import shutil
import sys
import unittest

from main_window import LOCALES, TITLES, MainWindow, data_file, picture, settled
from session import Session, wait_for

PROGRAM = PICTURES = None
BILLS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../data/bills")

SCAN = {"en": "Scan", "zh": "扫描识别"}
NOTHING = {"en": "Nothing recognized", "zh": "没有识别到有效内容"}
CHOOSE = {"en": "Choose bill screenshots or PDFs", "zh": "选择账单截图或 PDF"}
CANCEL = {"en": "Cancel", "zh": "取消"}
CONFIRM = {"en": "[ Confirm scan ]", "zh": "[ 确认识别结果 ]"}
SAVE = {"en": "Save", "zh": "保存"}

ROWS = {
    "en": ["YouTube Premium", "Video · Monthly · Charges 2025/06/26", "-¥55", "≈$7.64/mo"],
    "zh": ["YouTube Premium", "影音 · 每月 · 2025/06/26 扣费", "-¥55", "≈¥55/月"],
}
# The notes hold the first six lines as they were read.
NOTES = {
    "en": "📷 Scanned text:\n",
    "zh": "📷 识别原文：\n",
}


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


class Scan(unittest.TestCase):
    maxDiff = None

    def start(self, desktop, language):
        app = desktop.start([PROGRAM])
        return app, MainWindow(app, language)

    def button(self, window, language):
        return window.frame.find("push button", SCAN[language], timeout=30)

    def end(self, desktop, app, language):
        app.wait_window(TITLES[language])
        desktop.key("ctrl+q")
        self.assertEqual(app.wait(), 0)
        self.assertEqual(app.log(), "")

    def test_a_chosen_bill_reaches_the_list(self):
        for language in LOCALES:
            with self.subTest(language), session(language) as desktop:
                app, window = self.start(desktop, language)
                path = bill(desktop, "clean/message-1x.png", "bill.png")
                self.button(window, language).click()
                app.find("dialog", CHOOSE[language], timeout=10)
                picture(desktop, os.path.join(PICTURES, f"choose-bills-{language}.png"))
                choose(desktop, app, path, language)
                app.find("label", CONFIRM[language], timeout=30)
                picture(desktop, os.path.join(PICTURES, f"confirm-scan-{language}.png"))
                self.assertFalse(os.path.exists(data_file(desktop)))
                app.find("push button", SAVE[language]).click()
                wait_for("the draft in the list", lambda: window.count() == 1)
                row, = window.rows()
                self.assertEqual(row, ROWS[language])
                draft, = stored(desktop)
                self.assertTrue(draft["notes"].startswith(NOTES[language]), draft["notes"])
                del draft["id"], draft["notes"]
                self.assertEqual(draft, {
                    "name": "YouTube Premium", "amount": 55, "currency": "CNY",
                    "billingType": "recurring", "cycle": "monthly", "category": "影音",
                    "startDate": "2024-11-25T16:00:00Z", "isActive": True})
                picture(desktop, os.path.join(PICTURES, f"scanned-{language}.png"))
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
                picture(desktop, os.path.join(PICTURES, f"nothing-found-{language}.png"))
                self.assertFalse(os.path.exists(data_file(desktop)))
                self.end(desktop, app, language)


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    PROGRAM, PICTURES = map(os.path.abspath, sys.argv[1:3])
    os.makedirs(PICTURES, exist_ok=True)
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]], verbosity=2)
