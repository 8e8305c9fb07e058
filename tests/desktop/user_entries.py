# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""Who uses Tovarin at random: adds, changes and deletes entries."""
import datetime
import re

from ledger import Drawn, Since, stamp
from session import wait_for
from sheets import Sheet
from user_program import ProgramUser
from words import (ACTIVE, ADD, AMOUNT, CANCEL, CATEGORY, CLOSE, COPY, CURRENCY, CYCLE, CYCLES,
                   DELETE, DELETE_THIS, DETAILS, EDIT, EDITORS, FIRST_CHARGE, NAME, NOTES,
                   ONE_TIME, PAUSE, PURCHASE, RECURRING, RESUME, SAVE)

CURRENCIES = ("CNY", "USD", "EUR", "HKD", "JPY", "GBP")
CATEGORIES = {"AI/工具": "AI & Tools", "影音": "Video", "音乐": "Music", "云存储": "Cloud",
              "软件": "Software", "游戏": "Games", "阅读": "Reading", "其他": "Other"}
AMOUNTS = {"1": 1, "15.49": 15.49, "299": 299, "0.5": 0.5, "1e2": 100, "1036.99": 1036.99,
           "7.20": 7.2, "123456789.99": 123456789.99}
TEXTS = ("", "one line", "第一行\nsecond\n\nlast", 'tab\there, "quoted" / \\', "🎬 备注")


def day_named(name):
    """The day that a button of the calendar is for; None if it is for none."""
    chinese = re.match(r"(\d+)年(\d+)月(\d+)日星期", name)
    if chinese:
        return datetime.date(*map(int, chinese.groups()))
    try:
        return datetime.datetime.strptime(name, "%A, %B %d, %Y").date()
    except ValueError:
        return None


class EntryUser(ProgramUser):
    def add_entry(self, way=None):
        self.say("add")
        opened = self.desktop.clock.now()
        self.press(self.in_head(ADD))
        sheet = Sheet(self.app, EDITORS["add"][self.language])
        entry = {"id": Drawn(), "currency": "CNY" if self.language == "zh" else "USD",
                 "billingType": "recurring", "cycle": "monthly", "category": "AI/工具",
                 "startDate": Since(opened), "isActive": True, "notes": ""}
        self.change(sheet, entry, ("name", "amount"))
        self.close_editor(sheet, entry, self.ledger.entries + [entry], way)

    def edit_entry(self, way=None):
        if not self.ledger.entries:
            return
        number = self.random.randrange(len(self.ledger.entries))
        entry = dict(self.ledger.entries[number])
        self.say(f"edit {entry['name']}")
        self.open_detail(entry).find("push button", EDIT[self.language]).do("Press")
        sheet = Sheet(self.app, EDITORS["edit"][self.language])
        if way is None and self.chance(0.1):
            sheet.find("push button", DELETE[self.language]).do("Press")
            self.ledger.entries = [e for e in self.ledger.entries if e["id"] != entry["id"]]
            self.rest()
            return
        self.change(sheet, entry, ())
        entries = list(self.ledger.entries)
        entries[number] = entry
        self.close_editor(sheet, entry, entries, way)

    def close_editor(self, sheet, entry, entries, way=None):
        """In this way, else in any; `entries` are there if it is saved."""
        way = way or self.choose_way("Save", "Save", "Return", "Cancel", "Escape")
        self.say(f"    {way}: {entry}")
        if way in ("Cancel", "Escape"):
            if way == "Cancel":
                self.press(sheet.find("push button", CANCEL[self.language]))
            else:
                self.desktop.key("Escape")
            self.rest()
            return
        if way == "Return":
            field = sheet.find("text", NAME[self.language], hidden=True).do("SetFocus")
            wait_for("the keyboard in the name", lambda: field.has("focused"))
            self.desktop.key("Return")
        else:
            self.press(sheet.find("push button", SAVE[self.language]))
        if way == "killed":
            # The file has the old list or the new one, whatever the program was at.
            self.app.kill()
            self.expect_gone()
            self.ledger.settle(entries)
            self.start()
        else:
            self.ledger.entries = entries
            self.rest()

    def change(self, sheet, entry, needed):
        """Changes these fields of the editor and some others, there and in the entry."""
        language = self.language
        fields = ("name", "amount", "currency", "category", "type", "cycle", "date", "active",
                  "notes")
        for field in [f for f in fields if f in needed or self.chance(0.3)]:
            if field == "name":
                entry["name"] = self.new_name()
                blanks = self.random.choice(("", "", " "))
                self.put(sheet.find("text", NAME[language], hidden=True),
                         blanks + entry["name"] + blanks)
            elif field == "amount":
                text = self.random.choice(list(AMOUNTS))
                entry["amount"] = AMOUNTS[text]
                self.put(sheet.find("text", AMOUNT[language], hidden=True), text)
            elif field == "currency":
                entry["currency"] = self.random.choice(CURRENCIES)
                self.choose_in(sheet.find("combo box", CURRENCY[language], hidden=True),
                               entry["currency"])
            elif field == "category":
                entry["category"] = self.random.choice(list(CATEGORIES))
                self.choose_in(sheet.find("combo box", CATEGORY[language], hidden=True),
                               entry["category"] if language == "zh"
                               else CATEGORIES[entry["category"]])
            elif field == "type":
                entry["billingType"] = self.random.choice(("recurring", "recurring", "oneTime"))
                words = ONE_TIME if entry["billingType"] == "oneTime" else RECURRING
                segment = sheet.find("radio button", words[language], hidden=True).do("Press")
                wait_for("the type", lambda: segment.has("checked"))
            elif field == "cycle" and entry["billingType"] == "recurring":
                entry["cycle"] = self.random.choice(list(CYCLES))
                self.choose_in(sheet.find("combo box", CYCLE[language], hidden=True),
                               CYCLES[entry["cycle"]][language])
            elif field == "date":
                self.change_day(sheet, entry)
            elif field == "active":
                entry["isActive"] = not entry["isActive"]
                switch = sheet.find("check box", ACTIVE[language], hidden=True).do("Toggle")
                wait_for("the switch", lambda: switch.has("checked") == entry["isActive"])
            elif field == "notes":
                entry["notes"] = self.random.choice(TEXTS)
                # A tab that is typed goes to the next field.
                notes = sheet.find("text", NOTES[language], hidden=True)
                notes.set_text(entry["notes"])

    def change_day(self, sheet, entry):
        words = PURCHASE if entry["billingType"] == "oneTime" else FIRST_CHARGE
        fold = sheet.find("push button", words[self.language], hidden=True).do("Press")
        days = []

        def look():
            days[:] = [(e, day_named(e.name)) for e in sheet.dialog.find_all(
                "push button", hidden=True) if day_named(e.name)]
            return len(days) == 42
        wait_for("the calendar", look)
        button, day = self.random.choice(days)
        button.do("Press")
        wait_for(f"{day} to be chosen",
                 lambda: fold.description == f"{day.year}/{day.month:02}/{day.day:02}")
        entry["startDate"] = stamp(day)

    def open_detail(self, entry):
        self.row(entry["name"]).do("Press")
        sheet = Sheet(self.app, DETAILS[self.language])
        sheet.find("push button", CLOSE[self.language])
        return sheet

    def use_detail(self):
        if not self.ledger.entries:
            return
        entry = self.random.choice(self.ledger.entries)
        sheet = self.open_detail(entry)
        self.say(f"look at {entry['name']}")
        if self.chance(0.5):
            before, after = (PAUSE, RESUME) if entry["isActive"] else (RESUME, PAUSE)
            self.press(sheet.find("push button", before[self.language]))
            entry["isActive"] = not entry["isActive"]
            sheet.find("push button", after[self.language])
            self.say(f"    turned to {entry['isActive']}")
            self.ledger.settle()
        if self.chance(0.3):
            self.press(sheet.find("push button", COPY[self.language]))
            wait_for("the copy", lambda: (self.desktop.clipboard() or "").startswith(
                entry["name"] + " "))
        if self.chance(0.5):
            self.desktop.key("Escape")
        else:
            self.press(sheet.find("push button", CLOSE[self.language]))
        self.rest()

    def delete_entry(self):
        if not self.ledger.entries:
            return
        entry = self.random.choice(self.ledger.entries)
        self.say(f"delete {entry['name']}")
        self.open_detail(entry).find("push button", DELETE_THIS[self.language], hidden=True) \
            .do("Press")
        self.ledger.entries = [e for e in self.ledger.entries if e["id"] != entry["id"]]
        self.rest()
