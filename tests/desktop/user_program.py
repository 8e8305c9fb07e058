# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""Who uses Tovarin at random: starts and ends it, its window, its panel, its settings."""
import re

from ledger import Ledger
from main_window import LIST_NAMES, TITLES, Panel
from processes import running
from session import wait_for
from sheets import Sheet
from words import (ADD, CLOSE, DAYS, DAY_NAMES, EDITORS, LANGUAGE, MENU_HIDE, MENU_QUIT, NAME,
                   OPEN, OWN_NAMES, QUIT, SEND_TEST, SENT, SETTINGS, SYSTEM)

COUNTS_OF_DAYS = (0, 1, 2, 3, 5, 7)
WORDS = ("晨报", "Editor/Pro", 'The "Post"', "健身房 Plus", "Backup & Co", "Ω plan", "back\\slash")


class ProgramUser:
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

    def change_settings(self):
        self.find("push button", SETTINGS).do("Press")
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
                f"^({re.escape(SEND_TEST[self.language])}|{re.escape(SENT[self.language])})$"))
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
