# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""What the tests of entries share: the words on their sheets, and how to use them."""
import json
import os
import re
import sys
import unittest

from main_window import (LOCALES, TITLES, MainWindow, Panel, data_file, install_records, record,
                         settled)
from session import Session, wait_for

ADD = {"en": "Add", "zh": "添加订阅"}
EDITORS = {
    "add": {"en": "Add subscription", "zh": "添加订阅"},
    "edit": {"en": "Edit subscription", "zh": "编辑订阅"},
    "scan": {"en": "Confirm scan", "zh": "确认识别结果"},
}
DETAILS = {"en": "Details", "zh": "详情"}
NAME = {"en": "Name", "zh": "名称"}
AMOUNT = {"en": "Amount", "zh": "金额"}
CURRENCY = {"en": "Currency", "zh": "币种"}
CATEGORY = {"en": "Category", "zh": "分类"}
RECURRING = {"en": "Subscription", "zh": "订阅续费"}
ONE_TIME = {"en": "One-time", "zh": "单次买断"}
CYCLE = {"en": "Cycle", "zh": "周期"}
FIRST_CHARGE = {"en": "First charge", "zh": "首次扣费"}
PURCHASE = {"en": "Purchase date", "zh": "购买日"}
PREVIOUS = {"en": "Previous month", "zh": "上个月"}
NEXT = {"en": "Next month", "zh": "下个月"}
ACTIVE = {"en": "Still active", "zh": "仍在使用"}
NOTES = {"en": "Notes", "zh": "备注"}
DELETE = {"en": "Delete", "zh": "删除"}
CANCEL = {"en": "Cancel", "zh": "取消"}
SAVE = {"en": "Save", "zh": "保存"}
CLOSE = {"en": "Close", "zh": "关闭"}
EDIT = {"en": "Edit", "zh": "编辑"}
PAUSE = {"en": "Pause", "zh": "停用"}
RESUME = {"en": "Resume", "zh": "启用"}
COPY = {"en": "Copy", "zh": "复制"}
DELETE_THIS = {"en": "Delete subscription", "zh": "删除这个订阅"}

OTHER = record(1, "Other", "2025-01-20", 100)
# What came from elsewhere, and must stay: a service, an older category, foreign line breaks.
NETFLIX = record(2, "Netflix", "2025-01-12", 15.5, "USD", serviceID="netflix", category="视频",
                 notes="one\r\ntwo")


def session(language, records=None, prepare=None, **options):
    """A desktop with a tray on which it is 10 June 2025, nine in the morning in Shanghai."""
    def put(desktop):
        if records is not None:
            install_records(desktop, records)
        if prepare:
            prepare(desktop)

    return Session(lang=LOCALES[language], tz="Asia/Shanghai", clock="2025-06-10 09:00:00",
                   tray="sni", notifications="none", prepare=settled(put), **options)


def text_bytes(text):
    """A text as it stands in the file."""
    for plain, escaped in (("\\", "\\\\"), ("/", "\\/"), ('"', '\\"'), ("\r", "\\r"),
                           ("\n", "\\n"), ("\t", "\\t")):
        text = text.replace(plain, escaped)
    return f'"{text}"'


def file_bytes(*entries):
    """The file that holds these entries, byte for byte."""
    def value(content):
        if isinstance(content, bool):
            return "true" if content else "false"
        return text_bytes(content) if isinstance(content, str) else repr(content)

    if not entries:
        return b"[]"
    records = ("  {\n" + ",\n".join(f'    "{key}" : {value(entry[key])}' for key in sorted(entry)) +
               "\n  }" for entry in entries)
    return ("[\n" + ",\n".join(records) + "\n]").encode()


def stored(desktop):
    with open(data_file(desktop), "rb") as file:
        return file.read()


def identity(desktop):
    """Changes with every writing of the file, even of the same bytes."""
    status = os.stat(data_file(desktop))
    return status.st_ino, status.st_mtime_ns


def new_id(content):
    """The id of the last entry, which was drawn by lot."""
    entry = json.loads(content)[-1]
    assert re.fullmatch("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}",
                        entry["id"]), entry["id"]
    return entry["id"]


class Entries(unittest.TestCase):
    maxDiff = None
    program = pictures = None

    def start(self, desktop, language, *arguments):
        app = desktop.start([self.program, *arguments])
        window = MainWindow(app, language)
        app.wait_window(TITLES[language])
        return app, window

    def end(self, desktop, app, language):
        app.wait_window(TITLES[language])
        desktop.key("ctrl+q")
        self.assertEqual(app.wait(), 0)
        self.assertEqual(app.log(), "")

    def expect_stored(self, desktop, *entries):
        wait_for(lambda: f"{file_bytes(*entries)!r}; had {stored(desktop)!r}",
                 lambda: stored(desktop) == file_bytes(*entries))

    def row(self, window, name):
        return wait_for(f"the row {name!r}", lambda: [
            e for e in window.list.children
            if (e.role, e.name) == ("list item", name) and e.has("visible")])[0]

    def expect_focus(self, app, role, name):
        wait_for(lambda: f"the keyboard at {role} {name!r}; it is at {app.focused()!r}",
                 lambda: [(e.role, e.name) for e in [app.focused()] if e] == [(role, name)])

    def tab_to(self, app, role, name):
        app.s.key("Tab")
        self.expect_focus(app, role, name)

    def editor(self, app, language, kind):
        """The editor, once the keyboard is in its first field."""
        sheet = app.find("dialog", EDITORS[kind][language], timeout=30)
        self.expect_focus(app, "text", NAME[language])
        return sheet

    def open_editor(self, app, window, language, name=None):
        """For a new entry, or by its detail for the one of this name."""
        if name is None:
            window.list.find("push button", ADD[language]).click()
            return self.editor(app, language, "add")
        self.open_detail(app, window, language, name).find("push button", EDIT[language]).click()
        return self.editor(app, language, "edit")

    def open_detail(self, app, window, language, name):
        self.row(window, name).click()
        sheet = app.find("dialog", DETAILS[language])
        self.expect_focus(app, "push button", CLOSE[language])
        return sheet

    def wait_closed(self, app):
        app.gone("dialog")

    def open_panel(self, desktop, app):
        desktop.tray.wait().click()
        panel = Panel(app)
        panel.wait_for_keyboard()
        return panel

    def expect_panel(self, desktop, app, texts, rows):
        panel = self.open_panel(desktop, app)
        self.assertEqual((panel.texts(), panel.rows()), (texts, rows))
        desktop.key("Escape")
        panel.wait_closed()

    def type_lines(self, desktop, text):
        first, *others = text.split("\n")
        desktop.type(first)
        for line in others:
            desktop.key("Return")
            desktop.type(line)

    def fill(self, sheet, name, text):
        """Types over what is in the field, which may have to come into sight first."""
        field = sheet.find("text", name, hidden=True).do("SetFocus")
        self.expect_focus(field.app, "text", name)
        field.s.key("ctrl+a", "Delete")
        self.type_lines(field.s, text)
        wait_for(lambda: f"{text!r} in {field!r}",
                 lambda: field.text == text.replace("\n", "\u2029"))


def main(description):
    """Runs the tests of the program that the command line names."""
    if len(sys.argv) < 3:
        sys.exit(description)
    Entries.program, Entries.pictures = map(os.path.abspath, sys.argv[1:3])
    os.makedirs(Entries.pictures, exist_ok=True)
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]], verbosity=2)
