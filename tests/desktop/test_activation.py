#!/usr/bin/python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""test_activation.py PROGRAM: has the session bus start Tovarin, as a launcher or a file manager does
where it is installed, in a desktop session of its own.
"""
import os
import shutil
import sys
import unittest

from main_window import LOCALES, TITLES, MainWindow, settled
from session import App, Ended, Session, wait_for
from words import CANCEL, CONFIRM_SCAN

PROGRAM = None
HERE = os.path.dirname(os.path.abspath(__file__))
SERVICE = os.path.join(HERE, "../../packaging/app.tovarin.Tovarin.service.in")
BILL = os.path.join(HERE, "../data/bills/clean/message-1x.png")

ID = "app.tovarin.Tovarin"


def install_service(desktop):
    """As the file is installed, but for the place of the program."""
    with open(SERVICE, encoding="utf-8") as file:
        text = file.read().replace("@TOVARIN_INSTALLED@", PROGRAM)
    with open(os.path.join(desktop.root, "services", f"{ID}.service"), "w",
              encoding="utf-8") as file:
        file.write(text)


class ActivatedApp(App):
    """What the bus has started for the name ID. It is a child of the bus, and says what it has to
    say in the bus's log."""

    def __init__(self, session):
        self.s, self.argv, self._ref = session, [ID], None
        self.pid = session.bus.pid_of(ID)
        self.log_file = os.path.join(session.root, "log/dbus-session.log")

    def alive(self):
        if not self.running():
            raise Ended(f"{ID} ended; log:\n{self.log()}")

    def running(self):
        return os.path.exists(f"/proc/{self.pid}")


class Activation(unittest.TestCase):
    maxDiff = None

    def session(self, language):
        return Session(lang=LOCALES[language], tray="none", notifications="none",
                       prepare=settled(install_service))

    def call(self, desktop, method, signature, *arguments):
        self.assertFalse(desktop.bus.has_owner(ID))
        desktop.bus.call(ID, "/app/tovarin/Tovarin", "org.freedesktop.Application", method,
                         signature, *arguments, timeout=30, starting=True)
        return ActivatedApp(desktop)

    def end(self, desktop, app, language):
        app.wait_window(TITLES[language])
        self.assertEqual([title for title, *_ in app.windows().values()], [TITLES[language]])
        desktop.key("ctrl+q")
        wait_for("the end of the program", lambda: not app.running(), 10)
        self.assertFalse(desktop.bus.has_owner(ID))

    def test_activate_shows_the_window(self):
        for language in LOCALES:
            with self.subTest(language), self.session(language) as desktop:
                app = self.call(desktop, "Activate", "(a{sv})", {})
                self.assertEqual(MainWindow(app, language).count(), 0)
                self.end(desktop, app, language)

    def test_open_reads_the_bill(self):
        for language in LOCALES:
            with self.subTest(language), self.session(language) as desktop:
                path = os.path.join(desktop.home, "bill.png")
                shutil.copyfile(BILL, path)
                app = self.call(desktop, "Open", "(asa{sv})", [f"file://{path}"], {})
                app.find("label", CONFIRM_SCAN[language], timeout=60)
                name = app.find("text", where=lambda element: element.has("focused"))
                self.assertEqual(name.text, "YouTube Premium")
                app.find("push button", CANCEL[language]).click()
                app.gone("label", CONFIRM_SCAN[language])
                self.end(desktop, app, language)


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    PROGRAM = os.path.abspath(sys.argv[1])
    unittest.main(argv=sys.argv[:1])
