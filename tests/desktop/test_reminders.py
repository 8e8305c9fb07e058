#!/usr/bin/python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""test_reminders.py PROGRAM NOTIFIER: waits for reminders as a user does, whether or not Tovarin
runs, with a clock that is about to reach ten, and looks at what arrives.
"""
import contextlib
import datetime
import os
import sys
import time
import unittest
import zoneinfo

from main_window import TITLES as WINDOW_TITLES
from main_window import LOCALES, MainWindow, configure, install_records, record
from reminders import MOST_SECONDS_LATE, TEST, TITLES, Notifier, at, body
from session import Session, wait_for
from words import PAUSE, SEND_TEST, SETTINGS

PROGRAM = NOTIFIER = None
ZONE = "Asia/Shanghai"
DAY = "2025-06-09"


def seconds_after(session, clock_time, day=DAY):
    """How much later than this time of the day the session's clock shows."""
    then = datetime.datetime.fromisoformat(f"{day} {clock_time}")
    return session.clock.now() - then.replace(tzinfo=zoneinfo.ZoneInfo(ZONE)).timestamp()


class Desktop(unittest.TestCase):
    maxDiff = None

    @contextlib.contextmanager
    def session(self, language="en", clock=DAY + " 09:59:50", **options):
        with Session(lang=LOCALES[language], tz=ZONE, clock=clock,
                     **{"tray": "none", **options}) as desktop:
            desktop.clock.set(clock)     # the desktop took some seconds to come up
            yield desktop

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
                arrived = desktop.notifications.wait(timeout=30)[0]
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
                notifier.kill()
                self.start_notifier(desktop)
            arrived = desktop.notifications.wait(timeout=30)[0]
            self.expect_in_time(desktop, arrived)
            for _ in range(3):
                notifier.kill()
                self.start_notifier(desktop)
                self.assertEqual(notifier.identifiers(), ["renew-2"])
            self.assertEqual(self.bodies(desktop), ["first"])

    def test_catches_up_at_login(self):
        with self.session(clock=DAY + " 09:00:00") as desktop:
            _, notifier = self.start_notifier(desktop)
            notifier.add(at(DAY, "renew-1", "first"), at("2025-06-10", "renew-2", "second"),
                         at("2025-06-20", "renew-3", "third"))
            notifier.kill()
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
            desktop.notifications.start()
            desktop.notifications.wait()
            self.expect_no_more(desktop, 1, notifier)

    def test_leaves_when_nothing_is_pending_and_comes_back(self):
        with self.session(clock=DAY + " 09:00:00") as desktop:
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


# On 9 June the first two are charged in three days, the third in nine; the others have no reminder.
RECORDS = [
    record(0xa1, "Music Plus", "2025-01-12", 30),
    record(2, "视频会员", "2025-02-12", 9.99, "USD"),
    record(3, "Cloud", "2025-01-18", 5),
    record(4, "Paused", "2025-01-12", 5, isActive=False),
    record(5, "Bought", "2025-06-12", 5, billingType="oneTime"),
    record(6, "Tomorrow", "2025-01-10", 5),
]
FIRST, SECOND, THIRD, SIXTH = (f"renew-00000000-0000-4000-8000-{number:012}"
                               for number in (0xa1, 2, 3, 6))


class WithTovarin(Desktop):
    """Tovarin plans, and the notifier that it starts delivers."""

    def start(self, desktop, language="en", records=RECORDS, **settings):
        """Starts Tovarin with a list, or with the one that it has, and waits for its notifier."""
        if records is not None:
            install_records(desktop, records)
            configure(desktop, didCompleteQuickPick="true", **settings)
        app = desktop.start([PROGRAM])
        MainWindow(app, language)
        app.wait_window(WINDOW_TITLES[language])
        return app, Notifier(desktop).wait()

    def wait_pending(self, notifier, *identifiers):
        wait_for(lambda: f"{identifiers} pending, not {notifier.identifiers()}",
                 lambda: notifier.identifiers() == list(identifiers), 10)

    def press(self, app, name):
        """Presses a button of a sheet; at its place the accessibility tree names what it covers."""
        button = app.find("push button", name)
        places = []

        def is_still():
            places.append(button.rect)
            return len(places) > 2 and places[-1] == places[-2] == places[-3]
        wait_for("the sheet to stand still", is_still)
        app.s.click(*button.center())

    def quit(self, desktop, app):
        desktop.key("ctrl+q")
        self.assertEqual(app.wait(), 0)
        self.assertEqual(app.log(), "")

    def test_arrives_on_time_after_tovarin_has_quit(self):
        for language in LOCALES:
            with self.subTest(language), \
                    self.session(language, clock=DAY + " 09:59:40") as desktop:
                app, notifier = self.start(desktop, language)
                self.wait_pending(notifier, FIRST, SECOND, THIRD)
                self.quit(desktop, app)
                self.assertLess(seconds_after(desktop, "10:00:00"), 0, "the machine is too slow")
                for arrived in desktop.notifications.wait(2, timeout=40):
                    self.expect_in_time(desktop, arrived)
                    self.assertEqual(arrived["summary"], TITLES[language])
                self.assertEqual(self.bodies(desktop),
                                 [body(language, "Music Plus", "¥30", 3),
                                  body(language, "视频会员", "$9.99", 3)])
                self.wait_pending(notifier, THIRD)
                # Another start does not bring back what was delivered.
                app, notifier = self.start(desktop, language, None)
                self.wait_pending(notifier, THIRD)
                self.assertEqual(len(desktop.notifications.all), 2)
                self.quit(desktop, app)

    def test_arrives_once_though_the_notifier_is_killed(self):
        with self.session(clock=DAY + " 09:59:40") as desktop:
            app, notifier = self.start(desktop)
            self.wait_pending(notifier, FIRST, SECOND, THIRD)
            first = notifier.pid()
            notifier.kill()
            wait_for("another notifier", lambda: notifier.is_running()
                     and notifier.pid() != first)
            self.wait_pending(notifier, FIRST, SECOND, THIRD)
            arrived = desktop.notifications.wait(2, timeout=40)
            self.expect_in_time(desktop, arrived[0])
            notifier.kill()
            self.start_notifier(desktop)
            self.assertEqual(notifier.identifiers(), [THIRD])
            self.assertEqual(len(desktop.notifications.all), 2)
            self.quit(desktop, app)

    def test_keeps_the_count_of_days_that_is_set(self):
        for days, pending in (("0", (FIRST, SECOND, THIRD, SIXTH)),
                              ("-2", (FIRST, SECOND, THIRD, SIXTH)),
                              ("7", (THIRD,)), ("many", (FIRST, SECOND, THIRD))):
            with self.subTest(days), self.session(clock=DAY + " 09:00:00") as desktop:
                app, notifier = self.start(desktop, remindDaysBefore=days)
                self.wait_pending(notifier, *pending)
                self.assertEqual(notifier.pending()[0]["body"].partition(". ")[0], {
                    "0": "Music Plus will be charged ¥30 today",
                    "-2": "Music Plus will be charged ¥30 today",
                    "7": "Cloud will be charged ¥5 in 7 days",
                    "many": "Music Plus will be charged ¥30 in 3 days"}[days])
                self.quit(desktop, app)

    def test_forgets_what_is_paused(self):
        for language in LOCALES:
            with self.subTest(language), \
                    self.session(language, clock=DAY + " 09:30:00") as desktop:
                app, notifier = self.start(desktop, language, RECORDS[:1])
                self.wait_pending(notifier, FIRST)
                window = MainWindow(app, language)
                rows = [element for element in window.list.children
                        if (element.role, element.name) == ("list item", "Music Plus")]
                rows[0].click()
                self.press(app, PAUSE[language])
                self.wait_pending(notifier)
                self.quit(desktop, app)
                wait_for("the notifier to leave", lambda: not notifier.is_running(), 10)
                # A reminder that was still planned would now be caught up with.
                desktop.clock.set(DAY + " 10:00:01")
                app, _ = self.start_notifier(desktop)
                self.assertEqual(app.wait(), 0)
                self.assertEqual(desktop.notifications.all, [])

    def test_sends_the_test_of_the_settings_also_while_in_front(self):
        for language in LOCALES:
            with self.subTest(language), \
                    self.session(language, clock=DAY + " 12:00:00") as desktop:
                app, _ = self.start(desktop, language, RECORDS[:1])
                app.find("push button", SETTINGS[language]).click()
                pressed = time.monotonic()
                self.press(app, SEND_TEST[language])
                arrived = desktop.notifications.wait(timeout=3 + MOST_SECONDS_LATE)[0]
                self.assertGreaterEqual(arrived["mono"] - pressed, 2.9)
                self.assertEqual((arrived["summary"], arrived["body"]), TEST[language])
                self.assertEqual(len(desktop.notifications.all), 1)

    def test_comes_to_the_front_when_clicked(self):
        with self.session(clock=DAY + " 09:59:45") as desktop:
            app, notifier = self.start(desktop)
            self.wait_pending(notifier, FIRST, SECOND, THIRD)
            arrived = desktop.notifications.wait(2, timeout=40)
            desktop.key("ctrl+h")
            wait_for("no window in sight", lambda: not app.windows())
            desktop.notifications.invoke(arrived[0]["id"])
            app.wait_window(WINDOW_TITLES["en"])
            self.quit(desktop, app)


if __name__ == "__main__":
    if len(sys.argv) < 3:
        sys.exit(__doc__)
    PROGRAM, NOTIFIER = map(os.path.abspath, sys.argv[1:3])
    unittest.main(argv=[sys.argv[0], *sys.argv[3:]], verbosity=2)
