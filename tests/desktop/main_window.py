# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""What the main window says, read as a screen reader reads it."""
import functools
import json
import os
import shutil

from session import wait_for
from words import EMPTY_HEAD

TITLES = {"en": "Tovarin · Subscription Manager", "zh": "Tovarin · 订阅管家"}
LIST_NAMES = {"en": "All subscriptions", "zh": "全部订阅"}
UPCOMING_NAMES = {"en": "Upcoming charges", "zh": "即将扣费"}
LOCALES = {"en": "en_US.UTF-8", "zh": "zh_CN.UTF-8"}

DATA = os.path.join(os.path.dirname(os.path.abspath(__file__)), "../data")
SAMPLE = os.path.join(DATA, "sample-subscriptions.json")
BILLS = os.path.join(DATA, "bills")


def data_file(session):
    """Where the program of this session keeps its list."""
    return os.path.join(session.env["XDG_DATA_HOME"], "Tovarin", "subscriptions.json")


def install(session, source):
    """Puts a copy of the file where the program looks for its list."""
    os.makedirs(os.path.dirname(data_file(session)))
    shutil.copyfile(source, data_file(session))


def install_bytes(session, content):
    os.makedirs(os.path.dirname(data_file(session)), exist_ok=True)
    with open(data_file(session), "wb") as file:
        file.write(content)


def configuration(session):
    """Where the program of this session keeps its settings."""
    return os.path.join(session.env["XDG_CONFIG_HOME"], "Tovarin", "Tovarin.conf")


def configure(session, **settings):
    """Makes these the only settings, while the program does not run; in a name "__" is a dot. The
    quick pick does not open by itself, unless they say that it was not gone through."""
    settings = {"didCompleteQuickPick": "true", **settings}
    os.makedirs(os.path.dirname(configuration(session)), exist_ok=True)
    with open(configuration(session), "w", encoding="utf-8") as file:
        file.write("[General]\n")
        for name, value in settings.items():
            file.write(f"{name.replace('__', '.')}={value}\n")


def settled(prepare=None):
    """What prepares a session of somebody who has been through the quick pick, and then does this."""
    def both(session):
        configure(session)
        if prepare:
            prepare(session)
    return both


def record(number, name, start, amount, currency="CNY", **others):
    """An active monthly entry of the file, charged first at noon in Shanghai on the day `start`."""
    return {"id": f"00000000-0000-4000-8000-{number:012}", "name": name, "amount": amount,
            "currency": currency, "billingType": "recurring", "cycle": "monthly",
            "category": "影音", "startDate": start + "T04:00:00Z", "isActive": True, "notes": "",
            **others}


def install_records(session, records):
    install_bytes(session, json.dumps(records).encode())


def picture(session, path):
    """Leaves a picture of the screen once something is drawn on it and it stands still."""
    def look():
        before = None
        if os.path.exists(path):
            with open(path, "rb") as file:
                before = file.read()
        session.screenshot("PNG24:" + path)
        with open(path, "rb") as file:
            now = file.read()
        return now == before and len(now) > 5000

    if os.path.exists(path):
        os.unlink(path)
    wait_for(f"a drawn window for {path}", look, 10)


class MainWindow:
    def __init__(self, app, language):
        """Waits until the window is there with its entries, which come a frame later, or with a
        sheet, behind which they are out of a screen reader's reach."""
        self.language = language
        self.frame = app.find("frame", TITLES[language], timeout=20)
        wait_for(lambda: f"the entries or a sheet {self.frame.where_to_look()}",
                 self._is_complete, 20)

    @functools.cached_property
    def list(self):
        return self.frame.find("list", LIST_NAMES[self.language], timeout=20)

    def _is_complete(self):
        below = {LIST_NAMES[self.language], EMPTY_HEAD[self.language][-1]}
        return self.frame.find_all("dialog") or any(
            below.intersection(child.name for child in entries.children)
            for entries in self.frame.find_all("list", LIST_NAMES[self.language]))

    @staticmethod
    def _shown(element):
        """What a screen reader finds just below the element."""
        return [child for child in element.children if child.has("visible")]

    @staticmethod
    def _labels(elements):
        return [e.name for e in elements if e.role == "label"]

    def head(self):
        """The texts above the rows of the list, from top to bottom, without the rows due soon."""
        return self._labels(self._shown(self.list))

    def upcoming(self):
        """The texts of each row of the charges due soon; None without that section."""
        for section in self._shown(self.list):
            if (section.role, section.name) == ("list", UPCOMING_NAMES[self.language]):
                return [self._labels(self._shown(row)) for row in self._shown(section)]
        return None

    def rows(self):
        """The texts of each row of the list, which is scrolled down until it has shown them all."""
        count, found = self.count(), {}

        def look():
            before = dict(found)
            found.update((row, self._labels(self._shown(row)))
                         for row in self._shown(self.list) if row.role == "list item")
            if len(found) < count:
                self.list.scroll(1)
            return len(found) >= count and found == before   # no row is still being made

        wait_for(f"{count} rows", look, 20)
        return list(found.values())

    def count(self):
        """The number of entries that the list names in its head; 0 when the list says it is empty."""
        ending = {"en": " items", "zh": " 项"}[self.language]
        named = [text for text in self.head() if text.endswith(ending)]
        return int(named[0].removesuffix(ending)) if named else 0


class Panel:
    """The panel of the tray item, which is open or about to."""

    def __init__(self, app):
        self.app = app
        self.dialog = app.find("dialog", "Tovarin")

    def texts(self):
        """What stands in it outside of its rows, from top to bottom."""
        return [e.name for e in self.dialog.children
                if e.role == "label" and e.has("visible")]

    def rows(self):
        """The texts of each charge that it names."""
        return [[text.name for text in row.children]
                for row in self.dialog.children if row.role == "list item"]

    def buttons(self):
        return [e.name for e in self.dialog.children if e.role == "push button"]

    def button(self, name):
        return self.dialog.find("push button", name)

    def focused_button(self):
        """The name of the button that the keyboard is at, if any."""
        return next((e.name for e in self.dialog.children
                     if e.role == "push button" and e.has("focused")), None)

    def wait_for_keyboard(self):
        wait_for("the keyboard in the panel",
                 lambda: self.dialog.find_all(where=lambda e: e.has("focused"))
                 or self.dialog.has("focused"))

    def wait_closed(self):
        self.app.gone("dialog", "Tovarin")
