# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""What the kernel tells of the processes of a session."""
import collections
import os
import re


def _read(pid, name):
    with open(f"/proc/{pid}/{name}", encoding="utf-8", errors="replace") as file:
        return file.read()


def memory(pid):
    """MiB that are resident, and how many of them are the process's own, not a file's."""
    status = _read(pid, "status")
    return tuple(int(re.search(rf"^{name}:\s+(\d+) kB", status, re.M).group(1)) / 1024
                 for name in ("VmRSS", "RssAnon"))


def descriptors(pid):
    """What the process has open, and how often, without the numbers at the end of names."""
    found = collections.Counter()
    for number in os.listdir(f"/proc/{pid}/fd"):
        try:
            found[re.sub(r"\[?\d+\]?$", "", os.readlink(f"/proc/{pid}/fd/{number}"))] += 1
        except FileNotFoundError:
            continue
    return found


def children(pid):
    """The processes that it started and that have not been waited for: ids and names."""
    found = []
    for other in os.listdir("/proc"):
        if other.isdigit():
            try:
                name, state = re.fullmatch(r"\d+ \((.*)\) (.*)", _read(other, "stat"),
                                           re.S).group(1, 2)
            except (FileNotFoundError, ProcessLookupError):
                continue
            if int(state.split()[1]) == pid:
                found.append((int(other), name))
    return found


def running(session, programs):
    """Which of these programs run in the session, by the ids of their processes."""
    found = {}
    for pid in session._left_over():
        try:
            program = os.readlink(f"/proc/{pid}/exe").removesuffix(" (deleted)")
        except OSError:
            continue
        if program in programs:
            found[pid] = program
    return found
