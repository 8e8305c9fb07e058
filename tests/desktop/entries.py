# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""What the tests of entries share: their file, their sheets, and how to use them."""
import datetime
import json
import os
import re
import zoneinfo

from main_window import BILLS, LOCALES, data_file, install_records, record, settled
from program_test import ProgramTest
from session import Session, wait_for
from words import ADD, CLOSE, DETAILS, EDIT, EDITORS, NAME, SCANNED_TEXT

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


def draft(sample, language):
    """What the file has of the sample in the end, if nobody changes it, but for the id."""
    with open(os.path.join(BILLS, sample + ".golden.json"), encoding="utf-8") as golden:
        read = json.load(golden)["draft"]
    day = datetime.datetime.fromisoformat(read["startDate"])
    start = day.replace(tzinfo=zoneinfo.ZoneInfo("Asia/Shanghai")).astimezone(datetime.timezone.utc)
    read["startDate"] = start.strftime("%Y-%m-%dT%H:%M:%SZ")
    read["notes"] = SCANNED_TEXT[language] + "\n" + read["notes"][1]
    del read["serviceID"]
    return read


class Entries(ProgramTest):
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
