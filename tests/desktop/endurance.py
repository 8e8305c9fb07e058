#!/usr/bin/python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""Uses Tovarin at random for a while, in a desktop session of its own, and kills it now and then.
At each of its starts and ends its file must hold, byte for byte, what was put in; no process stays
behind, nothing is said on standard error, and between a warm start and the end of a long life
neither the memory nor the open files have grown.

By hand: endurance.py --seed 7 --minutes 60 build/dev/app/tovarin \\
             build/dev/scanner/tovarin-scanner build/dev/notifier/tovarin-notifier
"""
import argparse
import os
import random
import shutil
import sys
import time
import traceback

from main_window import LOCALES
from processes import descriptors, memory, running
from reminders import Notifier
from session import Session, wait_for
from sheets import Sheet
from user_at_random import User
from words import PICK

# The first part of the time is one life, so that what grows has the time for it. On a machine that
# is so busy that the time is soon over, so much is done all the same.
LONG_LIFE = 0.6
LEAST_ACTIONS = 12
LEAST_SHORT_LIVES = 2
SAME_ENTRIES = 4
# In MiB. What is drawn for the first time stays in caches: 5 were added in a life of 175 actions
# that followed the tour of the screens. A screen reader, as which the test goes about, costs Qt
# Quick Controls 6.4 one KiB for each check box, radio button and switch that is made, some 5 an
# action.
MOST_GROWTH_AT_FIRST = 10
MOST_GROWTH_EACH = 10 / 1024
# So much is done before nothing is new.
SETTLED_ACTIONS = 250
MOST_GROWTH_LATER = 4
# The C library's own variables: what is freed leaves the process, so that what stays is held.
GIVE_BACK = {"MALLOC_MMAP_THRESHOLD_": "65536", "MALLOC_TRIM_THRESHOLD_": "65536",
             "MALLOC_ARENA_MAX": "1"}
# Actions until the program is killed or quit, in the second part.
SHORT_LIVES = (2, 12)

# The wrapper through which the notifier's words reach a file; Tovarin starts it with none.
WRAPPER = """#!/bin/sh
exec "{notifier}" "$@" 2>>"{log}"
"""


class Grown(AssertionError):
    """Something was not given back."""


class Endurance:
    def __init__(self, options):
        self.options = options
        self.begin = time.monotonic()
        self.end = self.begin + 60 * options.minutes
        self.random = random.Random(options.seed)
        self.system = self.random.choice(list(LOCALES))
        self.actions = 0
        self.programs = ()
        self.notifier_log = ""

    def say(self, text):
        seconds = time.monotonic() - self.begin
        print(f"{int(seconds // 60):3}:{seconds % 60:04.1f} {self.actions:5} {text}", flush=True)

    # -- the session

    def session(self):
        """It is half past ten: the day's reminders are past, and none comes in half a day."""
        clock = None if self.options.real_clock else "2025-06-10 10:30:00"
        sanitizers = ("ASAN_OPTIONS", "UBSAN_OPTIONS", "LSAN_OPTIONS")
        return Session(lang=LOCALES[self.system], tz="Asia/Shanghai", clock=clock,
                       env={**GIVE_BACK, **{name: os.environ[name] for name in sanitizers
                                            if name in os.environ}})

    def install(self, desktop):
        """Puts a copy of Tovarin where no new build reaches it, and its helpers beside it."""
        folder = desktop.root + "/programs"
        os.makedirs(folder)
        program = shutil.copy2(self.options.program, folder)
        scanner, notifier = map(os.path.realpath, (self.options.scanner, self.options.notifier))
        os.symlink(scanner, folder + "/tovarin-scanner")
        self.notifier_log = desktop.root + "/log/notifier.log"
        with open(folder + "/tovarin-notifier", "w", encoding="utf-8") as file:
            file.write(WRAPPER.format(notifier=notifier, log=self.notifier_log))
        os.chmod(folder + "/tovarin-notifier", 0o755)
        return program, scanner, notifier

    # -- what must hold

    def expect_reminders(self, desktop, user):
        expected = user.ledger.reminders(user.days)
        notifier = Notifier(desktop)

        def pending():
            return [(request["identifier"],
                     tuple(request["calendar"][part] for part in ("year", "month", "day")))
                    for request in notifier.pending() if "calendar" in request]
        wait_for(lambda: f"the reminders {expected}; had {pending()}",
                 lambda: pending() == expected, 15)

    def expect_silence(self, user):
        for app in user.started:
            if app.log():
                raise AssertionError(f"Tovarin said: {app.log()}")
        if os.path.exists(self.notifier_log):
            with open(self.notifier_log, encoding="utf-8", errors="replace") as log:
                said = log.read()
            if said:
                raise AssertionError(f"the notifier said: {said}")

    def measure(self, desktop, user):
        """Of the program and the notifier, in the same state: their memory and what they have open.
        """
        user.come_to_the_same(SAME_ENTRIES)
        user.expect_tests()
        self.expect_reminders(desktop, user)
        found = {"Tovarin": user.app.pid}
        if Notifier(desktop).is_running():
            found["notifier"] = Notifier(desktop).pid()
        return {name: (pid, memory(pid), descriptors(pid)) for name, pid in found.items()}

    def look(self, desktop, user):
        measured = self.measure(desktop, user)
        for name, (pid, (resident, own), opened) in measured.items():
            self.say(f"= {name} {pid}: {resident:.1f} MiB resident, {own:.1f} its own, "
                     f"{sum(opened.values())} open")
        return measured

    def expect_no_growth(self, before, now, most):
        """Nothing else is open than before, and neither program has taken more than so many MiB."""
        for name, (pid, (_, own), opened) in now.items():
            if name not in before:
                continue
            pid_before, (_, own_before), opened_before = before[name]
            # Another process may be compared in what it has open, but has another past.
            if opened != opened_before:
                raise Grown(f"{name} has open now {opened - opened_before}, "
                            f"and no longer {opened_before - opened}")
            # The address sanitizer keeps what is freed.
            if pid == pid_before and own - own_before > most and not self.options.real_clock:
                raise Grown(f"{name} has grown from {own_before:.1f} to {own:.1f} MiB")

    # -- the course

    def time_left(self, share=1.0):
        return time.monotonic() < self.begin + share * (self.end - self.begin)

    def live(self, desktop, user):
        self.say(f"seed {self.options.seed}, {self.options.minutes:g} minutes, {self.system}")
        user.start()
        user.may_be_killed = False
        user.pick(Sheet(user.app, PICK[user.language]), "add")
        user.tour()
        self.live_long(desktop, user)
        lives = 0
        while lives < LEAST_SHORT_LIVES or self.time_left():
            self.live_shortly(desktop, user)
            lives += 1
        self.expect_silence(user)
        wanted = [self.programs[2]] if user.ledger.reminders(user.days) else []
        wait_for(lambda: f"{wanted} alone to run; there is {running(desktop, self.programs)}",
                 lambda: list(running(desktop, self.programs).values()) == wanted, 15)
        self.say(f"seed {self.options.seed} went well")

    def live_long(self, desktop, user):
        warm, settled = self.look(desktop, user), None
        while self.actions < LEAST_ACTIONS or self.time_left(LONG_LIFE):
            self.actions += 1
            user.act()
            if self.actions == SETTLED_ACTIONS:
                settled = self.look(desktop, user)
            elif self.actions % self.options.every == 0:
                self.look(desktop, user)
        now = self.look(desktop, user)
        self.expect_no_growth(warm, now, MOST_GROWTH_AT_FIRST + self.actions * MOST_GROWTH_EACH)
        if settled:
            self.expect_no_growth(settled, now, MOST_GROWTH_LATER +
                                  (self.actions - SETTLED_ACTIONS) * MOST_GROWTH_EACH)
        user.quit()
        self.expect_reminders(desktop, user)
        user.may_be_killed = True

    def live_shortly(self, desktop, user):
        user.start()
        for _ in range(self.random.randint(*SHORT_LIVES)):
            self.actions += 1
            user.act()
        user.expect_tests()
        self.expect_reminders(desktop, user)
        if self.random.random() < 0.3:
            self.kill_notifier(desktop)
            self.expect_reminders(desktop, user)
        self.random.choice((user.kill, user.quit))()
        self.expect_reminders(desktop, user)
        self.expect_silence(user)

    def kill_notifier(self, desktop):
        """Tovarin starts another."""
        if Notifier(desktop).is_running():
            self.say("notifier killed")
            Notifier(desktop).kill()

    def run(self):
        with self.session() as desktop:
            self.programs = self.install(desktop)
            user = User(desktop, self.programs, self.random, self.system, self.say)
            try:
                self.live(desktop, user)
            except Exception:
                traceback.print_exc(file=sys.stdout)
                self.say(f"seed {self.options.seed} went wrong")
                if user.app and user.app.running():
                    print(user.app.tree())
                if user.app:
                    print(user.app.log())
                return 1
        return 0


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("program")
    parser.add_argument("scanner")
    parser.add_argument("notifier")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--minutes", type=float, default=1)
    parser.add_argument("--every", type=int, default=50,
                        help="actions of the long life between two reports of its memory")
    parser.add_argument("--real-clock", action="store_true",
                        help="without the faked clock and the limits of memory, for programs "
                             "with the address sanitizer")
    sys.exit(Endurance(parser.parse_args()).run())


if __name__ == "__main__":
    main()
