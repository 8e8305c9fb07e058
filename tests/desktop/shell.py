# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""What the tests of the program's life share: a desktop with a tray, what the tray item says, and
entries."""
from main_window import LOCALES, record, settled
from program_test import ProgramTest
from session import Session, wait_for

TOOLTIPS = {"en": "Tovarin · Click to view subscription spend", "zh": "Tovarin · 点击查看订阅支出"}

# On 10 June 2025 six of these are due within a week, one today; two are not.
CHARGES = [
    record(1, "Fifth", "2025-01-14", 14),
    record(2, "Later", "2025-01-18", 1000),
    record(3, "Third", "2025-01-12", 4.5, "USD"),
    record(4, "First", "2025-01-10", 10),
    record(5, "Sixth", "2025-01-17", 16),
    record(6, "Fourth", "2025-01-13", 13),
    record(7, "Paused", "2025-01-11", 500, isActive=False),
    record(8, "Second", "2025-01-11", 11),
]


def session(language, prepare=None, clock="2025-06-10 09:00:00", **options):
    """A desktop with a tray on which it is 10 June 2025, nine in the morning in Shanghai."""
    return Session(lang=LOCALES[language], tz="Asia/Shanghai", clock=clock,
                   **{"tray": "sni", "notifications": "none", "prepare": settled(prepare),
                      **options})


class Shell(ProgramTest):
    def wait_unseen(self, app):
        wait_for("no window in sight", lambda: not app.windows())

    def choose_in_menu(self, app, menu, item):
        app.find("menu bar", menu).click()
        # At this point the accessibility tree names what the menu covers.
        app.s.click(*app.find("menu item", item).center())
