# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""What the tests share in which each of Tovarin's jobs is done in one way only."""
import contextlib
import json
import os
import shutil
from unittest import mock

from entries import NETFLIX, OTHER, Entries, draft, stored
from main_window import BILLS, install_records, settled
from session import Element, Session, Tray
from sheets import session

# Both are read from their text, which takes no time, and name a day.
SAMPLES = ("pdf/text-layer-chinese.pdf", "pdf/text-layer-phone.pdf")
COPIED = {"en": "Netflix $15.50 Monthly", "zh": "Netflix $15.50 每月"}


def refuse(*_args, **_options):
    raise AssertionError("This is not the way.")


@contextlib.contextmanager
def only_keys():
    """No pointer, and nothing that a screen reader does; it may look."""
    with mock.patch.multiple(Session, move=refuse, click=refuse, drop_files=refuse), \
            mock.patch.multiple(Element, do=refuse, set_text=refuse):
        yield


@contextlib.contextmanager
def only_accessibility():
    """Neither keys nor pointer."""
    with mock.patch.multiple(Session, key=refuse, type=refuse, move=refuse, click=refuse,
                             drop_files=refuse, close_window=refuse):
        yield


def activate(item):
    """What the host of a tray does when it is told to press the item; it has ways of its own."""
    item.s.bus.call(item.service, item.path, Tray.ITEM, "Activate", "(ii)", 0, 0)


class Jobs(Entries):
    def desktop(self, language):
        return session(language, settled(lambda s: install_records(s, [OTHER, NETFLIX])))

    def bills(self, desktop):
        paths = []
        for sample in SAMPLES:
            paths.append(os.path.join(desktop.home, os.path.basename(sample)))
            shutil.copyfile(os.path.join(BILLS, sample), paths[-1])
        return paths

    def expect_bills(self, desktop, language, *before):
        """Both are at the end of the file."""
        ids = [entry["id"] for entry in json.loads(stored(desktop))[-2:]]
        self.expect_stored(desktop, *before, *({"id": identifier, **draft(sample, language)}
                                               for identifier, sample in zip(ids, SAMPLES)))
