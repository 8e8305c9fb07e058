#!/usr/bin/python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""test_reminders.py PROGRAM NOTIFIER: waits for reminders as a user does, whether or not Tovarin
runs, with a clock that is about to reach ten, and looks at what arrives.
"""
import datetime
import os
import signal
import sys
import time
import unittest
import zoneinfo

from reminders import Notifier, TITLES, at, body
from session import Session, wait_for

PROGRAM = NOTIFIER = None
ZONE = "Asia/Shanghai"
LOCALES = {"en": "en_US.UTF-8", "zh": "zh_CN.UTF-8"}
DAY = "2025-06-09"
# The notification is seen as soon as the machine, which may be busy, gets to it.
MOST_SECONDS_LATE = 3


def seconds_after(session, clock_time, day=DAY):
    """How much later than this time of the day the session's clock shows."""
    then = datetime.datetime.fromisoformat(f"{day} {clock_time}")
    return session.clock.now() - then.replace(tzinfo=zoneinfo.ZoneInfo(ZONE)).timestamp()


class Desktop(unittest.TestCase):
    maxDiff = None

    def session(self, language="en", clock=DAY + " 09:59:50", **options):
        return Session(lang=LOCALES[language], tz=ZONE, clock=clock,
                       **{"tray": "none", **options})

    def start_notifier(self, desktop):
        app = desktop.start([NOTIFIER])
        return app, Notifier(desktop).wait()

    def expect_in_time(self, desktop, notification, clock_time="10:00:00", day=DAY):
        late = notification["at"] - desktop.clock.now() + seconds_after(desktop, clock_time, day)
        self.assertGreaterEqual(late, 0)
        self.assertLess(late, MOST_SECONDS_LATE)

    def expect_no_more(self, desktop, count, notifier):
        """The notifier has nothing left to show."""
        wait_for("nothing pending", lambda: notifier.pending() == [])
        self.assertEqual(len(desktop.notifications.all), count)

    def bodies(self, desktop):
        return [notification["body"] for notification in desktop.notifications.all]


class Notifying(Desktop):
    """The notifier alone, as Tovarin speaks with it."""

    def test_arrives_at_ten_with_everything_that_belongs_to_it(self):
        for language in LOCALES:
            with self.subTest(language), self.session(language) as desktop:
                app, notifier = self.start_notifier(desktop)
                text = body(language, "Music Plus", "¥30", 3)
                request = at(DAY, "renew-1", text, title=TITLES[language])
                self.assertEqual(notifier.add(request), 1)
                self.assertEqual(notifier.pending(), [request])
                arrived = desktop.notifications.wait(timeout=20)[0]
                self.expect_in_time(desktop, arrived)
                self.assertEqual(
                    {key: arrived[key] for key in ("app", "icon", "summary", "body", "actions",
                                                   "replaces", "timeout", "hints")},
                    {"app": "Tovarin", "icon": "app.tovarin.Tovarin",
                     "summary": TITLES[language], "body": text,
                     "actions": {"default": "Tovarin"}, "replaces": 0, "timeout": -1,
                     "hints": {"desktop-entry": "app.tovarin.Tovarin", "urgency": 1,
                               "sound-name": "message-new-instant"}})
                self.expect_no_more(desktop, 1, notifier)
                desktop.notifications.dismiss(arrived["id"])
                self.assertEqual(app.wait(), 0)
                self.assertEqual(app.log(), "")

    def test_arrives_once_however_often_it_is_killed(self):
        with self.session() as desktop:
            _, notifier = self.start_notifier(desktop)
            notifier.add(at(DAY, "renew-1", "first"), at("2025-06-10", "renew-2", "second"))
            for _ in range(3):
                os.kill(notifier.pid(), signal.SIGKILL)
                wait_for("the notifier's end", lambda: not notifier.is_running())
                self.start_notifier(desktop)
            arrived = desktop.notifications.wait(timeout=20)[0]
            self.expect_in_time(desktop, arrived)
            for _ in range(3):
                os.kill(notifier.pid(), signal.SIGKILL)
                wait_for("the notifier's end", lambda: not notifier.is_running())
                self.start_notifier(desktop)
                self.assertEqual(notifier.identifiers(), ["renew-2"])
            self.assertEqual(self.bodies(desktop), ["first"])

    def test_catches_up_at_login(self):
        with self.session(clock=DAY + " 09:00:00") as desktop:
            _, notifier = self.start_notifier(desktop)
            notifier.add(at(DAY, "renew-1", "first"), at("2025-06-10", "renew-2", "second"),
                         at("2025-06-20", "renew-3", "third"))
            os.kill(notifier.pid(), signal.SIGKILL)
            wait_for("the notifier's end", lambda: not notifier.is_running())
            desktop.clock.set("2025-06-12 18:00:00")
            self.start_notifier(desktop)
            desktop.notifications.wait(2)
            self.assertEqual(self.bodies(desktop), ["first", "second"])
            self.assertEqual(notifier.identifiers(), ["renew-3"])

    def test_waits_for_the_notification_service(self):
        with self.session(clock=DAY + " 11:00:00", notifications="none") as desktop:
            _, notifier = self.start_notifier(desktop)
            notifier.add(at(DAY, "renew-1", "first"))
            wait_for("nothing pending", lambda: notifier.pending() == [])
            self.assertTrue(notifier.is_running())
            desktop.notifications.mode = "record"
            desktop.notifications.start()
            desktop.notifications.wait()
            self.expect_no_more(desktop, 1, notifier)

    def test_leaves_when_nothing_is_pending_and_comes_back(self):
        with self.session() as desktop:
            app, notifier = self.start_notifier(desktop)
            self.assertEqual(app.wait(), 0)
            app, notifier = self.start_notifier(desktop)
            self.assertEqual(notifier.add(at(DAY, "renew-1", "first")), 1)
            self.assertEqual(notifier.change({"removeAll": True}), 0)
            self.assertEqual(app.wait(), 0)
            self.assertEqual(desktop.notifications.all, [])

    def test_starts_tovarin_when_clicked(self):
        with self.session(clock=DAY + " 10:30:00") as desktop:
            _, notifier = self.start_notifier(desktop)
            notifier.add(at(DAY, "renew-1", "first"))
            arrived = desktop.notifications.wait()[0]
            desktop.notifications.invoke(arrived["id"])
            wait_for("Tovarin", lambda: desktop.bus.has_owner("app.tovarin.Tovarin"), 20)
            wait_for("its window", lambda: any("Tovarin" in str(window) for window
                                               in desktop.windows().values()), 20)


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    PROGRAM, NOTIFIER = map(os.path.abspath, sys.argv[1:3])
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]], verbosity=2)
