#!/usr/bin/python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""test_panel.py PROGRAM PICTURES: opens the panel of Tovarin's tray item, reads and uses it as a user
does. Leaves pictures of it in the folder PICTURES.
"""
import os
import time

from main_window import BILLS, LOCALES, TITLES, Panel, install_records
from program_test import main
from session import wait_for
from shell import CHARGES, TOOLTIPS, Shell, session
from words import OPEN, QUIT

FOUR_SOONEST = {
    "en": [["First", "Today", "-¥10"], ["Second", "1d", "-¥11"], ["Third", "2d", "-$4.50"],
           ["Fourth", "3d", "-¥13"]],
    "zh": [["First", "今天", "-¥10"], ["Second", "1天后", "-¥11"], ["Third", "2天后", "-$4.50"],
           ["Fourth", "3天后", "-¥13"]],
}
# 10 + 11 + 13 + 14 + 16 + 1000 yuan and 4.50 dollars of 7.20 each.
PANEL_TEXTS = {
    "en": ["Tovarin", "Monthly spend", "$152.28", "≈$1827.33/yr · 7 active",
           "Due in the next 7 days"],
    "zh": ["Tovarin", "每月订阅支出", "¥1096.40", "每年约 ¥13156.80 · 进行中 7 个",
           "近 7 天待扣费"],
}
EMPTY_PANEL_TEXTS = {
    "en": ["Tovarin", "Monthly spend", "$0", "≈$0/yr · 0 active", "Due in the next 7 days",
           "Nothing due soon"],
    "zh": ["Tovarin", "每月订阅支出", "¥0", "每年约 ¥0 · 进行中 0 个", "近 7 天待扣费",
           "近期没有要扣费的订阅"],
}
# A plain window of another program, which takes the keyboard.
OTHER_WINDOW = """
import gi
gi.require_version("Gtk", "3.0")
from gi.repository import Gtk
window = Gtk.Window(title="Other", default_width=200, default_height=100)
window.show_all()
Gtk.main()
"""


class Panels(Shell):
    def test_shows_nothing_due(self):
        for language in LOCALES:
            with self.subTest(language), session(language) as desktop:
                app, _ = self.start(desktop, language)
                item = desktop.tray.wait()
                self.assertEqual(item.tooltip, TOOLTIPS[language])
                self.assertNotIn("XAyatanaLabel", item.props())
                panel = self.open_panel(desktop, app)
                self.assertEqual(panel.texts(), EMPTY_PANEL_TEXTS[language])
                self.assertEqual(panel.rows(), [])
                self.assertEqual(panel.buttons(), [OPEN[language], QUIT[language]])
                self.picture(desktop, f"panel-none-due-{language}.png")
                desktop.key("Escape")
                panel.wait_closed()
                self.end(desktop, app, language)

    def test_shows_the_four_soonest(self):
        for language in LOCALES:
            with self.subTest(language), \
                    session(language, lambda s: install_records(s, CHARGES)) as desktop:
                app, _ = self.start(desktop, language)
                panel = self.open_panel(desktop, app)
                self.assertEqual(panel.texts(), PANEL_TEXTS[language])
                self.assertEqual(panel.rows(), FOUR_SOONEST[language])
                self.picture(desktop, f"panel-six-due-{language}.png")
                since = time.monotonic()
                panel.button(QUIT[language]).click()
                self.expect_end(app, since)

    def test_is_used_with_the_keyboard(self):
        for language in LOCALES:
            with self.subTest(language), session(language) as desktop:
                app, _ = self.start(desktop, language)
                desktop.close_window()
                self.wait_unseen(app)
                panel = self.open_panel(desktop, app)
                stops = []
                for key in ("Tab", "Tab", "shift+Tab"):
                    desktop.key(key)
                    before = stops[-1:]
                    wait_for("the next button",
                             lambda: [panel.focused_button()] not in ([None], before))
                    stops.append(panel.focused_button())
                self.assertEqual(stops, [OPEN[language], QUIT[language], OPEN[language]])
                desktop.key("Return")
                app.wait_window(TITLES[language])
                panel.wait_closed()

                panel = self.open_panel(desktop, app)
                desktop.key("ctrl+h")
                self.wait_unseen(app)

                panel = self.open_panel(desktop, app)
                desktop.key("Tab", "Tab")
                wait_for("the last button", lambda: panel.focused_button() == QUIT[language])
                since = time.monotonic()
                desktop.key("Return")
                self.expect_end(app, since)

    def test_closes_on_a_click_elsewhere(self):
        with session("en") as desktop:
            app, window = self.start(desktop, "en")
            other = desktop.spawn("other", ["/usr/bin/python3", "-c", OTHER_WINDOW])
            wait_for("another program's window", lambda: desktop.active_window() == "Other")
            place, = desktop.windows(other.pid).values()
            for x, y in ((place[1] + 30, place[2] + 30), (640, 200), (10, 890)):
                panel = self.open_panel(desktop, app)
                desktop.click(x, y)
                panel.wait_closed()
            # A press on its item closes it, too, and does not open it anew.
            panel = self.open_panel(desktop, app)
            desktop.tray.wait().click()
            panel.wait_closed()
            self.end(desktop, app, "en")

    def test_keeps_the_keyboard_that_nobody_clicked_for(self):
        """A window manager may take it from a new window while it tidies up after an old one."""
        with session("en") as desktop:
            app, _ = self.start(desktop, "en")
            item = desktop.tray.wait()
            managers, = [number for number, window in desktop.windows().items()
                         if window[0] == "Openbox"]
            for _ in range(20):
                since = time.monotonic()
                item.click()
                wait_for("the panel", lambda: desktop.active_window() == "Tovarin", every=0.01)
                desktop.xdotool("windowfocus", managers)
                # Later it is taken for the user's wish.
                if time.monotonic() - since < 0.4:
                    break
                app.gone("dialog", "Tovarin")
            else:
                self.fail("The machine is too busy for this.")
            panel = Panel(app)

            def reach_a_button():
                desktop.key("Tab")
                return panel.focused_button()

            wait_for("the keyboard to be back", reach_a_button)
            desktop.key("Escape")
            panel.wait_closed()
            self.end(desktop, app, "en")

    def test_shows_what_is_true_at_its_opening(self):
        with session("en") as desktop:
            app, window = self.start(desktop, "en")
            panel = self.open_panel(desktop, app)
            self.assertEqual(panel.texts(), EMPTY_PANEL_TEXTS["en"])
            desktop.key("Escape")
            panel.wait_closed()
            second = desktop.start([self.program, os.path.join(BILLS, "clean/message-1x.png")])
            self.assertEqual(second.wait(), 0)
            app.find("push button", "Save", timeout=30).click()
            wait_for("the bill in the list", lambda: window.count() == 1)
            panel = self.open_panel(desktop, app)
            self.assertEqual(panel.texts()[2:4], ["$7.64", "≈$91.67/yr · 1 active"])
            desktop.key("Escape")
            panel.wait_closed()
            self.end(desktop, app, "en")


if __name__ == "__main__":
    main(__doc__)
