#!/usr/bin/python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""test_tray.py PROGRAM: starts a program that is nothing but Tovarin's status item in desktops with
trays of both kinds, which are there first, come late, go and come back, or never come."""
import glob
import os
import re
import sys
import unittest

from session import Session, Tray, wait_for

PROGRAM = None
TRAYER = "trayer --edge bottom --align right --widthtype request --SetDockType true".split()
IDLE_SECONDS = 5


def desktop(tray="none", a11y=False):
    return Session(tray=tray, notifications="none", a11y=a11y)


class Item:
    """The program with the item, seen from the user's side of the desktop."""

    def __init__(self, session, tooltip="Tovarin · $54.36", **env):
        self.session, self.orders = session, session.root + "/orders"
        if not os.path.exists(self.orders):
            os.mkfifo(self.orders)
        self.app = session.start([PROGRAM, self.orders], **env)
        wait_for("the program", lambda: self.said("runs"))
        self.tell("tooltip " + tooltip)
        self.tell("icon red")

    def tell(self, order):
        with open(self.orders, "w", encoding="utf-8") as orders:
            orders.write(order + "\n")

    def said(self, word):
        """What followed the word each time."""
        return re.findall(rf"^{word}\b ?(.*)$", self.app.log(), re.MULTILINE)

    def geometry(self):
        before = len(self.said("geometry"))
        self.tell("geometry")
        answers = wait_for("a place", lambda: self.said("geometry")[before:])
        return tuple(map(int, answers[0].split()))

    def docked(self):
        """The place of the item in a tray that tells it."""
        def look():
            place = self.geometry()
            return place if place[1] > self.session.size[1] // 2 else None
        return wait_for("the item in the tray", look)

    def triggered_by(self, action, times=1):
        """Where the action triggered the item, so many times or more. The answer to another
        question, which the program gets afterwards, shows that it is through."""
        before = len(self.said("triggered"))
        action()
        wait_for("the item to be triggered", lambda: len(self.said("triggered")) >= before + times)
        self.geometry()
        return self.said("triggered")[before:]

    def switches(self):
        """How often each thread gave the processor away or lost it."""
        counts = {}
        for path in glob.glob(f"/proc/{self.app.pid}/task/*/status"):
            with open(path, encoding="utf-8") as status:
                counts[path] = re.findall(r"ctxt_switches:\s+(\d+)", status.read())
        return counts

    def end(self):
        """What the program said on its own, warnings too."""
        self.tell("quit")
        code = self.app.wait()
        return code, [line for line in self.app.log().splitlines()
                      if line.split()[0] not in ("runs", "triggered", "geometry")]


class NotifierTray(unittest.TestCase):
    def test_shows_an_icon_alone(self):
        with desktop("sni") as session:
            item = Item(session)
            shown = session.tray.wait()
            properties = shown.props()
            self.assertEqual((properties["Id"], properties["Title"]), ("Tovarin", "Tovarin"))
            self.assertEqual(properties["Status"], "Active")
            self.assertEqual(properties["IconName"], "")
            self.assertEqual([(w, h) for w, h, _ in properties["IconPixmap"]],
                             [(n, n) for n in (16, 22, 24, 32, 48, 64)])
            # Hosts that have texts beside icons take them from here.
            self.assertNotIn("XAyatanaLabel", properties)
            self.assertEqual(item.end(), (0, []))
            wait_for("the tray to be empty", lambda: not session.tray.items())

    def test_changes_its_tooltip_and_icon(self):
        with desktop("sni") as session:
            item = Item(session, tooltip="每月 ¥391.38 · 近 7 天待扣 2 项")
            shown = session.tray.wait()
            self.assertEqual(shown.tooltip, "每月 ¥391.38 · 近 7 天待扣 2 项")
            item.tell("tooltip Monthly $54.36 · 2 due in 7d")
            wait_for("the new tooltip",
                     lambda: shown.tooltip == "Monthly $54.36 · 2 due in 7d")
            item.tell("icon blue")
            # Alpha, red, green, blue.
            wait_for("the new icon", lambda: bytes(shown.props()["IconPixmap"][0][2][:4])
                     == b"\xff\x00\x00\xff")
            self.assertEqual(item.end(), (0, []))

    def test_is_triggered_once_by_any_button(self):
        with desktop("sni") as session:
            item = Item(session)
            shown = session.tray.wait()
            for press in (shown.click, shown.right_click, shown.middle_click, shown.click):
                self.assertEqual(item.triggered_by(press), ["1256 888"], press.__name__)
            self.assertEqual(item.geometry(), (0, 0, 0, 0))
            self.assertEqual(item.end(), (0, []))

    def test_appears_with_a_late_tray_and_comes_back_with_it(self):
        with desktop() as session:
            item = Item(session, tooltip="Before")
            item.tell("tooltip After")
            # It had time to make mistakes.
            self.assertEqual(item.geometry(), (0, 0, 0, 0))
            tray = Tray(session)
            self.assertEqual(tray.wait().tooltip, "After")
            for start in range(2):
                tray.stop()
                item.tell(f"tooltip Start {start}")
                item.geometry()
                tray.start()
                shown = tray.wait()
                self.assertEqual(len(tray.items()), 1)
                self.assertEqual(shown.tooltip, f"Start {start}")
                self.assertEqual(item.triggered_by(shown.click), ["1256 888"])
            self.assertEqual(item.end(), (0, []))
            tray.stop()


class EmbeddingTray(unittest.TestCase):
    """The older kind, here that of a real program."""

    def expect_works(self, item):
        x, y, width, height = item.docked()
        self.assertLessEqual(width, height, "room for an icon and no more")
        centre = x + width // 2, y + height // 2
        where = "{} {}".format(*centre)
        session = item.session
        for button in (1, 2, 3):
            self.assertEqual(item.triggered_by(lambda: session.click(*centre, button=button)),
                             [where])
        # Two presses in a row are two, however quick.
        self.assertEqual(item.triggered_by(lambda: session.click(*centre, times=2), times=2),
                         [where, where])

    def test_is_triggered_once_by_any_button(self):
        with desktop() as session:
            session.spawn("trayer", TRAYER)
            item = Item(session)
            self.expect_works(item)
            self.assertEqual(item.end(), (0, []))

    def test_appears_with_a_late_tray_and_comes_back_with_it(self):
        with desktop() as session:
            item = Item(session)
            for _ in range(3):
                self.assertEqual(item.geometry(), (0, 0, 0, 0))
                trayer = session.spawn("trayer", TRAYER)
                self.expect_works(item)
                trayer.terminate()
                trayer.wait()
                wait_for("the item to be gone", lambda: item.geometry() == (0, 0, 0, 0))
            self.assertEqual(item.end(), (0, []))

    def test_changes_its_tooltip(self):
        with desktop(a11y=True) as session:
            session.spawn("trayer", TRAYER, {"NO_AT_BRIDGE": "1"})
            item = Item(session, tooltip="每月 ¥391.38")
            x, y, width, height = item.docked()
            for text in ("每月 ¥391.38", "Monthly $54.36"):
                item.tell("tooltip " + text)
                # Entering alone shows the tooltip only the first time.
                for step in range(2):
                    session.move(x + width // 2 + step, y + height // 2)
                item.app.find("tool tip", text)
                session.move(0, 0)
                item.app.gone("tool tip")
            self.assertEqual(item.end(), (0, []))

    def test_needs_no_bus(self):
        with desktop() as session:
            item = Item(session, DBUS_SESSION_BUS_ADDRESS="unix:path=/nonexistent")
            session.spawn("trayer", TRAYER)
            self.expect_works(item)
            self.assertEqual(item.end(), (0, []))


class NoTray(unittest.TestCase):
    def test_sleeps(self):
        with desktop() as session:
            item = Item(session)
            before = None

            def at_rest():
                nonlocal before
                earlier, before = before, item.switches()
                return before == earlier

            # What comes late, on a busy machine, comes once.
            wait_for(f"{IDLE_SECONDS} s of rest", at_rest, 6 * IDLE_SECONDS, every=IDLE_SECONDS)
            self.assertGreater(len(before), 1, "threads")
            self.assertEqual(item.geometry(), (0, 0, 0, 0))
            self.assertNotEqual(item.switches(), before, "what it did is seen")
            self.assertEqual(item.end(), (0, []))


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    PROGRAM = os.path.abspath(sys.argv[1])
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]], verbosity=2)
