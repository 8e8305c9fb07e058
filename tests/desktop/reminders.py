# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""The notifier of a session, spoken with over D-Bus, and what the reminders say."""
import json
import os
import signal

from gi.repository import GLib
from session import forget_clock, wait_for

# A reminder is seen as soon as the machine, which may be busy, gets to it.
MOST_SECONDS_LATE = 10

SERVICE = "app.tovarin.Tovarin.Notifier"
PATH = "/app/tovarin/Tovarin/Notifier"

TITLES = {"en": "Subscription renewing soon", "zh": "订阅即将续费"}
BODIES = {"en": "{} will be charged {} in {} days. Cancel ahead of time if you no longer need it.",
          "zh": "「{}」将在{2} 天后扣费 {1}，需要的话记得提前取消。"}
TEST = {"en": ("Tovarin test notification", "If you can see this, reminders are working ✅"),
        "zh": ("Tovarin 测试通知", "看到这条就说明续费提醒能正常工作 ✅")}


def body(language, name, money, days):
    template = BODIES[language]
    return template.format(name, money, days) if language == "en" else \
        template.replace("{}", name).replace("{2}", str(days)).replace("{1}", money)


def at(day, identifier, text, hour=10, minute=0, title=TITLES["en"]):
    """A request for a time of the day, which is written as "2025-06-09"."""
    year, month, number = map(int, day.split("-"))
    return {"identifier": identifier, "title": title, "body": text,
            "presentation": ["sound", "list", "banner"],
            "calendar": {"year": year, "month": month, "day": number, "hour": hour,
                         "minute": minute}}


class Notifier:
    def __init__(self, session):
        self.bus = session.bus

    def is_running(self):
        return self.bus.has_owner(SERVICE)

    def pid(self):
        return self.bus.pid_of(SERVICE)

    def wait(self):
        wait_for("the notifier", self.is_running)
        return self

    def kill(self):
        """Kills it; returns once the bus knows, or has another one."""
        pid = self.pid()

        def is_gone():
            try:
                return self.pid() != pid
            except GLib.Error:
                return True
        os.kill(pid, signal.SIGKILL)
        wait_for("the notifier's end", is_gone)
        forget_clock(pid)

    def change(self, *changes):
        """How many requests are pending afterwards."""
        return self.bus.call(SERVICE, PATH, SERVICE, "Change", "(s)", json.dumps(changes))

    def add(self, *requests):
        return self.change(*({"add": request} for request in requests))

    def pending(self):
        """The requests that are pending; none when the notifier is not there."""
        try:
            return json.loads(self.bus.call(SERVICE, PATH, SERVICE, "Pending"))
        except GLib.Error as error:
            if "ServiceUnknown" in str(error) or "NameHasNoOwner" in str(error):
                return []
            raise

    def identifiers(self):
        return [request["identifier"] for request in self.pending()]
