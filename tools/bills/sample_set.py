# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""The folder of samples: files, the truth about them, and the page that explains them."""
import os

import bills
import layouts

LAYOUTS = {layout.name: layout for layout in layouts.ALL}


class SampleSet:
    def __init__(self, folder):
        self.folder = folder
        self._entries = {}

    def bill(self, seed, layout, dark=False, width=None):
        """A page, and what to write down as the truth about it."""
        page, facts, language, random = bills.by_lot(f"sample {seed}", LAYOUTS[layout], dark, width)
        return page, {"kind": None, "group": None, "language": language, "layout": layout,
                      "rows": page.rows(), "fields": facts}, random

    def add(self, path, data, purpose, truth=None):
        """Keeps a file; `truth` is a bill's, or None where there is nothing to read."""
        group, name = path.split("/")
        os.makedirs(os.path.join(self.folder, group), exist_ok=True)
        with open(os.path.join(self.folder, path), "wb") as file:
            file.write(data)
        self._entries.setdefault(group, []).append((name, truth is not None, purpose))
        if truth:
            bills.write_truth(os.path.join(self.folder, group), os.path.splitext(name)[0], truth)

    def write_readme(self):
        lines = [HEAD]
        for group, entries in self._entries.items():
            lines += [f"\n## {group}\n\n{GROUPS[group]}\n\n| file | truth | shows |\n|---|---|---|"]
            lines += [f"| `{name}` | {'yes' if truth else 'no'} | {purpose} |"
                      for name, truth, purpose in entries]
        with open(os.path.join(self.folder, "README.md"), "w", encoding="utf-8") as file:
            file.write("\n".join(lines) + "\n")


HEAD = """# Sample bills

Everything here was drawn by `tools/bills/samples`, which also wrote this page: no file comes from
anybody's account. Names of well-known services stand for what people have on their bills; addresses
are of example domains, and numbers were drawn by lot. The fonts are those of Debian's packages in
`tools/packages/bills.txt`; only PDF files contain parts of them, as their licences (OFL, Apache,
Bitstream Vera, GPL with font exception) allow.

Beside a readable file `x.png` lies `x.truth.json`: every piece of text in reading order, row by row
and from left to right, and the facts on it: the amounts paid as printed, the days both as days and
as printed, and the name. A file without it has nothing that could be read for certain.

Beside every file `x.png` lies `x.png.golden.json`: what `tovarin-scanner` answers to it, or `null`
where it gives no draft, with the whole text that was read. A test compares. When the reading has
changed, and for new files, they are written anew by

    cmake --build --preset dev --target golden_bills

and looked over, change by change, before they are committed: they hold what is read, which is not
everywhere the truth."""

GROUPS = {
    "clean": "Screenshots and pages as they come out of a program.",
    "degraded": "The same after a camera, a messenger or a scanner. A person can still read all of it.",
    "pdf": "Documents with and without text, and such as are broken or odd.",
    "hazards": "Pictures that a reader must survive: odd forms of healthy ones, and broken ones."}
