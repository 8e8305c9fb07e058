# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""Draws one bill by lot and writes it down, with the truth about it."""
import json
import os
import random as chances

import contents
import cv2
import kinds
import looks
import numpy
import page as pages
import pdf_files
import rows


def by_lot(seed, layout, dark, width=None):
    """A page of that layout, and the facts on it; of another width where none fits the one that is
    asked for. The same seed gives the same page."""
    for attempt in range(100):
        random = chances.Random(f"{seed} {attempt}")
        language = layout.language or random.choice(["zh", "en"])
        look = looks.by_lot(random, language == "zh", dark)
        page = layout.paper(look, width if width and attempt < 25 else random.choice(layout.widths))
        bill = contents.Bill(random, language == "zh")
        try:
            layout.draw(page, bill, random)
            facts = bill.facts([text for row in page.rows() for text in row])
        except (pages.DoesNotFit, rows.Unclear):
            continue
        page.height += 16
        if page.width < 500 and random.random() < 0.6:
            page.height = max(page.height, random.choice([1.6, 1.78, 2.164]) * page.width)
        return page, facts, language, random
    raise RuntimeError(f"nothing fits the layout {layout.name}")


def truth(kind, layout, language, page, facts):
    return {"kind": kind, "group": kinds.group(kind),
            "language": language, "layout": layout.name, "rows": page.rows(), "fields": facts}


def write(folder, name, picture, quality, told):
    """The picture as PNG, or as JPEG of that quality, and the truth beside it."""
    options = [cv2.IMWRITE_JPEG_QUALITY, quality] if quality else [cv2.IMWRITE_PNG_COMPRESSION, 9]
    path = os.path.join(folder, name + (".jpg" if quality else ".png"))
    if not cv2.imwrite(path, picture, options):
        raise OSError(f"cannot write {path}")
    write_truth(folder, name, told)


def write_truth(folder, name, told):
    rows_text = ",\n    ".join(json.dumps(row, ensure_ascii=False) for row in told["rows"])
    head = {key: value for key, value in told.items() if key not in ("rows", "fields")}
    lines = [f'  "{key}": {json.dumps(value, ensure_ascii=False)},' for key, value in head.items()]
    lines.append(f'  "rows": [\n    {rows_text}\n  ],')
    lines.append(f'  "fields": {json.dumps(told["fields"], ensure_ascii=False)}')
    with open(os.path.join(folder, name + ".truth.json"), "w", encoding="utf-8") as file:
        file.write("{\n" + "\n".join(lines) + "\n}\n")


def draw(seed, number, kind, layout, folder):
    """One picture of a set; gives its file name without ending."""
    dark = kind == "dark"
    if kind in kinds.DEGRADED:
        dark = chances.Random(f"{seed} {number} dark").random() < 0.15
    page, facts, language, random = by_lot(f"{seed} {number}", layout, dark,
                                           390 if kind == "3x" and min(layout.widths) < 500 else None)
    if kind == "3x" and page.width == 390:
        page.height = max(page.height, 844)
    picture, quality = kinds.picture(kind, page, random)
    name = f"{number:03}-{kind}-{layout.name}"
    write(folder, name, picture, quality, truth(kind, layout, language, page, facts))
    return name


def draw_document(seed, number, kind, layout, folder):
    """One PDF file of a set; gives its name without ending."""
    page, facts, language, random = by_lot(f"{seed} {number}", layout, dark=False)
    if kind == "pdf-text":
        data = page.document()
    else:
        picture = kinds.scanned(page, random, numpy.random.RandomState(random.getrandbits(32)))
        data = pdf_files.scanned([pdf_files.Scan(picture, 72 * picture.shape[1] / 595,
                                                 random.randint(60, 85))])
    name = f"{number:03}-{kind}-{layout.name}"
    with open(os.path.join(folder, name + ".pdf"), "wb") as file:
        file.write(data)
    write_truth(folder, name, truth(kind, layout, language, page, facts))
    return name
