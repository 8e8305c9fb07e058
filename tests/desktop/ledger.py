# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""A ledger of what must be in Tovarin's file, kept by whoever uses the program, in plain words of
its own: what is compared with it was worked out twice."""
import calendar
import datetime
import json
import os
import re
import zoneinfo

from entries import file_bytes
from main_window import data_file
from session import wait_for

ZONE = zoneinfo.ZoneInfo("Asia/Shanghai")
MONTHS = {"monthly": 1, "quarterly": 3, "yearly": 12}
ID = re.compile("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}")


class Drawn:
    """An id that the program draws by lot."""

    def __repr__(self):
        return "drawn"

    def takes(self, value, _now):
        return bool(ID.fullmatch(value))


class Since:
    """The moment, not before this one, at which the program looked at the clock."""

    def __init__(self, earliest):
        self.earliest = int(earliest)

    def __repr__(self):
        return f"since {self.earliest}"

    def takes(self, value, now):
        moment = datetime.datetime.strptime(value, "%Y-%m-%dT%H:%M:%SZ")
        seconds = moment.replace(tzinfo=datetime.timezone.utc).timestamp()
        return self.earliest <= seconds <= now


def stamp(day):
    """The beginning of a day, as it stands in the file."""
    start = datetime.datetime.combine(day, datetime.time(), ZONE)
    return start.astimezone(datetime.timezone.utc).strftime("%Y-%m-%dT%H:%M:%SZ")


def day_of(moment):
    """The day, for the user, of a moment as it stands in the file."""
    return datetime.datetime.strptime(moment, "%Y-%m-%dT%H:%M:%SZ") \
        .replace(tzinfo=datetime.timezone.utc).astimezone(ZONE).date()


def next_charge(entry, today):
    """The day, if any. After the 31st comes the 30th or the 28th, and that day stays."""
    day = day_of(entry["startDate"])
    if day >= today:
        return day
    if entry["billingType"] == "oneTime" or not entry["isActive"]:
        return None
    while day < today:
        if entry["cycle"] == "weekly":
            day += datetime.timedelta(7)
            continue
        month = day.month - 1 + MONTHS[entry["cycle"]]
        year, month = day.year + month // 12, month % 12 + 1
        day = datetime.date(year, month, min(day.day, calendar.monthrange(year, month)[1]))
    return day


class Ledger:
    def __init__(self, desktop):
        self.desktop = desktop
        self.entries = []
        self.is_written = False

    def _read(self):
        path = data_file(self.desktop)
        if not os.path.exists(path):
            return None
        with open(path, "rb") as file:
            return file.read()

    def _settled(self, content, entries):
        """The entries with what the program filled in, if they are what is in the file."""
        if content is None:
            return [] if not entries and not self.is_written else None
        written = json.loads(content)
        if len(written) != len(entries):
            return None
        now = self.desktop.clock.now()
        full = []
        for expected, found in zip(entries, written):
            entry = dict(expected)
            for key, value in expected.items():
                if hasattr(value, "takes"):
                    if not value.takes(found.get(key, ""), now):
                        return None
                    entry[key] = found[key]
            full.append(entry)
        ids = [entry["id"] for entry in full]
        return full if len(set(ids)) == len(ids) and file_bytes(*full) == content else None

    def settle(self, *candidates):
        """Waits until the file holds the entries, or else one of these lists, byte for byte; from
        then on that is what it must hold."""
        candidates = [self.entries, *candidates]
        held = []

        def look():
            content = self._read()
            held[:] = [full for full in (self._settled(content, entries) for entries in candidates)
                       if full is not None]
            self.is_written = self.is_written or content is not None
            return held

        wait_for(lambda: f"the file to hold {candidates!r}; had {self._read()!r}", look)
        self.entries = held[0]

    def names(self):
        return [entry["name"] for entry in self.entries]

    def active(self):
        return sum(entry["isActive"] and entry["billingType"] == "recurring"
                   for entry in self.entries)

    def reminders(self, days_before):
        """What the notifier keeps: identifiers and days, in the order of the entries."""
        now = datetime.datetime.fromtimestamp(self.desktop.clock.now(), ZONE)
        found = []
        for entry in self.entries:
            charge = next_charge(entry, now.date())
            if charge is None or not entry["isActive"] or entry["billingType"] == "oneTime":
                continue
            day = charge - datetime.timedelta(days_before)
            if datetime.datetime.combine(day, datetime.time(10), ZONE) > now:
                found.append(("renew-" + entry["id"], (day.year, day.month, day.day)))
        return found
