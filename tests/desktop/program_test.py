# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""What the tests of the main window have in common: starting the program, its panel, its end."""
import os
import sys
import time
import unittest

from main_window import TITLES, MainWindow, Panel, picture

# The program itself needs far less; the machine may be busy.
MOST_SECONDS_TO_QUIT = 5


class ProgramTest(unittest.TestCase):
    maxDiff = None
    program = pictures = None

    def start(self, desktop, language, *arguments):
        app = desktop.start([self.program, *arguments])
        window = MainWindow(app, language)
        app.wait_window(TITLES[language])
        return app, window

    def end(self, desktop, app, language=None):
        """Quits by the key; with a language, once the main window of that title is there."""
        if language:
            app.wait_window(TITLES[language])
        since = time.monotonic()
        desktop.key("ctrl+q")
        self.expect_end(app, since)

    def expect_end(self, app, since):
        """The program ends well, soon, and has said nothing."""
        self.assertEqual(app.wait(), 0)
        seconds = time.monotonic() - since
        self.assertEqual(app.log(), "")
        self.assertLess(seconds, MOST_SECONDS_TO_QUIT)

    def open_panel(self, desktop, app):
        desktop.tray.wait().click()
        panel = Panel(app)
        panel.wait_for_keyboard()
        return panel

    def picture(self, desktop, name):
        """Leaves a picture of the screen, once it stands still."""
        picture(desktop, os.path.join(self.pictures, name))


def main(description):
    """Runs the tests of the program that the command line names."""
    if len(sys.argv) < 3:
        sys.exit(description)
    ProgramTest.program, ProgramTest.pictures = map(os.path.abspath, sys.argv[1:3])
    os.makedirs(ProgramTest.pictures, exist_ok=True)
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]], verbosity=2)
