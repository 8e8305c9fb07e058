# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""The sheets of the main window, used as a person uses them."""
from main_window import LOCALES, settled
from program_test import ProgramTest
from session import Session, wait_for

# What can be used, and how.
ACTIONS = {"push button": {"Press"}, "check box": {"Press", "Toggle"},
           "radio button": {"Press", "Toggle"}, "combo box": {"Press"}, "text": {"SetFocus"}}
# What is only read, or holds others. A scroll bar has no name of its own anywhere.
SILENT_ROLES = {"label", "panel", "list", "list item", "scroll bar"}


def session(language, prepare=settled(), **options):
    """A desktop on which it is 10 June 2025, nine in the morning in Shanghai."""
    return Session(lang=LOCALES[language], tz="Asia/Shanghai",
                   **{"clock": "2025-06-10 09:00:00", "prepare": prepare, **options})


class Sheet:
    """A sheet that is open, or about to."""

    def __init__(self, app, name):
        self.app, self.s = app, app.s
        self.dialog = app.find("dialog", name, timeout=30)
        self.name = name

    def find(self, role, name=None, **which):
        return self.dialog.find(role, name, **which)

    def labels(self):
        """What stands in it, from top to bottom, but for what the controls say."""
        return [e.name for e in self.dialog.find_all("label")]

    def buttons(self):
        return [e.name for e in self.dialog.find_all("push button")]

    def chosen(self, picker):
        """The segments that are chosen in the picker with this name."""
        return [segment.name for segment in self.find("panel", picker).children
                if segment.has("checked")]

    def choose(self, picker, segment):
        self.find("panel", picker).find("radio button", segment).click()
        wait_for(f"{segment} to be chosen", lambda: self.chosen(picker) == [segment])

    def reach(self, role, name, above, below):
        """The element, turned by the wheel to between the bottom of one and the top of another."""
        found = self.dialog.find_all(role, name, hidden=True)[0]
        while True:
            places = []

            def is_still():
                places.append(found.rect)
                return len(places) > 2 and places[-1] == places[-2] == places[-3]
            wait_for(f"{name} to stand still", is_still)
            _, y, _, height = found.rect
            top = above.rect[1] + above.rect[3]
            if top <= y and y + height <= below.rect[1]:
                return found
            self.s.move(self.dialog.center()[0], (top + below.rect[1]) // 2)
            self.s.xdotool("click", "4" if y < top else "5")
            wait_for(f"{name} to move", lambda: found.rect != places[-1])

    def wait_closed(self):
        self.app.gone("dialog", self.name)


class SheetTest(ProgramTest):
    def wait_focus(self, app, role, name):
        """Waits for the keyboard to be there."""
        def here():
            found = app.focused()
            return found and (found.role, found.name) == (role, name) and found
        return wait_for(lambda: f"the keyboard at {role} {name!r}, not {app.focused()!r}", here)

    def walk(self, desktop, app, role, *steps):
        """Presses keys, each of which leads to the element named beside it."""
        for key, name in steps:
            desktop.key(key)
            self.wait_focus(app, role, name)

    def expect_usable(self, sheet):
        """Whatever can be used in the sheet has a name, and what to do with it."""
        for element in sheet.dialog.find_all():
            role = element.role
            if role in SILENT_ROLES:
                continue
            self.assertIn(role, ACTIONS, element)
            self.assertNotEqual(element.name, "", element)
            if role == "text":
                self.assertTrue(element.has("editable"), element)
            self.assertLessEqual(ACTIONS[role], set(element.actions), element)

    def expect_stops_in_sight(self, desktop, app, sheet, count):
        """Tab goes round as many elements of the sheet, each of which can be seen then."""
        stops, stop = [], app.focused()
        while len(stops) < 2 or stops[-1] != stops[0]:
            before = stop
            desktop.key("Tab")

            def after():
                found = app.focused()
                return found not in (before, None) and found
            stop = wait_for("the next stop", after)
            self.assertIn(stop.role, ACTIONS, stop)
            self.assertNotEqual(stop.name, "", stop)
            self.assertIn(sheet.dialog, list(stop._up()), stop)
            stop._check_hit(*stop.center())
            stops.append(stop)
            self.assertLessEqual(len(stops), count + 1, stops)
        self.assertEqual(len(set(stops)), count, stops)
