#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""Fails when a source file includes one of a folder that may not be used from its own.

The folders stand here lowest first, each with those it may use. Every folder with sources must be
listed, and every include of this project's must name its folder."""
import pathlib
import re
import sys

LOCALIZATION = "app/LocalizationManager"
MAY_USE = {
    "platform": [],
    LOCALIZATION: ["platform"],
    "model": ["platform", LOCALIZATION],
    "catalog": ["platform", LOCALIZATION, "model"],
    "scan": ["platform", LOCALIZATION, "model"],
    "scanner": ["platform", LOCALIZATION, "model", "scan"],
    "notifier": ["platform"],
    "ui": ["platform", LOCALIZATION, "model", "catalog", "scan"],
    "app": ["platform", LOCALIZATION, "model", "catalog", "scan", "ui"],
}
# They look at everything and nothing may look at them.
OUTSIDE = ["tests", "benchmarks", "fuzz"]
IGNORED = ["build"]


def unit_of(path):
    """The entry of MAY_USE, or the folder outside, that a path from the root belongs to."""
    if path.startswith(LOCALIZATION + "."):
        return LOCALIZATION
    return path.split("/")[0]


def faults(root):
    for file in sorted(root.rglob("*")):
        path = file.relative_to(root).as_posix()
        unit = unit_of(path)
        if file.suffix not in (".h", ".cpp") or unit in IGNORED or unit.startswith("."):
            continue
        if unit in OUTSIDE:
            continue
        if unit not in MAY_USE:
            yield f"{path}: the folder {unit} has no place in the order"
            continue
        for number, line in enumerate(file.read_text(encoding="utf-8").splitlines(), 1):
            include = re.match(r'\s*#\s*include\s*"([^"]+)"', line)
            if not include or include[1].endswith(".moc"):
                continue
            used = unit_of(include[1])
            if not (root / include[1]).is_file():
                yield f'{path}:{number}: "{include[1]}" is not written from the root'
            elif used != unit and used not in MAY_USE[unit]:
                yield f"{path}:{number}: {unit} may not use {used}"


def main():
    found = list(faults(pathlib.Path(sys.argv[1]).resolve()))
    print("\n".join(found) or "every include keeps the order")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
