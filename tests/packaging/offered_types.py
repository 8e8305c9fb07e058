#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""offered_types.py TREE BILLS: fails when the scanner that is installed below TREE finds nothing in a
bill of a type that the desktop entry offers to open. BILLS is the folder of the sample bills."""
import json
import os
import subprocess
import sys

from installed import ID, Tree, group

SAMPLES = {"application/pdf": "pdf/scanned.pdf", "image/png": "clean/invoice-1x.png",
           "image/jpeg": "clean/order-details-jpeg.jpg", "image/tiff": "hazards/bill.tiff",
           "image/webp": "hazards/bill.webp"}


def main():
    tree, bills = Tree(sys.argv[1]), os.path.abspath(sys.argv[2])
    entry = group(tree.at(f"share/applications/{ID}.desktop"), "Desktop Entry")
    types = [name for name in entry["MimeType"].split(";") if name]
    requests = "".join(json.dumps({"path": f"{bills}/{SAMPLES[name]}"}) + "\n" for name in types)
    answers = subprocess.run([tree.at("libexec/tovarin/tovarin-scanner"), "en"],
                             input=requests.encode(), stdout=subprocess.PIPE, check=True).stdout
    drafts = [json.loads(line) for line in answers.splitlines()]
    unread = [name for name, draft in zip(types, drafts) if not draft]
    if len(drafts) != len(types) or unread:
        sys.exit(f"{len(drafts)} answers to {len(types)} bills; nothing found in: {unread}")
    print("\n".join(f"{name}: {draft[0]['name']}" for name, draft in zip(types, drafts)))


if __name__ == "__main__":
    main()
