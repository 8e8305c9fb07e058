#!/usr/bin/python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""test_shell.py PROGRAM PICTURES: lives in Tovarin as a user does: closes and hides its window and
brings it back, starts it twice, and quits it in every way. Leaves pictures of the window and the
panel in the folder PICTURES.
"""
import glob
import os
import re
import shutil
import time

from main_window import (BILLS, LOCALES, SAMPLE, TITLES, MainWindow, configure, data_file,
                         install, install_records, record)
from program_test import MOST_SECONDS_TO_QUIT, main
from session import Tray, wait_for
from shell import CHARGES, TOOLTIPS, Shell, session
from words import (ADD, CHOOSE, EDIT, EDITORS, EMPTY_HEAD, MENU_ALL, MENU_CUT, MENU_HIDE,
                   MENU_PASTE, MENU_QUIT, NAME, OPEN, QUIT, SCAN)

SCANNING_OF_30 = {"en": re.compile("^Scanning [0-9]/30$"), "zh": re.compile("^识别中 [0-9]/30$")}
IDLE_SECONDS = 10
# Qt tidies its cache of fonts up three times, 10 s apart, before it sleeps for good.
MOST_WAKINGS = 2

SIX_UPCOMING = {
    "en": [["First", "Charged today", "¥10"], ["Second", "in 1 days", "¥11"],
           ["Third", "in 2 days", "$4.50"], ["Fourth", "in 3 days", "¥13"],
           ["Fifth", "in 4 days", "¥14"], ["Sixth", "in 7 days", "¥16"]],
    "zh": [["First", "今天扣费", "¥10"], ["Second", "1 天后扣费", "¥11"],
           ["Third", "2 天后扣费", "$4.50"], ["Fourth", "3 天后扣费", "¥13"],
           ["Fifth", "4 天后扣费", "¥14"], ["Sixth", "7 天后扣费", "¥16"]],
}


class Starts(Shell):
    def test_first_start_then_another_with_records(self):
        for language in LOCALES:
            with self.subTest(language), session(language) as desktop:
                app, window = self.start(desktop, language)
                self.assertEqual(window.head(), EMPTY_HEAD[language])
                self.assertIsNone(window.upcoming())
                self.end(desktop, app, language)

                install_records(desktop, CHARGES)
                app, window = self.start(desktop, language)
                self.assertEqual(window.head()[:9], {
                    "en": ["[ MONTHLY SPEND ]", "$152.28", "LOCAL DATA · CNY", "Yearly",
                           "$1827.33", "Active", "7", "Due in 7d", "6"],
                    "zh": ["[ 每月订阅支出 ]", "¥1096.40", "本地数据 · CNY", "每年支出",
                           "¥13156.80", "进行中", "7", "近 7 天待扣", "6"]}[language])
                self.assertEqual(window.upcoming(), SIX_UPCOMING[language])
                window.list.scroll_to("label", {"en": "8 items", "zh": "8 项"}[language])
                self.end(desktop, app, language)

    def test_follows_the_language_setting_at_the_next_start(self):
        for language, setting in (("en", "zh"), ("zh", "en")):
            with self.subTest(setting), \
                    session(language, lambda s: configure(s, appLanguage=setting)) as desktop:
                app, window = self.start(desktop, setting)
                self.assertEqual(window.head(), EMPTY_HEAD[setting])
                self.assertEqual(desktop.tray.wait().tooltip, TOOLTIPS[setting])
                self.assertEqual([menu.name for menu in app.find_all("menu bar")
                                  if menu.name], ["Tovarin", EDIT[setting]])
                self.choose_in_menu(app, "Tovarin", MENU_HIDE[setting])
                self.wait_unseen(app)
                self.open_panel(desktop, app).button(OPEN[setting]).click()
                self.end(desktop, app, setting)


class Comings(Shell):
    """How the window goes and comes back."""

    def start_again(self, desktop, *arguments):
        """A second start, which leaves everything to the first."""
        second = desktop.start([self.program, *arguments])
        self.assertEqual(second.wait(MOST_SECONDS_TO_QUIT), 0)
        self.assertEqual(second.log(), "")

    def place(self, app, language):
        """Where the window stands and what it shows of the list."""
        window = MainWindow(app, language)
        app.wait_window(TITLES[language])
        rows = [(row.name, row.rect) for row in window.list.children
                if row.role == "list item" and row.has("visible")]
        return window.frame.rect, list(app.windows().values()), rows

    def move(self, desktop, app, language, x, y, width, height):
        number, = app.windows()
        desktop.xdotool("windowsize", "--sync", number, width, height)
        desktop.xdotool("windowmove", "--sync", number, x, y)
        frame = app.wait_window(TITLES[language])
        self.assertEqual(frame.rect[2:], (width, height))

    def test_closed_comes_back_as_it_was(self):
        for language in LOCALES:
            with self.subTest(language), \
                    session(language, lambda s: install(s, SAMPLE)) as desktop:
                app, window = self.start(desktop, language)
                self.move(desktop, app, language, 37, 61, 801, 523)
                top = self.place(app, language)
                window.list.scroll(2)
                window.list._still()
                before = self.place(app, language)
                self.assertNotEqual(before[2], top[2], "it was scrolled")
                desktop.close_window()
                self.wait_unseen(app)
                panel = self.open_panel(desktop, app)
                panel.button(OPEN[language]).click()
                panel.wait_closed()
                self.assertEqual(self.place(app, language), before)

                self.end(desktop, app, language)
                app, window = self.start(desktop, language)
                self.assertEqual(self.place(app, language)[:2], before[:2])
                self.end(desktop, app, language)

    def test_hidden_comes_back_at_every_call(self):
        for language in LOCALES:
            with self.subTest(language), session(language) as desktop:
                self.hide_and_call(desktop, language)

    def hide_and_call(self, desktop, language):
        app, _ = self.start(desktop, language)
        before = self.place(app, language)
        for hide in (lambda: desktop.key("ctrl+h"),
                     lambda: self.choose_in_menu(app, "Tovarin", MENU_HIDE[language]),
                     desktop.close_window):
            for call in (lambda: self.start_again(desktop),
                         lambda: desktop.bus.call(
                             "app.tovarin.Tovarin", "/app/tovarin/Tovarin",
                             "org.freedesktop.Application", "Activate", "(a{sv})", {})):
                hide()
                self.wait_unseen(app)
                self.assertTrue(app.running())
                call()
                self.assertEqual(self.place(app, language), before)
        # Also when it is in sight already, but not in front.
        call()
        self.assertEqual(self.place(app, language), before)
        self.end(desktop, app, language)

    def test_two_starts_in_one_moment_are_one_program(self):
        with session("en") as desktop:
            both = [desktop.start([self.program]) for _ in range(2)]
            wait_for("one of them to end", lambda: [a for a in both if not a.running()], 15)
            second, = [app for app in both if not app.running()]
            app, = [app for app in both if app.running()]
            self.assertEqual(second.wait(), 0)
            self.assertEqual(second.log(), "")
            MainWindow(app, "en")
            self.end(desktop, app, "en")

    def test_without_a_bus_a_second_start_says_why_it_ends(self):
        with session("en", a11y=False, tray="none") as desktop:
            command = ["env", "-u", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR=" + desktop.home,
                       self.program]
            app = desktop.start(command)
            wait_for("the window", lambda: desktop.active_window() == TITLES["en"], 15)
            second = desktop.start(command)
            self.assertEqual(second.wait(), 1)
            self.assertEqual(second.log(), "Tovarin is already running, and without a session bus "
                                           "it cannot be brought to the front.\n")
            self.assertTrue(app.running())
            since = time.monotonic()
            desktop.key("ctrl+q")
            self.expect_end(app, since)

    def test_a_frame_on_a_screen_that_is_gone_comes_back_whole(self):
        for language in LOCALES:
            with session(language) as desktop:
                for saved, expected in (("5000 3000 800 500 normal", (480, 400, 800, 500)),
                                        ("-3000 100 800 500 normal", (0, 100, 800, 500)),
                                        ("4000 0 3000 2000 normal", (0, 30, 1280, 870))):
                    with self.subTest(saved, language=language):
                        configure(desktop, TovarinMainWindow__frame=saved)
                        app, window = self.start(desktop, language)
                        self.assertEqual(window.frame.rect, expected)
                        self.end(desktop, app, language)


class Menus(Shell):
    def test_edit_what_is_typed_in_a_sheet(self):
        for language in LOCALES:
            with self.subTest(language), session(language) as desktop:
                app, window = self.start(desktop, language)
                window.frame.find("push button", ADD[language]).click()
                name = app.find("dialog", EDITORS["add"][language]).find("text", NAME[language])
                name.fill("Typed")
                self.choose_in_menu(app, EDIT[language], MENU_ALL[language])
                self.choose_in_menu(app, EDIT[language], MENU_CUT[language])
                wait_for("an empty field", lambda: name.text == "")
                self.choose_in_menu(app, EDIT[language], MENU_PASTE[language])
                wait_for("what was cut", lambda: name.text == "Typed")
                self.picture(desktop, f"window-sheet-{language}.png")
                self.choose_in_menu(app, "Tovarin", MENU_HIDE[language])
                self.wait_unseen(app)
                self.open_panel(desktop, app).button(OPEN[language]).click()
                app.wait_window(TITLES[language])
                desktop.type("!")
                wait_for("the keyboard where it was", lambda: name.text == "Typed!")
                since = time.monotonic()
                self.choose_in_menu(app, "Tovarin", MENU_QUIT[language])
                self.expect_end(app, since)


class Ends(Shell):
    """Quitting, whatever is open."""

    def test_by_the_menu(self):
        for language in LOCALES:
            with self.subTest(language), session(language) as desktop:
                app, _ = self.start(desktop, language)
                app.find("menu bar", "Tovarin").click()
                item = app.find("menu item", MENU_QUIT[language])
                since = time.monotonic()
                desktop.click(*item.center())
                self.expect_end(app, since)

    def test_while_the_window_is_closed(self):
        for language in LOCALES:
            with self.subTest(language), session(language) as desktop:
                app, _ = self.start(desktop, language)
                desktop.close_window()
                panel = self.open_panel(desktop, app)
                since = time.monotonic()
                panel.button(QUIT[language]).click()
                self.expect_end(app, since)

    def test_by_the_key_in_the_panel(self):
        for language in LOCALES:
            with self.subTest(language), session(language) as desktop:
                for close in (False, True):
                    app, _ = self.start(desktop, language)
                    if close:
                        desktop.close_window()
                        self.wait_unseen(app)
                    self.open_panel(desktop, app)
                    since = time.monotonic()
                    desktop.key("ctrl+q")
                    self.expect_end(app, since)

    def test_while_the_file_dialog_is_open(self):
        for language in LOCALES:
            with self.subTest(language), session(language) as desktop:
                app, window = self.start(desktop, language)
                window.frame.find("push button", SCAN[language]).click()
                app.find("dialog", CHOOSE[language])
                panel = self.open_panel(desktop, app)
                since = time.monotonic()
                panel.button(QUIT[language]).click()
                self.expect_end(app, since)

    def test_while_bills_are_read(self):
        for language in LOCALES:
            with self.subTest(language), session(language) as desktop:
                bills = []
                for number in range(30):
                    bills.append(os.path.join(desktop.home, f"bill {number}.png"))
                    shutil.copyfile(os.path.join(BILLS, "clean/purchase-history-2x.png"),
                                    bills[-1])
                app = desktop.start([self.program, *bills])
                window = MainWindow(app, language)
                app.wait_window(TITLES[language])
                window.frame.find("push button", SCANNING_OF_30[language], timeout=20)
                since = time.monotonic()
                desktop.key("ctrl+q")
                self.expect_end(app, since)
                self.assertFalse(os.path.exists(data_file(desktop)))
                wait_for("no process left", lambda: not self.scanners(desktop))

    def scanners(self, desktop):
        return [name for name in glob.glob("/proc/[0-9]*/cmdline")
                if self.is_scanner(name, desktop)]

    @staticmethod
    def is_scanner(name, desktop):
        try:
            with open(name, "rb") as line, open(os.path.dirname(name) + "/environ", "rb") as own:
                return b"tovarin-scanner" in line.read() and desktop.root.encode() in own.read()
        except OSError:
            return False


class Trays(Shell):
    def expect_panel(self, desktop, app):
        panel = self.open_panel(desktop, app)
        desktop.tray.wait().click()
        panel.wait_closed()

    def test_come_late_and_go(self):
        for language in LOCALES:
            with self.subTest(language), session(language, tray="none") as desktop:
                app, _ = self.start(desktop, language)
                desktop.close_window()
                self.wait_unseen(app)
                second = desktop.start([self.program])
                self.assertEqual(second.wait(), 0)
                app.wait_window(TITLES[language])
                desktop.tray = Tray(desktop)
                for _ in range(2):
                    self.assertEqual(desktop.tray.wait().tooltip, TOOLTIPS[language])
                    self.assertEqual(len(desktop.tray.items()), 1)
                    self.expect_panel(desktop, app)
                    desktop.tray.stop()
                    desktop.tray.start()
                self.expect_panel(desktop, app)
                self.end(desktop, app, language)


class Days(Shell):
    NEXT_DAY = {
        "en": [["Second", "Charged today", "¥11"], ["Third", "in 1 days", "$4.50"],
               ["Fourth", "in 2 days", "¥13"], ["Fifth", "in 3 days", "¥14"],
               ["Sixth", "in 6 days", "¥16"], ["Later", "in 7 days", "¥1000"]],
        "zh": [["Second", "今天扣费", "¥11"], ["Third", "1 天后扣费", "$4.50"],
               ["Fourth", "2 天后扣费", "¥13"], ["Fifth", "3 天后扣费", "¥14"],
               ["Sixth", "6 天后扣费", "¥16"], ["Later", "7 天后扣费", "¥1000"]],
    }
    NEXT_DAY_IN_PANEL = {
        "en": [["Second", "Today", "-¥11"], ["Third", "1d", "-$4.50"], ["Fourth", "2d", "-¥13"],
               ["Fifth", "3d", "-¥14"]],
        "zh": [["Second", "今天", "-¥11"], ["Third", "1天后", "-$4.50"],
               ["Fourth", "2天后", "-¥13"], ["Fifth", "3天后", "-¥14"]],
    }

    def test_midnight_passes(self):
        for language in LOCALES:
            with self.subTest(language), \
                    session(language, lambda s: install_records(s, CHARGES),
                            clock="2025-06-10 23:59:50") as desktop:
                app, window = self.start(desktop, language)
                self.assertEqual(window.upcoming(), SIX_UPCOMING[language])
                wait_for("the next day",
                         lambda: window.upcoming()[0] == self.NEXT_DAY[language][0], 25)
                self.assertEqual(window.upcoming(), self.NEXT_DAY[language])
                panel = self.open_panel(desktop, app)
                self.assertEqual(panel.rows(), self.NEXT_DAY_IN_PANEL[language])
                desktop.key("Escape")
                panel.wait_closed()
                self.end(desktop, app, language)


class Rest(Shell):
    def switches(self, app):
        """How often each thread gave the processor away."""
        counts = {}
        for path in glob.glob(f"/proc/{app.pid}/task/*/status"):
            with open(path, encoding="utf-8") as status:
                found = re.search(r"^voluntary_ctxt_switches:\s+(\d+)$", status.read(), re.M)
                counts[path] = int(found.group(1))
        return counts

    def test_wakes_for_nothing(self):
        with session("en", lambda s: install(s, SAMPLE), clock=None, a11y=False) as desktop:
            app = desktop.start([self.program])
            wait_for("the window", lambda: desktop.active_window() == TITLES["en"], 15)
            desktop.tray.wait()
            before = None

            def at_rest():
                nonlocal before
                earlier, before = before, self.switches(app)
                return before == earlier

            wait_for("the program to come to rest", at_rest, 10, every=1)
            time.sleep(IDLE_SECONDS)
            after = self.switches(app)
            wakings = sum(count - before.get(thread, 0) for thread, count in after.items())
            self.assertLessEqual(wakings, MOST_WAKINGS)
            self.assertGreater(len(after), 1, "threads")
            since = time.monotonic()
            desktop.key("ctrl+q")
            self.expect_end(app, since)


class Pictures(Shell):
    """Leaves pictures of what is hard to draw; whoever changes the look looks at them."""

    def test_long_names_and_high_amounts(self):
        long_names = [record(1, "A subscription whose name has sixty letters, all of them new",
                             "2025-01-12", 123456789.99),
                      record(2, "一个名字特别特别长的订阅服务，长到面板里无论如何也放不下，只好在末尾省略",
                             "2025-01-10", 123456789.99, "USD"),
                      record(3, "Short", "2025-01-11", 5)]
        for language in LOCALES:
            with self.subTest(language), \
                    session(language, lambda s: install_records(s, long_names)) as desktop:
                app, _ = self.start(desktop, language)
                panel = self.open_panel(desktop, app)
                self.assertEqual(panel.rows(), [
                    [long_names[1]["name"], {"en": "Today", "zh": "今天"}[language],
                     "-$123456789.99"],
                    ["Short", {"en": "1d", "zh": "1天后"}[language], "-¥5"],
                    [long_names[0]["name"], {"en": "2d", "zh": "2天后"}[language],
                     "-¥123456789.99"]])
                for row in panel.dialog.children:
                    if row.role == "list item":
                        self.expect_apart(row.children)
                self.picture(desktop, f"panel-long-{language}.png")
                desktop.key("Escape")
                panel.wait_closed()
                self.picture(desktop, f"window-long-{language}.png")
                self.end(desktop, app, language)

    def expect_apart(self, texts):
        """No text of a row reaches into the next."""
        places = [text.rect for text in texts]
        for (x, _, width, _), (following, _, _, _) in zip(places, places[1:]):
            self.assertLessEqual(x + width, following)

    def test_many_entries(self):
        many = [record(number, f"Entry {number:03}", f"2025-01-{1 + number % 28:02}", number)
                for number in range(1, 201)]
        for language in LOCALES:
            with self.subTest(language), \
                    session(language, lambda s: install_records(s, many)) as desktop:
                app, window = self.start(desktop, language)
                self.picture(desktop, f"window-many-{language}.png")
                self.assertEqual(window.head()[8], "56")
                desktop.key("End")
                # The cheapest.
                window.list.find("list item", "Entry 001")
                self.picture(desktop, f"window-many-end-{language}.png")
                self.end(desktop, app, language)

    def test_two_pixels_for_each(self):
        for language in LOCALES:
            with self.subTest(language), \
                    session(language, lambda s: install_records(s, CHARGES), size=(2560, 1800),
                            env={"QT_SCALE_FACTOR": "2"}) as desktop:
                app, _ = self.start(desktop, language)
                self.picture(desktop, f"window-2x-{language}.png")
                panel = self.open_panel(desktop, app)
                self.picture(desktop, f"panel-2x-{language}.png")
                desktop.key("Escape")
                panel.wait_closed()
                self.end(desktop, app, language)

    def test_sizes(self):
        for language in LOCALES:
            with session(language, lambda s: install_records(s, CHARGES)) as desktop:
                for name, frame in (("760x480", "100 100 760 480 normal"),
                                    ("maximised", "100 100 960 640 maximised")):
                    with self.subTest(name, language=language):
                        configure(desktop, TovarinMainWindow__frame=frame)
                        app, window = self.start(desktop, language)
                        if name == "760x480":
                            self.assertEqual(window.frame.rect, (100, 100, 760, 480))
                        else:
                            self.assertEqual(window.frame.rect[2], desktop.size[0])
                        self.picture(desktop, f"window-{name}-{language}.png")
                        self.end(desktop, app, language)


if __name__ == "__main__":
    main(__doc__)
