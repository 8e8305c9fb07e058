# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""Somebody who uses Tovarin at random, by its accessibility tree, the mouse and the keyboard, and
keeps a ledger of what must come of it."""
from ledger import Drawn, Since
from processes import children
from session import wait_for
from sheets import Sheet
from user_bills import READABLE, BillUser
from words import (ADD, CONFIRM, CONTINUE, GLOBAL, PICK, PICK_NOTES, QUICK_PICK,
                   QUICK_PICK_BUTTON, SETTINGS, SKIP, add)

# Some of the catalog, in its order: region, id, names, category, currency, amount.
SERVICES = (
    ("china", "iqiyi", {"en": "iQIYI VIP", "zh": "爱奇艺 VIP"}, "影音", "CNY", 30),
    ("china", "weread", {"en": "WeRead VIP", "zh": "微信读书 VIP"}, "阅读", "CNY", 19),
    ("china", "wps", {"en": "WPS Premium", "zh": "WPS 超级会员"}, "软件", "CNY", 15),
    ("global", "disney", {"en": "Disney+", "zh": "Disney+"}, "影音", "USD", 13.99),
    ("global", "setapp", {"en": "Setapp", "zh": "Setapp"}, "软件", "USD", 9.99),
    ("global", "nordvpn", {"en": "NordVPN", "zh": "NordVPN"}, "软件", "USD", 12.99),
)


class User(BillUser):
    # So many entries at the most, before some are deleted.
    MOST_ENTRIES = 8

    def quick_pick(self):
        self.say("quick pick")
        if self.chance(0.2):
            self.find("push button", SETTINGS).do("Press")
            Sheet(self.app, SETTINGS[self.language]).find(
                "push button", QUICK_PICK[self.language]).do("Press")
        else:
            self.press(self.in_head(QUICK_PICK_BUTTON))
        self.pick(Sheet(self.app, PICK[self.language]))

    def pick(self, sheet, way=None):
        """Ticks some services in the sheet that is open, and adds them or not."""
        language, opened = self.language, self.desktop.clock.now()
        stored = [name.lower() for name in self.ledger.names()]
        free = [s for s in SERVICES if not any(s[2][language].lower() in name for name in stored)]
        chosen = [s for s in free if way == "add" or self.chance(0.3)]
        region = "china"
        for service in chosen:
            if service[0] != region:
                region = service[0]
                sheet.find("radio button", GLOBAL[language]).do("Press")
            cell = sheet.find("check box", service[2][language], hidden=True)
            cell.do("Toggle")
            wait_for(f"the tick of {service[1]}", lambda: cell.has("checked"))
        self.say(f"    ticked {[s[1] for s in chosen]}")
        way = way or self.random.choice(("add", "add", "add", "skip", "Escape", "back"))
        if not chosen or way in ("skip", "Escape"):
            if way == "Escape":
                self.desktop.key("Escape")
            else:
                self.press(sheet.find("push button", SKIP[language]))
            self.rest()
            return
        sheet.find("push button", CONTINUE[language]).do("Press")
        sheet = Sheet(self.app, CONFIRM[language])
        entries = []
        for _, identifier, names, category, currency, amount in chosen:
            if self.chance(0.3):
                text = self.random.choice(("12.5", "40"))
                amount = float(text) if "." in text else int(text)
                sheet.find("list item", names[language], hidden=True).find(
                    "text", names[language], hidden=True).set_text(text)
            entries.append({"id": Drawn(), "name": names[language], "amount": amount,
                            "currency": currency, "billingType": "recurring", "cycle": "monthly",
                            "category": category, "startDate": Since(opened), "isActive": True,
                            "notes": PICK_NOTES[language], "serviceID": identifier})
        if way == "back":
            self.desktop.key("Escape")
        else:
            self.say(f"    add {len(entries)}")
            self.press(sheet.find("push button", add(language, len(entries))))
            self.ledger.entries = self.ledger.entries + entries
        self.rest()

    # Those that are chosen from, and how often.
    ACTIONS = {"add_entry": 4, "edit_entry": 4, "use_detail": 3, "delete_entry": 2, "quick_pick": 2,
               "change_settings": 2, "use_panel": 2, "hide_and_return": 2, "scan": 3, "scroll": 1}

    def act(self):
        """Does one thing."""
        if len(self.ledger.entries) > self.MOST_ENTRIES:
            self.delete_entry()
            return
        action, = self.random.choices(list(self.ACTIONS), self.ACTIONS.values())
        getattr(self, action)()

    def tour(self):
        """Does each thing once, in a way that shows all there is of it."""
        self.add_entry("Save")
        self.edit_entry("Return")
        self.use_detail()
        self.change_settings()
        self.use_panel()
        self.scan("panel", (READABLE[0],))
        self.scan("start", (READABLE[1], READABLE[2]))
        self.hide_and_return()

    def come_to_the_same(self, count):
        """The state in which lives are compared: the first language, three days, as many entries,
        the head of the list in sight."""
        self.say("come to the same")
        if (self.choice, self.days) != ("system", 3):
            self.find("push button", SETTINGS).do("Press")
            sheet = Sheet(self.app, SETTINGS[self.language])
            self.choice, self.days = "system", 3
            sheet = self.choose_language(sheet)
            self.choose_days(sheet)
            self.close_settings(sheet)
        while len(self.ledger.entries) > count:
            self.delete_entry()
        while len(self.ledger.entries) < count:
            self.add_entry("Save")
        self.in_head(ADD)
        self.list().find("label", {"en": f"{count} items", "zh": f"{count} 项"}[self.language],
                         hidden=True)
        wait_for("no child", lambda: not children(self.app.pid), 10)
