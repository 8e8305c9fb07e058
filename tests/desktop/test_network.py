#!/usr/bin/python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""test_network.py PROGRAM: nothing leaves the machine. Uses Tovarin as a user does, with its scanner
and its notifier, while the kernel's calls are written down, and looks at every socket that any of
them has opened: there are none but those of the same machine.
"""
import os
import re
import shutil
import sys
import unittest

from main_window import LOCALES, TITLES, MainWindow, settled
from reminders import TEST
from session import Session, wait_for
from words import CLOSE, CONFIRM_SCAN, SAVE, SEND_TEST, SETTINGS

PROGRAM = None
BILL = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../data/bills/clean/message-1x.png")


class Network(unittest.TestCase):
    def use(self, desktop, log, language):
        """-D lets the program keep the process that was started, which the session looks for."""
        bill = os.path.join(desktop.env["HOME"], "bill.png")
        shutil.copyfile(BILL, bill)
        app = desktop.start(["strace", "-D", "-f", "-qq", "-e", "trace=socket,socketpair,execve",
                             "-o", log, PROGRAM, bill])
        window = MainWindow(app, language)
        app.find("label", CONFIRM_SCAN[language], timeout=60)
        app.find("push button", SAVE[language]).do()
        wait_for("the draft in the list", lambda: window.count() == 1)
        window.frame.find("push button", SETTINGS[language]).do()
        app.find("push button", SEND_TEST[language]).do()
        desktop.notifications.wait(summary=TEST[language][0], timeout=30)
        app.find("push button", CLOSE[language]).do()
        app.gone("dialog")
        app.wait_window(TITLES[language])
        desktop.key("ctrl+q")
        self.assertEqual(app.wait(), 0)

    def test_opens_no_socket_but_of_this_machine(self):
        for language in LOCALES:
            with self.subTest(language), Session(
                    lang=LOCALES[language], tray="sni", prepare=settled()) as desktop:
                log = os.path.join(desktop.root, "calls")
                self.use(desktop, log, language)
                with open(log, encoding="utf-8", errors="replace") as file:
                    calls = file.read()
                programs = {os.path.basename(path)
                            for path in re.findall(r'execve\("([^"]+)"', calls)}
                self.assertLessEqual({"tovarin", "tovarin-scanner", "tovarin-notifier"}, programs,
                                     "what is not followed cannot be judged")
                families = set(re.findall(r"socket(?:pair)?\((\w+)", calls))
                self.assertEqual(families, {"AF_UNIX"})


if __name__ == "__main__":
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    PROGRAM = os.path.abspath(sys.argv[1])
    unittest.main(argv=[sys.argv[0], *sys.argv[2:]], verbosity=2)
