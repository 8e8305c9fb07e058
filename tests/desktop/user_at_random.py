# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""Somebody who uses Tovarin at random, by its accessibility tree, the mouse and the keyboard, and
keeps a ledger of what must come of it."""
import datetime
import json
import os
import re
import shutil

from entries import (ACTIVE, ADD, AMOUNT, CANCEL, CATEGORY, CLOSE, COPY, CURRENCY, CYCLE, DELETE,
                     DELETE_THIS, DETAILS, EDIT, EDITORS, FIRST_CHARGE, NAME, NOTES, ONE_TIME,
                     PAUSE, PURCHASE, RECURRING, RESUME, SAVE)
from ledger import Drawn, Ledger, Since, stamp
from main_window import LIST_NAMES, TITLES, Panel
from processes import children, running
from session import wait_for
from sheets import (CONFIRM, OPEN, PICK, QUICK_PICK_BUTTON, REVIEW, SETTINGS, SETTINGS_BUTTON,
                    Sheet)
from test_picks import CONTINUE, GLOBAL, SKIP
from test_review import BILLS, add
from test_review import NOTES as SCANNED
from test_scan import CHOOSE, NOTHING, SCAN
from test_settings import DAY_NAMES, DAYS, LANGUAGE, OWN_NAMES, QUICK_PICK, SEND, SENT, SYSTEM
from test_shell import MENU_HIDE, MENU_QUIT, QUIT

COUNTS_OF_DAYS = (0, 1, 2, 3, 5, 7)
CURRENCIES = ("CNY", "USD", "EUR", "HKD", "JPY", "GBP")
CATEGORIES = {"AI/工具": "AI & Tools", "影音": "Video", "音乐": "Music", "云存储": "Cloud",
              "软件": "Software", "游戏": "Games", "阅读": "Reading", "其他": "Other"}
CYCLES = {"weekly": {"en": "Weekly", "zh": "每周"}, "monthly": {"en": "Monthly", "zh": "每月"},
          "quarterly": {"en": "Quarterly", "zh": "每季"}, "yearly": {"en": "Yearly", "zh": "每年"}}
WORDS = ("晨报", "Editor/Pro", 'The "Post"', "健身房 Plus", "Backup & Co", "Ω plan", "back\\slash")
AMOUNTS = {"1": 1, "15.49": 15.49, "299": 299, "0.5": 0.5, "1e2": 100, "1036.99": 1036.99,
           "7.20": 7.2, "123456789.99": 123456789.99}
TEXTS = ("", "one line", "第一行\nsecond\n\nlast", 'tab\there, "quoted" / \\', "🎬 备注")

# Some of the catalog, in its order: region, id, names, category, currency, amount.
SERVICES = (
    ("china", "iqiyi", {"en": "iQIYI VIP", "zh": "爱奇艺 VIP"}, "影音", "CNY", 30),
    ("china", "weread", {"en": "WeRead VIP", "zh": "微信读书 VIP"}, "阅读", "CNY", 19),
    ("china", "wps", {"en": "WPS Premium", "zh": "WPS 超级会员"}, "软件", "CNY", 15),
    ("global", "disney", {"en": "Disney+", "zh": "Disney+"}, "影音", "USD", 13.99),
    ("global", "setapp", {"en": "Setapp", "zh": "Setapp"}, "软件", "USD", 9.99),
    ("global", "nordvpn", {"en": "NordVPN", "zh": "NordVPN"}, "软件", "USD", 12.99),
)
QUICKLY = {"en": "Quick pick", "zh": "快速添加"}

# Most of them take no time to be read; the last two take about a second.
READABLE = ("pdf/text-layer-chinese.pdf", "pdf/text-layer-english.pdf", "pdf/text-layer-phone.pdf",
            "pdf/text-layer-two-pages.pdf", "pdf/browser-receipt.pdf", "clean/message-1x.png",
            "clean/payment-result-1x.png")
BROKEN = ("hazards/corrupted.png", "hazards/cut-in-the-middle.png", "hazards/empty.png",
          "pdf/cut-in-the-middle.pdf", "pdf/no-pages.pdf", "pdf/password-needed.pdf",
          "pdf/blank-page.pdf", "pdf/page-tree-in-a-circle.pdf")


def day_named(name):
    """The day that a button of the calendar is for; None if it is for none."""
    chinese = re.match(r"(\d+)年(\d+)月(\d+)日星期", name)
    if chinese:
        return datetime.date(*map(int, chinese.groups()))
    try:
        return datetime.datetime.strptime(name, "%A, %B %d, %Y").date()
    except ValueError:
        return None


class User:
    # So many entries at the most, before some are deleted.
    MOST_ENTRIES = 8

    def __init__(self, desktop, programs, random, system, say):
        """`programs`: Tovarin, the scanner and the notifier; `system`: the language of the session;
        `say`: told what happens."""
        self.desktop, self.random, self.system, self.say = desktop, random, system, say
        self.program, *self.others = programs
        self.ledger = Ledger(desktop)
        self.language = self.title_language = system
        self.choice, self.days = "system", 3
        self.count = self.tests_sent = 0
        self.may_be_killed = True
        self.app = None
        self.started = []

    # -- little things

    def chance(self, probability):
        return self.random.random() < probability

    def choose_way(self, *ways):
        return self.random.choice((*ways, "killed") if self.may_be_killed else ways)

    def find(self, role, words, **which):
        return self.app.find(role, words[self.language], **which)

    def press(self, element):
        if self.chance(0.3):
            wait_for(f"{element!r} to be clicked", element.click)
        else:
            element.do("Press")

    def new_name(self):
        self.count += 1
        return f"{self.random.choice(WORDS)} {self.count}"

    def put(self, field, text):
        """By a screen reader's way, or typed."""
        if self.chance(0.7):
            field.set_text(text)
        else:
            field.do("SetFocus")
            wait_for(f"the keyboard in {field!r}", lambda: field.has("focused"))
            self.desktop.key("ctrl+a", "Delete")
            first, *others = text.split("\n")
            self.desktop.type(first)
            for line in others:
                self.desktop.key("Return")
                self.desktop.type(line)
        wait_for(lambda: f"{text!r} in {field!r}, not {field.text!r}",
                 lambda: field.text == text.replace("\n", "\u2029"))

    def choose_in(self, box, line):
        box.do("Press")
        self.app.find("list item", line).do("Press")
        self.app.gone("list item", line)
        wait_for(f"{line} in {box!r}", lambda: box.description == line)

    def list(self):
        return self.app.find("list", LIST_NAMES[self.language], timeout=20)

    def in_head(self, words):
        """A button above the rows, which may have to be scrolled back to."""
        element = self.list()
        for _ in range(10):
            found = element.find_all("push button", words[self.language])
            if found and found[0].rect[1] >= element.rect[1]:
                return found[0]
            element.scroll(-10)
            element._still()
        raise AssertionError(f"no {words} in {element.tree()}")

    def row(self, name):
        """The row of an entry, which may have to be scrolled to."""
        element = self.list()
        for notches in (2, -2):
            for _ in range(20):
                for child in element.children:
                    if (child.role, child.name) == ("list item", name) and child.has("visible"):
                        return child
                element.scroll(notches)
                element._still()
        raise AssertionError(f"no row {name!r} in {element.tree()}")

    def rest(self):
        """No sheet is open, and the file and the window hold what they must."""
        self.app.gone("dialog", timeout=10)
        self.ledger.settle()

    # -- coming and going

    def start(self, *files):
        self.title_language = self.language = \
            self.system if self.choice == "system" else self.choice
        self.app = self.desktop.start([self.program, *files])
        self.started.append(self.app)
        self.app.find("frame", TITLES[self.title_language], timeout=60)
        self.list()
        self.app.wait_window(TITLES[self.title_language], timeout=30)

    def call(self):
        """Starts the program once more, which leaves everything to the first."""
        second = self.desktop.start([self.program])
        self.started.append(second)
        assert second.wait(30) == 0

    def expect_gone(self):
        """Nothing is left of the program but, perhaps, the notifier."""
        wait_for("the end of all scanners", lambda: not running(
            self.desktop, [self.program, self.others[0]]), 10)
        assert self.app.log() == "", self.app.log()

    def expect_quit(self):
        code = self.app.wait(30)
        assert code == 0, code
        self.expect_gone()
        self.ledger.settle()

    def quit(self):
        way = self.random.choice(("key", "menu", "panel"))
        self.say(f"quit by {way}")
        if way == "key":
            self.desktop.key("ctrl+q")
        elif way == "menu":
            self.choose_in_menu(MENU_QUIT)
        else:
            self.open_panel().button(QUIT[self.language]).do("Press")
        self.expect_quit()

    def kill(self):
        self.say("killed")
        self.app.kill()
        self.expect_gone()
        self.ledger.settle()

    def choose_in_menu(self, words):
        """The menu has the language of the start."""
        self.app.find("menu bar", "Tovarin").do("Press")
        self.app.find("menu item", words[self.title_language]).do("Press")

    def open_panel(self):
        self.desktop.tray.wait(20).click()
        panel = Panel(self.app)
        panel.wait_for_keyboard()
        return panel

    # -- what can be done; each ends at rest

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

    def quick_pick(self):
        self.say("quick pick")
        if self.chance(0.2):
            self.find("push button", SETTINGS_BUTTON).do("Press")
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
                            "notes": QUICKLY[language], "serviceID": identifier})
        if way == "back":
            self.desktop.key("Escape")
        else:
            self.say(f"    add {len(entries)}")
            self.press(sheet.find("push button", add(language, len(entries))))
            self.ledger.entries = self.ledger.entries + entries
        self.rest()

    def change_settings(self):
        self.find("push button", SETTINGS_BUTTON).do("Press")
        sheet = Sheet(self.app, SETTINGS[self.language])
        assert sheet.chosen(DAYS[self.language]) == [
            DAY_NAMES[self.language][COUNTS_OF_DAYS.index(self.days)]]
        if self.chance(0.6):
            self.choice = self.random.choice(("system", "en", "zh"))
            sheet = self.choose_language(sheet)
        if self.chance(0.6):
            self.days = self.random.choice(COUNTS_OF_DAYS)
            self.choose_days(sheet)
        if self.chance(0.2):
            button = sheet.find("push button", re.compile(
                f"^({re.escape(SEND[self.language])}|{re.escape(SENT[self.language])})$"))
            button.do("Press")
            self.tests_sent += 1
            # A change of the entries would take it back, with all that is pending.
            self.expect_tests()
        self.say(f"settings: {self.choice}, {self.days} days, {self.tests_sent} tests")
        self.close_settings(sheet)

    def expect_tests(self):
        """As many test notifications have come as were asked for."""
        arrived = self.desktop.notifications.all
        wait_for(lambda: f"{self.tests_sent} notifications, not {len(arrived)}",
                 lambda: len(arrived) == self.tests_sent, 15)

    def choose_language(self, sheet):
        names = {**OWN_NAMES, "system": SYSTEM[self.language]}
        sheet.find("radio button", names[self.choice]).do("Press")
        self.language = self.system if self.choice == "system" else self.choice
        sheet = Sheet(self.app, SETTINGS[self.language])
        name = {**OWN_NAMES, "system": SYSTEM[self.language]}[self.choice]
        wait_for("the language", lambda: sheet.chosen(LANGUAGE[self.language]) == [name])
        return sheet

    def choose_days(self, sheet):
        name = DAY_NAMES[self.language][COUNTS_OF_DAYS.index(self.days)]
        sheet.find("panel", DAYS[self.language]).find("radio button", name).do("Press")
        wait_for("the days", lambda: sheet.chosen(DAYS[self.language]) == [name])

    def close_settings(self, sheet):
        if self.chance(0.5):
            self.desktop.key("Escape")
        else:
            sheet.find("push button", CLOSE[self.language]).do("Press")
        self.rest()

    def use_panel(self):
        self.say("panel")
        panel = self.open_panel()
        ending = {"en": f" · {self.ledger.active()} active",
                  "zh": f" · 进行中 {self.ledger.active()} 个"}[self.language]
        assert panel.texts()[3].endswith(ending), (panel.texts(), self.ledger.entries)
        if self.chance(0.5):
            self.desktop.key("Escape")
        else:
            self.desktop.tray.wait().click()
        self.rest()

    def hide_and_return(self):
        """With or without a sheet, which is still there then."""
        sheet = None
        if self.chance(0.3):
            self.in_head(ADD).do("Press")
            sheet = Sheet(self.app, EDITORS["add"][self.language])
            sheet.find("text", NAME[self.language]).set_text("half")
        away = self.random.choice(("close", "hide", "menu"))
        back = self.random.choice(("start", "call", "panel"))
        if sheet and away == "menu":
            away = "hide"
        self.say(f"{away}, and back by {back}" + (" with a sheet" if sheet else ""))
        if away == "close":
            self.desktop.close_window()
        elif away == "hide":
            self.desktop.key("ctrl+h")
        else:
            self.choose_in_menu(MENU_HIDE)
        wait_for("no window in sight", lambda: not self.app.windows())
        if back == "start":
            self.call()
        elif back == "call":
            self.desktop.bus.call("app.tovarin.Tovarin", "/app/tovarin/Tovarin",
                                  "org.freedesktop.Application", "Activate", "(a{sv})", {})
        else:
            panel = self.open_panel()
            panel.button(OPEN[self.language]).do("Press")
            panel.wait_closed()
        self.app.wait_window(TITLES[self.title_language], timeout=20)
        if sheet:
            sheet = Sheet(self.app, EDITORS["add"][self.language])
            assert sheet.find("text", NAME[self.language]).text == "half"
            self.desktop.key("Escape")
        self.rest()

    def scroll(self):
        element = self.list()
        element.scroll(self.random.choice((3, 10)))
        element._still()

    # -- bills

    def scan(self, way=None, samples=()):
        way = way or self.choose_way("start", "start", "panel", "panel", "cancelled panel")
        samples = list(samples) or [self.random.choice(READABLE if self.chance(0.7) else BROKEN)
                                    for _ in range(self.random.choice((1, 1, 2, 3)))]
        # More than one are not typed.
        if "panel" in way:
            samples = samples[:1]
        # What says that nothing was found stands beside the button, and may do so from before.
        self.in_head(SCAN)
        if self.app.find_all("label", NOTHING[self.language]) and \
                all(sample in BROKEN for sample in samples):
            samples[0] = READABLE[0]
        folder = os.path.join(self.desktop.home, "bills")
        os.makedirs(folder, exist_ok=True)
        bills = []
        for number, sample in enumerate(samples):
            bills.append(f"{folder}/{number}-{os.path.basename(sample)}")
            shutil.copyfile(os.path.join(BILLS, sample), bills[-1])
        self.say(f"scan {samples} by {way}")
        begun = self.desktop.clock.now()
        if "panel" in way:
            self.in_head(SCAN).do("Press")
            dialog = self.app.find("dialog", CHOOSE[self.language], timeout=20)
            field = dialog.find("text", where=lambda e: e.has("focused"))
            if way == "cancelled panel":
                self.desktop.key("Escape")
                self.rest()
                return
            self.desktop.type(bills[0])
            wait_for(lambda: f"{bills[0]!r}, not {field.text!r}", lambda: field.text == bills[0])
            self.desktop.key("Return")
            self.app.gone("dialog", CHOOSE[self.language])
        else:
            second = self.desktop.start([self.program, *bills])
            self.started.append(second)
            assert second.wait(30) == 0
            if way == "killed":
                self.kill()
                self.start()
                return
        self.take(samples, begun)

    def take(self, samples, begun):
        """Looks through what was found."""
        drafts = [draft for draft in (self.draft(sample, begun) for sample in samples) if draft]
        self.say(f"    found {[draft['name'] for draft in drafts]}")
        if not drafts:
            self.app.find("label", NOTHING[self.language], timeout=60)
            self.find("push button", SCAN)
            self.rest()
        elif len(drafts) == 1:
            sheet = Sheet(self.app, EDITORS["scan"][self.language])
            needed = ("name",) if drafts[0]["name"] in self.ledger.names() else ()
            self.change(sheet, drafts[0], needed)
            self.close_editor(sheet, drafts[0], self.ledger.entries + drafts)
        else:
            self.review(Sheet(self.app, REVIEW[self.language]), drafts)

    def draft(self, sample, begun):
        """What the file will have of the sample, if it can be read."""
        with open(os.path.join(BILLS, sample + ".golden.json"), encoding="utf-8") as golden:
            read = json.load(golden)
        if read is None:
            return None
        draft = dict(read["draft"], id=Drawn())
        assert draft.pop("serviceID") is None
        draft["notes"] = SCANNED[self.language] + "\n" + draft["notes"][1]
        draft["startDate"] = Since(begun) if draft["startDate"] == "now" else \
            stamp(datetime.date.fromisoformat(draft["startDate"]))
        return draft

    def review(self, sheet, drafts):
        rows = [row for row in sheet.find("list", REVIEW[self.language]).children
                if row.role == "list item"]
        assert len(rows) == len(drafts), (rows, drafts)
        taken, kept = self.ledger.names(), []
        for row, draft in zip(rows, drafts):
            if self.chance(0.2):
                box = row.find("check box", hidden=True).do("Toggle")
                wait_for("no tick", lambda: not box.has("checked"))
                continue
            if draft["name"] in taken or self.chance(0.2):
                draft["name"] = self.new_name()
                self.put(row.find("text", NAME[self.language], hidden=True), draft["name"])
            if self.chance(0.2):
                draft["amount"] = 7.5
                self.put(row.find("text", AMOUNT[self.language], hidden=True), "7.5")
            taken.append(draft["name"])
            kept.append(draft)
        if kept and self.chance(0.7):
            self.say(f"    add {[draft['name'] for draft in kept]}")
            self.press(sheet.find("push button", add(self.language, len(kept))))
            self.ledger.entries = self.ledger.entries + kept
        elif self.chance(0.5):
            self.desktop.key("Escape")
        else:
            self.press(sheet.find("push button", CANCEL[self.language]))
        self.rest()

    # -- the whole

    # Those that are chosen from, and how often.
    ACTIONS = ((add_entry, 4), (edit_entry, 4), (use_detail, 3), (delete_entry, 2),
               (quick_pick, 2), (change_settings, 2), (use_panel, 2), (hide_and_return, 2),
               (scan, 3), (scroll, 1))

    def act(self):
        """Does one thing."""
        if len(self.ledger.entries) > self.MOST_ENTRIES:
            self.delete_entry()
            return
        actions, weights = zip(*self.ACTIONS)
        self.random.choices(actions, weights)[0](self)

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
            self.find("push button", SETTINGS_BUTTON).do("Press")
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
