#!/usr/bin/python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""test_entry_sheets.py PROGRAM PICTURES: opens bills in the editor, leaves sheets open while their
window goes, and reads them as a screen reader does. Leaves pictures of them in the folder PICTURES.
"""
import json
import os
import re
import shutil

from entries import NETFLIX, OTHER, Entries, identity, new_id, session, stored
from main_window import LOCALES, TITLES, configure, data_file, install_records, picture, record
from program_test import main
from session import wait_for
from words import (ACTIVE, ADD, AMOUNT, CANCEL, CATEGORY, CLOSE, COPY, CURRENCY, CYCLE, DELETE,
                   DELETE_THIS, DETAILS, EDIT, EDITORS, FIRST_CHARGE, NAME, NEXT, NOTES, ONE_TIME,
                   PAUSE, PREVIOUS, PURCHASE, RECURRING, SAVE)

BILLS = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../data/bills")


class Scanning(Entries):
    """A bill that is opened with Tovarin ends in the editor."""

    def open_bill(self, desktop, language, sample):
        path = os.path.join(desktop.home, os.path.basename(sample))
        shutil.copyfile(os.path.join(BILLS, sample), path)
        app, window = self.start(desktop, language, path)
        return app, window, self.editor(app, language, "scan")

    def test_saved_with_a_corrected_field(self):
        read = {"en": "📷 Scanned text:\n", "zh": "📷 识别原文：\n"}
        cases = (
            ("clean/payment-result-1x.png", AMOUNT, "1", "1036.99", {
                "name": "iCloud+ 200GB", "amount": 1036.99, "category": "云存储",
                "startDate": "2025-04-27T16:00:00Z",
                "notes": "账单详情 / iCloud+ 200GB / ¥1,036.99 / 支付成功 / 商品 / iCloud+ 200GB"}),
            ("pdf/text-layer-phone.pdf", NAME, "账户 li.wei@example.com", "GitHub Copilot", {
                "name": "GitHub Copilot", "amount": 6, "category": "AI/工具",
                "startDate": "2024-01-10T16:00:00Z",
                "notes": "应用商店收据 / 账户 li.wei@example.com / 开票日期 2024.01.11 / "
                         "订单编号 NG2YULFQGG / 凭证编号 832323951875 / 应用商店"}),
        )
        for language in LOCALES:
            for sample, field, wrong, right, expected in cases:
                with self.subTest(sample, language=language), \
                        session(language, [OTHER]) as desktop:
                    before = identity(desktop)
                    app, window, sheet = self.open_bill(desktop, language, sample)
                    self.assertEqual(sheet.find("text", field[language]).text, wrong)
                    self.assertEqual(identity(desktop), before)
                    self.fill(sheet, field[language], right)
                    desktop.key("Return")
                    self.wait_closed(app)
                    self.expect_stored(desktop, OTHER, {
                        "id": new_id(stored(desktop)), "currency": "CNY",
                        "billingType": "recurring", "cycle": "monthly", "isActive": True,
                        **expected, "notes": read[language] + expected["notes"]})
                    self.assertIn(expected["name"], [row[0] for row in window.rows()])
                    self.end(desktop, app, language)

    def test_cancelled_stores_nothing(self):
        for sample in ("clean/payment-result-1x.png", "pdf/text-layer-phone.pdf"):
            for records in (None, [OTHER]):
                with self.subTest(sample, records=records), session("en", records) as desktop:
                    before = records and identity(desktop)
                    app, _, sheet = self.open_bill(desktop, "en", sample)
                    self.fill(sheet, NAME["en"], "Something else")
                    if records:
                        sheet.find("push button", CANCEL["en"]).click()
                    else:
                        desktop.key("Escape")
                    self.wait_closed(app)
                    self.end(desktop, app, "en")
                    if records:
                        self.assertEqual(identity(desktop), before)
                    else:
                        self.assertFalse(os.path.exists(data_file(desktop)))


class Leaving(Entries):
    """What becomes of an open sheet when its window goes."""

    def test_quits_with_what_is_typed_and_stores_nothing(self):
        for name in (None, "Netflix"):
            with self.subTest(name), session("en", [NETFLIX]) as desktop:
                before = identity(desktop)
                app, window = self.start(desktop, "en")
                sheet = self.open_editor(app, window, "en", name)
                self.fill(sheet, AMOUNT["en"], "30")
                self.fill(sheet, NAME["en"], "晨报")
                self.end(desktop, app, "en")
                self.assertEqual(identity(desktop), before)

    def test_quits_between_the_detail_and_the_editor(self):
        with session("en", [NETFLIX]) as desktop:
            before = identity(desktop)
            app, window = self.start(desktop, "en")
            self.open_detail(app, window, "en", "Netflix").find("push button", EDIT["en"]).click()
            self.end(desktop, app, "en")
            self.assertEqual(identity(desktop), before)

    def test_closed_comes_back_with_what_is_typed(self):
        for language in LOCALES:
            with self.subTest(language), session(language, [NETFLIX]) as desktop:
                app, window = self.start(desktop, language)
                sheet = self.open_editor(app, window, language)
                desktop.type("晨报")
                self.fill(sheet, AMOUNT[language], "30")
                self.fill(sheet, NOTES[language], "第一行\nsecond")
                typed = ["晨报", "30", "第一行\u2029second"]
                self.assertEqual([e.text for e in sheet.find_all("text", hidden=True)], typed)
                desktop.close_window()
                wait_for("no window in sight", lambda: not app.windows())
                again = desktop.start([self.program])
                self.assertEqual(again.wait(), 0)
                app.wait_window(TITLES[language])
                sheet = app.find("dialog", EDITORS["add"][language])
                self.assertEqual([e.text for e in sheet.find_all("text", hidden=True)], typed)
                # The keyboard is where it was.
                self.expect_focus(app, "text", NOTES[language])
                desktop.type("!")
                wait_for("the next letter", lambda: app.focused().text == typed[2] + "!")
                sheet.find("push button", SAVE[language]).click()
                self.wait_closed(app)
                entry = json.loads(stored(desktop))[-1]
                self.assertEqual((entry["name"], entry["amount"], entry["notes"]),
                                 ("晨报", 30, "第一行\nsecond!"))
                self.end(desktop, app, language)


class Telling(Entries):
    """What a screen reader finds in the sheets, and what it can do with it."""

    # Everything else is there to be read alone, or holds what is in it together.
    ACTIONS = {"push button": {"Press"}, "combo box": {"Press"}, "check box": {"Press", "Toggle"},
               "radio button": {"Press", "Toggle"}, "text": {"SetFocus"},
               "scroll bar": {"Increase", "Decrease"}}
    HOLDERS = ("dialog", "panel", "list")

    def controls(self, sheet):
        """What is in the window and can be used."""
        found = []
        for _, element in sheet.walk():
            role = element.role
            if role in self.ACTIONS:
                self.assertLessEqual(self.ACTIONS[role], set(element.actions), element)
                if role == "text":
                    self.assertIn("Text", element.interfaces, element)
                    self.assertTrue(element.has("editable"), element)
                # A scroll bar belongs to what it stands beside.
                if role != "scroll bar":
                    found.append((role, element.name, element.description))
            elif role == "label":
                self.assertNotEqual(element.name, "")
            else:
                self.assertIn(role, self.HOLDERS, element)
        self.assertEqual([c for c in found if c[1] == ""], [])
        return found

    def controls_of_form(self, sheet, language):
        """What can be used in the editor, from its beginning to its end."""
        found = []
        for words in (NAME, NOTES):
            sheet.find("text", words[language], hidden=True).do("SetFocus")
            self.expect_focus(sheet.app, "text", words[language])
            now = self.controls(sheet)
            found = [control for control in found if control not in now] + now
        return found

    def test_the_editor(self):
        for language in LOCALES:
            with self.subTest(language), session(language, [NETFLIX]) as desktop:
                app, window = self.start(desktop, language)
                sheet = self.open_editor(app, window, language, "Netflix")
                before = [("text", NAME[language], ""), ("text", AMOUNT[language], ""),
                          ("combo box", CURRENCY[language], "USD"),
                          ("combo box", CATEGORY[language], {"en": "Video", "zh": "视频"}[language]),
                          ("radio button", RECURRING[language], ""),
                          ("radio button", ONE_TIME[language], ""),
                          ("combo box", CYCLE[language], {"en": "Monthly", "zh": "每月"}[language]),
                          ("push button", FIRST_CHARGE[language], "2025/01/12")]
                after = [("check box", ACTIVE[language], ""), ("text", NOTES[language], ""),
                         ("push button", DELETE[language], ""),
                         ("push button", CANCEL[language], ""),
                         ("push button", SAVE[language], "")]
                self.assertEqual(self.controls_of_form(sheet, language), before + after)
                self.assertEqual([e.name for e in sheet.find_all("panel", re.compile("."))],
                                 [{"en": "Type", "zh": "类型"}[language]])

                sheet.find("push button", FIRST_CHARGE[language]).do("Press")
                sheet.find("panel", {"en": "January 2025", "zh": "2025年1月"}[language])
                unfolded = self.controls_of_form(sheet, language)
                self.assertEqual(unfolded[:10], before + [("push button", PREVIOUS[language], ""),
                                                          ("push button", NEXT[language], "")])
                self.assertEqual(unfolded[-5:], after)
                days = unfolded[10:-5]
                self.assertEqual(len(days), 42)
                self.assertEqual((days[0], days[-1]), {
                    "en": (("push button", "Sunday, December 29, 2024", ""),
                           ("push button", "Saturday, February 8, 2025", "")),
                    "zh": (("push button", "2024年12月30日星期一", ""),
                           ("push button", "2025年2月9日星期日", ""))}[language])
                self.end(desktop, app, language)

    def test_the_detail(self):
        for language in LOCALES:
            with self.subTest(language), session(language, [NETFLIX]) as desktop:
                app, window = self.start(desktop, language)
                sheet = self.open_detail(app, window, language, "Netflix")
                self.assertEqual(self.controls(sheet), [
                    ("push button", words[language], "")
                    for words in (CLOSE, EDIT, PAUSE, COPY, DELETE_THIS)])
                self.assertEqual(
                    [e.name for e in sheet.find_all("label", hidden=True)], {
                        "en": ["[ DETAILS ]", "Netflix", "-$15.50", "Next charge 2025/06/12",
                               "Billing", "Subscription", "Cycle", "Monthly", "Per month",
                               "$15.50", "Currency", "USD", "Status", "Active", "Notes",
                               "one\r\ntwo"],
                        "zh": ["[ 详情 ]", "Netflix", "-$15.50", "下次扣费 2025/06/12", "付费方式",
                               "订阅续费", "续费周期", "每月", "折合每月", "¥111.60", "币种",
                               "USD", "状态", "使用中", "备注", "one\r\ntwo"]}[language])
                self.end(desktop, app, language)

    def test_adds_an_entry_by_it_alone(self):
        for language in LOCALES:
            with self.subTest(language), session(language) as desktop:
                app, window = self.start(desktop, language)
                window.list.find("push button", ADD[language]).do("Press")
                sheet = self.editor(app, language, "add")
                for words, text in ((NAME, "编辑器"), (AMOUNT, "299"), (NOTES, "一\n二")):
                    sheet.find("text", words[language], hidden=True).set_text(text)
                for words, choice in ((CURRENCY, "EUR"),
                                      (CATEGORY, {"en": "Games", "zh": "游戏"}[language])):
                    sheet.find("combo box", words[language]).do("Press")
                    app.find("list item", choice).do("Press")
                    app.gone("list item", choice)
                sheet.find("radio button", ONE_TIME[language]).do("Press")
                sheet.find("push button", PURCHASE[language]).do("Press")
                sheet.find("push button", NEXT[language]).do("Press")
                sheet.find("push button", {
                    "en": "Friday, July 4, 2025", "zh": "2025年7月4日星期五"}[language]).do("Press")
                sheet.find("check box", ACTIVE[language], hidden=True).do("Toggle")
                sheet.find("push button", SAVE[language]).do("Press")
                self.wait_closed(app)
                self.expect_stored(desktop, {
                    "id": new_id(stored(desktop)), "name": "编辑器", "amount": 299,
                    "currency": "EUR", "billingType": "oneTime", "cycle": "monthly",
                    "category": "游戏", "startDate": "2025-07-03T16:00:00Z", "isActive": False,
                    "notes": "一\n二"})
                self.assertEqual(window.rows(), {
                    "en": [["编辑器", "Paused", "Games · Charges 2025/07/04", "-€299"]],
                    "zh": [["编辑器", "已停用", "游戏 · 2025/07/04 扣费", "-€299"]]}[language])
                self.end(desktop, app, language)


class Pictures(Entries):
    """Leaves pictures of the sheets; whoever changes the look looks at them."""

    LONG = record(5, "A subscription whose name has sixty letters, all of them new — "
                     "一个名字特别特别长的订阅服务，长到详情里无论如何也放不下，只好换行再换行，最后在末尾省略，"
                     "因为三行之后就没有地方了，所以后面的字谁也看不见",
                  "2025-01-12", 123456789.99, "USD", category="A category of one's own",
                  notes="\n".join(f"{n}. 第 {n} 行备注, which is long enough to be broken into two"
                                  for n in range(1, 13)))
    RECORDS = (NETFLIX, record(3, "Editor Pro", "2025-07-01", 299, "EUR", billingType="oneTime",
                               category="软件"),
               record(4, "Paused", "2025-01-31", 68, isActive=False, notes="Until the autumn"),
               LONG)
    SHOTS = (("recurring", NETFLIX["name"]), ("one-time", "Editor Pro"), ("paused", "Paused"),
             ("long", LONG["name"]))

    def shot(self, desktop, name, language, scale):
        path = os.path.join(self.pictures, f"{name}-{language}{'@2x' if scale == 2 else ''}.png")
        desktop.move(2, 2)
        picture(desktop, path)

    def take(self, language, scale):
        def prepare(desktop):
            # So high that every row is in sight: pointers do not hit where a factor scales places.
            configure(desktop, TovarinMainWindow__frame="100 40 960 830 normal")
            install_records(desktop, self.RECORDS)

        with session(language, size=(1280 * scale, 900 * scale), prepare=prepare,
                     env={"QT_SCALE_FACTOR": str(scale)}) as desktop:
            app, window = self.start(desktop, language)
            window.list.find("push button", ADD[language]).do("Press")
            self.editor(app, language, "add")
            self.shot(desktop, "editor-empty", language, scale)
            desktop.key("Escape")
            self.wait_closed(app)
            for shot, name in self.SHOTS:
                self.row(window, name).do("Press")
                detail = app.find("dialog", DETAILS[language])
                self.expect_focus(app, "push button", CLOSE[language])
                self.assertIn(name, detail.texts())
                self.shot(desktop, f"detail-{shot}", language, scale)
                detail.find("push button", EDIT[language]).do("Press")
                sheet = self.editor(app, language, "edit")
                self.shot(desktop, f"editor-{shot}", language, scale)
                if shot in ("recurring", "long"):
                    sheet.find("text", NOTES[language], hidden=True).do("SetFocus")
                    self.expect_focus(app, "text", NOTES[language])
                    self.shot(desktop, f"editor-{shot}-notes", language, scale)
                if shot == "recurring":
                    sheet.find("push button", FIRST_CHARGE[language], hidden=True).do("Press")
                    sheet.find("panel", {"en": "January 2025", "zh": "2025年1月"}[language])
                    self.shot(desktop, "editor-calendar", language, scale)
                desktop.key("Escape")
                self.wait_closed(app)
            self.end(desktop, app, language)

    def test_every_sheet(self):
        for language, scale in (("en", 1), ("zh", 1), ("zh", 2)):
            with self.subTest(language, scale=scale):
                self.take(language, scale)


if __name__ == "__main__":
    main(__doc__)
