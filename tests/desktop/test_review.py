#!/usr/bin/python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""test_review.py PROGRAM PICTURES: has Tovarin read several bills at once, with its real scanner,
and looks through what it found as a user does. Leaves pictures of it in the folder PICTURES.
"""
import json
import os
import shutil

from entries import draft
from main_window import BILLS, LOCALES, TITLES, MainWindow, configure, data_file
from program_test import main
from session import wait_for
from sheets import Sheet, SheetTest, session
from words import AMOUNT, CANCEL, MONTHLY, NAME, NO_NAME, REVIEW, add

# The third cannot be read.
FIVE = ["clean/message-1x.png", "clean/invoice-1x.png", "hazards/corrupted.png",
        "pdf/text-layer-chinese.pdf", "clean/payment-result-1x.png"]
NAMES = ["YouTube Premium", "Netflix Standard", "收款凭证", "iCloud+ 200GB"]
AMOUNTS = ["55", "39.99", "95.07", "1"]
# Both are read from their text, which takes no time.
TWO = ["pdf/text-layer-english.pdf", "pdf/text-layer-chinese.pdf"]


def head(language, included, count):
    return {"en": ["[ BATCH SCAN ]", f"[ {included}/{count} ]",
                   "Select items to add; edit name or amount"],
            "zh": ["[ 批量识别结果 ]", f"[ {included}/{count} 项 ]",
                   "勾选要添加的项，可改名称和金额"]}[language]


class ReviewTest(SheetTest):
    def scan(self, desktop, language, samples, **env):
        """Opens copies of the samples with Tovarin, and waits for what it found in them."""
        bills = []
        for number, sample in enumerate(samples):
            bills.append(os.path.join(desktop.home, f"{number} {os.path.basename(sample)}"))
            shutil.copyfile(os.path.join(BILLS, sample), bills[-1])
        app = desktop.start([self.program, *bills], **env)
        window = MainWindow(app, language)
        app.wait_window(TITLES[language])
        return app, window, Sheet(app, REVIEW[language])

    def rows(self, sheet, language):
        return [row for row in sheet.find("list", REVIEW[language]).children
                if row.role == "list item"]

    def piece(self, sheet, language, row, role, name=None):
        return self.rows(sheet, language)[row].find(role, name)

    def shown(self, sheet, language):
        """Of each row whether it is ticked, its name, its amount and its cycle."""
        return [(row.find("check box").has("checked"), row.find("text", NAME[language]).text,
                 row.find("text", AMOUNT[language]).text,
                 [label.name for label in row.find_all("label")])
                for row in self.rows(sheet, language)]

    def wait_head(self, sheet, language, included, count):
        wait_for(f"{included} of {count} drafts",
                 lambda: sheet.labels()[:3] == head(language, included, count))
        self.assertEqual(sheet.buttons(), [CANCEL[language], add(language, included)])


class Reviewing(ReviewTest):
    def test_five_bills(self):
        for language in LOCALES:
            with self.subTest(language), session(language) as desktop:
                app, window, sheet = self.scan(desktop, language, FIVE)
                self.assertEqual(self.shown(sheet, language), [
                    (True, name, amount, [MONTHLY[language]])
                    for name, amount in zip(NAMES, AMOUNTS)])
                self.wait_head(sheet, language, 4, 4)

                self.piece(sheet, language, 1, "check box").click()
                self.wait_head(sheet, language, 3, 4)
                name = self.piece(sheet, language, 2, "text", NAME[language])
                name.fill("")
                self.piece(sheet, language, 2, "label", NO_NAME[language])
                desktop.type("AI 助手")
                wait_for("the name", lambda: name.text == "AI 助手")
                sheet.dialog.gone("label", NO_NAME[language])
                self.piece(sheet, language, 3, "text", AMOUNT[language]).fill("1036.99")
                self.assertFalse(os.path.exists(data_file(desktop)))
                sheet.find("push button", add(language, 3)).click()
                sheet.wait_closed()

                wait_for("the bills in the list", lambda: window.count() == 3)
                with open(data_file(desktop), encoding="utf-8") as file:
                    stored = json.load(file)
                self.assertEqual(len({entry.pop("id") for entry in stored}), 3)
                expected = [draft(FIVE[0], language),
                            {**draft(FIVE[3], language), "name": "AI 助手"},
                            {**draft(FIVE[4], language), "amount": 1036.99}]
                self.assertEqual(stored, expected)
                self.end(desktop, app)

    def test_cancelled(self):
        for language in LOCALES:
            for way in ("button", "Escape"):
                with self.subTest(language, way=way), session(language) as desktop:
                    app, window, sheet = self.scan(desktop, language, TWO)
                    self.piece(sheet, language, 0, "text", NAME[language]).fill("Mail")
                    self.piece(sheet, language, 1, "text", AMOUNT[language]).fill("5")
                    if way == "button":
                        sheet.find("push button", CANCEL[language]).click()
                    else:
                        desktop.key("Escape")
                    sheet.wait_closed()
                    self.assertEqual(window.count(), 0)
                    self.assertFalse(os.path.exists(data_file(desktop)))
                    self.end(desktop, app)

    def test_drafts_that_cannot_be_added_keep_it_open(self):
        for language in LOCALES:
            with self.subTest(language), session(language) as desktop:
                app, window, sheet = self.scan(desktop, language, TWO)
                self.piece(sheet, language, 0, "text", NAME[language]).fill("  ")
                self.piece(sheet, language, 1, "text", AMOUNT[language]).fill("0")
                sheet.find("push button", add(language, 2)).click()
                self.piece(sheet, language, 0, "check box").click()
                self.wait_head(sheet, language, 1, 2)
                sheet.find("push button", add(language, 1)).click()
                self.piece(sheet, language, 1, "check box").click()
                self.wait_head(sheet, language, 0, 2)
                sheet.find("push button", add(language, 0)).click()
                sheet.find("push button", add(language, 0)).do("Press")
                self.assertFalse(os.path.exists(data_file(desktop)))
                self.piece(sheet, language, 1, "check box").click()
                self.piece(sheet, language, 1, "text", AMOUNT[language]).fill("-1")
                sheet.find("push button", add(language, 1)).click()
                self.wait_head(sheet, language, 1, 2)
                self.piece(sheet, language, 1, "text", AMOUNT[language]).fill("0.5")
                sheet.find("push button", add(language, 1)).click()
                sheet.wait_closed()
                wait_for("the bill in the list", lambda: window.count() == 1)
                self.end(desktop, app)

    def test_by_keys(self):
        with session("en") as desktop:
            app, window, sheet = self.scan(desktop, "en", TWO)
            self.wait_focus(app, "check box", "Sailcloth Mail 1")
            desktop.key("space")
            self.wait_head(sheet, "en", 1, 2)
            self.walk(desktop, app, "text", ("Tab", "Name"), ("Tab", "Amount"))
            self.walk(desktop, app, "check box", ("Tab", "收款凭证"))
            self.walk(desktop, app, "text", ("Tab", "Name"))
            desktop.key("ctrl+a")
            desktop.type("Club")
            self.walk(desktop, app, "text", ("Tab", "Amount"))
            desktop.key("ctrl+a")
            desktop.type("7.5")
            self.walk(desktop, app, "push button", ("Tab", "Cancel"), ("Tab", "Add 1"))
            desktop.key("space")
            sheet.wait_closed()
            wait_for("the bill in the list", lambda: window.count() == 1)
            self.assertEqual(window.rows()[0][0], "Club")
            self.end(desktop, app)

    def test_by_a_screen_reader(self):
        with session("zh") as desktop:
            app, window, sheet = self.scan(desktop, "zh", TWO)
            self.expect_usable(sheet)
            self.piece(sheet, "zh", 0, "check box").do("Toggle")
            self.wait_head(sheet, "zh", 1, 2)
            self.piece(sheet, "zh", 1, "text", NAME["zh"]).set_text("AI 助手")
            self.piece(sheet, "zh", 1, "text", AMOUNT["zh"]).set_text("7.5")
            sheet.find("push button", add("zh", 1)).do("Press")
            sheet.wait_closed()
            wait_for("the bill in the list", lambda: window.count() == 1)
            self.assertEqual([window.rows()[0][0], window.rows()[0][2]], ["AI 助手", "-¥7.50"])
            self.end(desktop, app)


class Looks(ReviewTest):
    def test_quits_while_it_is_open(self):
        with session("en") as desktop:
            app, _, _ = self.scan(desktop, "en", TWO)
            self.end(desktop, app)

    def test_pictures(self):
        """Two drafts, and five in the smallest window, where Tab brings each into sight."""
        five = [FIVE[0], FIVE[1], FIVE[3], FIVE[4], TWO[0]]
        for language in LOCALES:
            for name, bills, frame in (("2", TWO, "100 100 960 640 normal"),
                                       ("5", five, "100 100 960 640 normal"),
                                       ("5-small", five, "100 100 640 420 normal")):
                with self.subTest(name, language=language), \
                        session(language, lambda s: configure(
                            s, TovarinMainWindow__frame=frame)) as desktop:
                    app, _, sheet = self.scan(desktop, language, bills)
                    self.assertEqual(len(self.rows(sheet, language)), len(bills))
                    self.picture(desktop, f"review-{name}-{language}.png")
                    self.expect_stops_in_sight(desktop, app, sheet, 3 * len(bills) + 2)
                    self.end(desktop, app)

    def test_pictures_twice_as_large(self):
        with session("en", size=(2000, 1400)) as desktop:
            app, _, _ = self.scan(desktop, "en", TWO, QT_SCALE_FACTOR="2")
            self.picture(desktop, "review-2x.png")
            self.end(desktop, app)


if __name__ == "__main__":
    main(__doc__)
