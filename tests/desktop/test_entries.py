#!/usr/bin/python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""test_entries.py PROGRAM PICTURES: adds, changes, pauses, copies and deletes entries as a user
does, and compares the file with what must stand in it.
"""
import json
import os
import re

from entries import NETFLIX, OTHER, Entries, identity, new_id, session, stored
from main_window import LOCALES, data_file, record
from program_test import main
from session import wait_for
from words import (ACTIVE, ADD, AMOUNT, CANCEL, CATEGORY, CLOSE, COPY, CURRENCY, CYCLE, DELETE,
                   DELETE_THIS, FIRST_CHARGE, NAME, NEXT, NOTES, ONE_TIME, PAUSE, PREVIOUS,
                   PURCHASE, RECURRING, RESUME, SAVE)

# Keeps what is on the clipboard when a program ends that asks for it.
CLIPBOARD_MANAGER = """
import gi
gi.require_version("Gdk", "3.0")
gi.require_version("Gtk", "3.0")
from gi.repository import Gdk, Gtk

def keep(widget, event):
    text = clipboard.wait_for_text()
    Gdk.selection_send_notify(event.requestor, event.selection, event.target, event.property,
                              event.time)
    clipboard.set_text(text, -1)
    print("kept", flush=True)
    return True

clipboard = Gtk.Clipboard.get(Gdk.SELECTION_CLIPBOARD)
manager = Gdk.atom_intern("CLIPBOARD_MANAGER", False)
window = Gtk.Invisible()
window.connect("selection-request-event", keep)
Gtk.selection_add_target(window, manager, Gdk.atom_intern("SAVE_TARGETS", False), 0)
assert Gtk.selection_owner_set(window, manager, Gdk.CURRENT_TIME)
print("ready", flush=True)
Gtk.main()
"""


class Adding(Entries):
    def test_by_the_keyboard_alone(self):
        """An entry that is due in a week's time, from Tab to Add on to Return on Save."""
        name, notes = "晨报 Plus", 'Paid by card / "work"\n第二行备注'
        for language in LOCALES:
            with self.subTest(language), session(language, [OTHER]) as desktop:
                app, window = self.start(desktop, language)
                desktop.key("Tab")
                self.tab_to(app, "push button", ADD[language])
                desktop.key("Return")
                self.editor(app, language, "add")
                desktop.type(name)
                self.tab_to(app, "text", AMOUNT[language])
                desktop.type("15.49")
                self.tab_to(app, "combo box", CURRENCY[language])
                # From the currency of the language to the euro, in the open list.
                desktop.key("Return")
                app.find("list", CURRENCY[language])
                desktop.key(*{"en": ["Down"], "zh": ["Down", "Down"]}[language], "Return")
                app.gone("list", CURRENCY[language])
                self.tab_to(app, "combo box", CATEGORY[language])
                desktop.key("Down")
                self.tab_to(app, "radio button", RECURRING[language])
                self.tab_to(app, "combo box", CYCLE[language])
                desktop.key("space")
                app.find("list", CYCLE[language])
                desktop.key("Down", "Return")
                app.gone("list", CYCLE[language])
                self.tab_to(app, "push button", FIRST_CHARGE[language])
                desktop.key("Return")
                self.tab_to(app, "push button", PREVIOUS[language])
                self.tab_to(app, "push button", NEXT[language])
                self.tab_to(app, "push button", {
                    "en": "Tuesday, June 10, 2025", "zh": "2025年6月10日星期二"}[language])
                # Three months back, and from the beginning of the week into the next.
                desktop.key("Page_Up", "Page_Up", "Page_Up", "Home", "Down")
                self.expect_focus(app, "push button", {
                    "en": "Sunday, March 16, 2025", "zh": "2025年3月17日星期一"}[language])
                desktop.key("Return")
                wait_for("the chosen day", lambda: app.find(
                    "push button", FIRST_CHARGE[language]).description ==
                    {"en": "2025/03/16", "zh": "2025/03/17"}[language])
                self.tab_to(app, "check box", ACTIVE[language])
                self.tab_to(app, "text", NOTES[language])
                self.type_lines(desktop, notes)
                wait_for("the notes",
                         lambda: app.focused().text == notes.replace("\n", "\u2029"))
                self.tab_to(app, "push button", CANCEL[language])
                self.tab_to(app, "push button", SAVE[language])
                desktop.key("Return")
                self.wait_closed(app)

                day = {"en": "2025-03-15", "zh": "2025-03-16"}[language]
                self.expect_stored(desktop, OTHER, {
                    "id": new_id(stored(desktop)), "name": name, "amount": 15.49,
                    "currency": "EUR", "billingType": "recurring", "cycle": "quarterly",
                    "category": "影音", "startDate": day + "T16:00:00Z", "isActive": True,
                    "notes": notes})
                self.expect_focus(app, "push button", ADD[language])
                # 100 yuan, and a third of 15.49 euros of 7.80 each.
                self.assertEqual(window.head()[:9], {
                    "en": ["[ MONTHLY SPEND ]", "$19.48", "LOCAL DATA · CNY", "Yearly", "$233.79",
                           "Active", "2", "Due in 7d", "1"],
                    "zh": ["[ 每月订阅支出 ]", "¥140.27", "本地数据 · CNY", "每年支出",
                           "¥1683.29", "进行中", "2", "近 7 天待扣", "1"]}[language])
                self.assertEqual(window.upcoming(), {
                    "en": [[name, "in 6 days", "€15.49"]],
                    "zh": [[name, "7 天后扣费", "€15.49"]]}[language])
                self.assertEqual(window.rows()[1], {
                    "en": [name, "Video · Quarterly · Charges 2025/06/16", "-€15.49",
                           "≈$5.59/mo"],
                    "zh": [name, "影音 · 每季 · 2025/06/17 扣费", "-€15.49",
                           "≈¥40.27/月"]}[language])
                self.expect_panel(desktop, app, {
                    "en": ["Tovarin", "Monthly spend", "$19.48", "≈$233.79/yr · 2 active",
                           "Due in the next 7 days"],
                    "zh": ["Tovarin", "每月订阅支出", "¥140.27",
                           "每年约 ¥1683.29 · 进行中 2 个", "近 7 天待扣费"]}[language],
                    {"en": [[name, "6d", "-€15.49"]], "zh": [[name, "7天后", "-€15.49"]]}[language])
                self.end(desktop, app, language)

    def test_return_saves_only_what_is_valid(self):
        with session("en") as desktop:
            app, window = self.start(desktop, "en")
            sheet = self.open_editor(app, window, "en")
            save = sheet.find("push button", SAVE["en"])
            name_field, amount_field = sheet.find_all("text")[:2]
            for name, amount in (("", "15"), ("   ", "15"), ("Netflix", ""), ("Netflix", "15,5"),
                                 ("Netflix", "15 "), ("Netflix", "¥15"), ("Netflix", "0"),
                                 ("Netflix", "-3")):
                with self.subTest(name=name, amount=amount):
                    name_field.set_text(name)
                    amount_field.set_text(amount)
                    wait_for("the keyboard", lambda: name_field.click().has("focused"))
                    desktop.key("Return")
                    save.click()
                    save.do("Press")
                    self.assertFalse(os.path.exists(data_file(desktop)))
                    self.assertTrue(sheet.has("showing"))
            self.fill(sheet, NAME["en"], "  Netflix ")
            self.fill(sheet, AMOUNT["en"], "15.0")
            desktop.key("Return")
            self.wait_closed(app)
            self.assertEqual(window.rows()[0][0], "Netflix")
            entry, = json.loads(stored(desktop))
            self.assertEqual((entry["name"], entry["amount"], entry["currency"]),
                             ("Netflix", 15, "USD"))
            self.end(desktop, app, "en")


class Editing(Entries):
    def test_changes_what_was_changed_and_nothing_else(self):
        for language in LOCALES:
            with self.subTest(language), session(language, [OTHER, NETFLIX]) as desktop:
                app, window = self.start(desktop, language)
                sheet = self.open_editor(app, window, language, "Netflix")
                # Qt calls the end of a line by its paragraph separator.
                self.assertEqual([e.text for e in sheet.find_all("text")],
                                 ["Netflix", "15.5", "one\u2029two"])
                self.assertEqual([e.description for e in sheet.find_all("combo box")], {
                    "en": ["USD", "Video", "Monthly"], "zh": ["USD", "视频", "每月"]}[language])
                sheet.find("push button", FIRST_CHARGE[language])
                self.fill(sheet, AMOUNT[language], "30")
                sheet.find("radio button", ONE_TIME[language]).click()
                sheet.gone("combo box", CYCLE[language])
                self.assertEqual(sheet.find("push button", PURCHASE[language]).description,
                                 "2025/01/12")
                sheet.find("push button", SAVE[language]).click()
                self.wait_closed(app)
                self.expect_stored(desktop, OTHER,
                                   {**NETFLIX, "amount": 30, "billingType": "oneTime"})
                self.assertIn({"en": ["Netflix", "One-time", "Video", "-$30"],
                               "zh": ["Netflix", "单次", "视频", "-$30"]}[language],
                              window.rows())
                self.end(desktop, app, language)

    def test_cancelled_leaves_the_file_alone(self):
        for language in LOCALES:
            with self.subTest(language), session(language, [OTHER, NETFLIX]) as desktop:
                app, window = self.start(desktop, language)
                before = stored(desktop), identity(desktop), window.rows()
                for close in (lambda sheet: desktop.key("Escape"),
                              lambda sheet: sheet.find("push button", CANCEL[language]).click()):
                    sheet = self.open_editor(app, window, language, "Netflix")
                    self.fill(sheet, NAME[language], "Something else")
                    self.fill(sheet, AMOUNT[language], "1")
                    close(sheet)
                    self.wait_closed(app)
                    self.assertEqual((stored(desktop), identity(desktop), window.rows()), before)
                self.end(desktop, app, language)


class Pausing(Entries):
    def test_is_seen_everywhere(self):
        for language in LOCALES:
            with self.subTest(language), session(language, [OTHER, NETFLIX]) as desktop:
                app, window = self.start(desktop, language)
                before = self.seen(desktop, app, window)
                self.assertEqual(before, self.ACTIVE_SEEN[language])
                sheet = self.open_detail(app, window, language, "Netflix")
                sheet.find("push button", PAUSE[language]).click()
                sheet.find("push button", RESUME[language])
                sheet.gone("push button", PAUSE[language])
                sheet.find("label", {"en": "Paused", "zh": "已停用"}[language])
                self.expect_stored(desktop, OTHER, {**NETFLIX, "isActive": False})
                desktop.key("Escape")
                self.wait_closed(app)
                self.assertEqual(self.seen(desktop, app, window), self.PAUSED_SEEN[language])

                sheet = self.open_detail(app, window, language, "Netflix")
                sheet.find("push button", RESUME[language]).click()
                sheet.find("push button", PAUSE[language])
                self.expect_stored(desktop, OTHER, NETFLIX)
                sheet.find("push button", CLOSE[language]).click()
                self.wait_closed(app)
                self.assertEqual(self.seen(desktop, app, window), before)
                self.end(desktop, app, language)

    # 100 yuan, and 15.50 dollars of 7.20 each.
    ACTIVE_SEEN = {
        "en": (["$29.39", "$352.67", "2", "1"],
               [["Netflix", "Video · Monthly · Charges 2025/06/12", "-$15.50", "≈$15.50/mo"],
                ["Other", "Video · Monthly · Charges 2025/06/20", "-¥100", "≈$13.89/mo"]],
               [["Netflix", "in 2 days", "$15.50"]],
               ["$29.39", "≈$352.67/yr · 2 active"], [["Netflix", "2d", "-$15.50"]]),
        "zh": (["¥211.60", "¥2539.20", "2", "1"],
               [["Netflix", "视频 · 每月 · 2025/06/12 扣费", "-$15.50", "≈¥111.60/月"],
                ["Other", "影音 · 每月 · 2025/06/20 扣费", "-¥100", "≈¥100/月"]],
               [["Netflix", "2 天后扣费", "$15.50"]],
               ["¥211.60", "每年约 ¥2539.20 · 进行中 2 个"], [["Netflix", "2天后", "-$15.50"]]),
    }
    PAUSED_SEEN = {
        "en": (["$13.89", "$166.67", "1", "0"],
               [["Other", "Video · Monthly · Charges 2025/06/20", "-¥100", "≈$13.89/mo"],
                ["Netflix", "Paused", "Video · Monthly", "-$15.50"]],
               None, ["$13.89", "≈$166.67/yr · 1 active"], []),
        "zh": (["¥100", "¥1200", "1", "0"],
               [["Other", "影音 · 每月 · 2025/06/20 扣费", "-¥100", "≈¥100/月"],
                ["Netflix", "已停用", "视频 · 每月", "-$15.50"]],
               None, ["¥100", "每年约 ¥1200 · 进行中 1 个"], []),
    }

    def seen(self, desktop, app, window):
        """The totals, the list and the charges due of the window; the totals and the charges of
        the panel."""
        head = window.head()
        panel = self.open_panel(desktop, app)
        totals, due = panel.texts()[2:4], panel.rows()
        desktop.key("Escape")
        panel.wait_closed()
        return [head[1], head[4], head[6], head[8]], window.rows(), window.upcoming(), totals, due


class Copying(Entries):
    LINES = {
        "en": {"Netflix": "Netflix $15.50 Monthly", "编辑器/Pro": "编辑器/Pro €299 One-time"},
        "zh": {"Netflix": "Netflix $15.50 每月", "编辑器/Pro": "编辑器/Pro €299 单次"},
    }
    BOUGHT = record(3, "编辑器/Pro", "2025-07-01", 299, "EUR", billingType="oneTime")

    def copy(self, desktop, app, window, language, name):
        sheet = self.open_detail(app, window, language, name)
        sheet.find("push button", COPY[language]).click()
        wait_for(lambda: f"{self.LINES[language][name]!r}; had {desktop.clipboard()!r}",
                 lambda: desktop.clipboard() == self.LINES[language][name])
        self.assertIn("UTF8_STRING", desktop.clipboard("TARGETS").split())
        self.assertNotIn("text/html", desktop.clipboard("TARGETS").split())
        # Nothing else happens.
        self.assertTrue(sheet.has("showing"))
        desktop.key("Escape")
        self.wait_closed(app)

    def test_leaves_one_line(self):
        for language in LOCALES:
            with self.subTest(language), session(language, [NETFLIX, self.BOUGHT]) as desktop:
                before = identity(desktop)
                app, window = self.start(desktop, language)
                desktop.set_clipboard("what was there")
                for name in self.LINES[language]:
                    self.copy(desktop, app, window, language, name)
                self.assertEqual(identity(desktop), before)
                # Whoever types it in again gets the same.
                sheet = self.open_editor(app, window, language)
                desktop.key("ctrl+v")
                wait_for("the pasted line", lambda: sheet.find("text", NAME[language]).text ==
                         self.LINES[language]["编辑器/Pro"])
                desktop.key("Escape")
                self.wait_closed(app)
                self.end(desktop, app, language)

    def test_outlives_the_program_where_the_desktop_keeps_it(self):
        with session("en", [NETFLIX]) as desktop:
            keeper = desktop.spawn("keeper", ["/usr/bin/python3", "-c", CLIPBOARD_MANAGER])

            def said():
                with open(keeper.log_file, encoding="utf-8") as log:
                    return re.findall("^(?:ready|kept)$", log.read(), re.M)

            wait_for("the clipboard manager", lambda: said() == ["ready"], 15)
            app, window = self.start(desktop, "en")
            self.copy(desktop, app, window, "en", "Netflix")
            self.assertEqual(said(), ["ready"])
            self.end(desktop, app, "en")
            wait_for("the text to be kept", lambda: said() == ["ready", "kept"])
            self.assertEqual(desktop.clipboard(), "Netflix $15.50 Monthly")


class Deleting(Entries):
    def test_from_the_detail_and_from_the_editor(self):
        for language in LOCALES:
            with self.subTest(language), session(language, [OTHER, NETFLIX]) as desktop:
                app, window = self.start(desktop, language)
                self.open_detail(app, window, language, "Netflix") \
                    .find("push button", DELETE_THIS[language]).click()
                self.wait_closed(app)
                self.expect_stored(desktop, OTHER)
                self.assertEqual([row[0] for row in window.rows()], ["Other"])
                self.open_editor(app, window, language, "Other") \
                    .find("push button", DELETE[language]).click()
                self.wait_closed(app)
                self.expect_stored(desktop)
                wait_for("the empty list", lambda: window.count() == 0)
                self.end(desktop, app, language)

    def test_takes_every_entry_of_its_id(self):
        twin = {**OTHER, "name": "Twin"}
        with session("en", [OTHER, NETFLIX, twin]) as desktop:
            app, window = self.start(desktop, "en")
            self.open_editor(app, window, "en", "Other") \
                .find("push button", DELETE["en"]).click()
            self.wait_closed(app)
            self.expect_stored(desktop, NETFLIX)
            self.end(desktop, app, "en")


if __name__ == "__main__":
    main(__doc__)
