#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""Fails when a screen makes a control of its own: Qt's controls and their bare pieces belong into
ui/controls, where they get their look, their keys and what a screen reader needs."""
import pathlib
import re
import sys

CONTROLS = "ui/controls/"
FORBIDDEN = [
    (re.compile(r"^\s*import\s+QtQuick\.(Controls|Templates)\b"), "imports Qt's controls"),
    (re.compile(r"\b(TextInput|TextEdit|MouseArea|TapHandler)\s*\{"), "makes a control of its own"),
    (re.compile(r"^\s*(background|indicator)\s*:"), "gives a control another look"),
]


def faults(root):
    for file in sorted((root / "ui").rglob("*.qml")):
        path = file.relative_to(root).as_posix()
        if path.startswith(CONTROLS):
            continue
        for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
            for pattern, fault in FORBIDDEN:
                if pattern.search(line):
                    yield f"{path}:{number}: {fault}"


def main():
    found = list(faults(pathlib.Path(sys.argv[1]).resolve()))
    print("\n".join(found) or "every screen leaves the controls to ui/controls")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
