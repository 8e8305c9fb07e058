# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""The fonts: Poppins as it is, and for amounts that stand above each other "Poppins Tabular", in which
all digits are as wide as the widest. Poppins has no such figures of its own."""
import shutil

from fontTools import subset
from fontTools.ttLib import TTFont

WEIGHTS = {"Regular": 400, "Medium": 500, "SemiBold": 600, "Bold": 700}
TABULAR = ["SemiBold", "Bold"]
# What amounts are written with; anything else comes from Poppins.
CHARACTERS = [*range(0x20, 0x7F), 0xA0, *map(ord, "£¥€≈·−")]
FAMILY, FULL_NAME, POSTSCRIPT_NAME, UNIQUE_NAME = 1, 4, 6, 3
TYPOGRAPHIC_FAMILY = 16


def widen_digits(font):
    names = [font.getBestCmap()[ord(digit)] for digit in "0123456789"]
    widest = max(font["hmtx"][name][0] for name in names)
    for name in names:
        advance, left = font["hmtx"][name]
        glyph, shift = font["glyf"][name], (widest - advance) // 2
        glyph.coordinates.translate((shift, 0))
        glyph.recalcBounds(font["glyf"])
        font["hmtx"][name] = widest, left + shift


def rename(font):
    for record in font["name"].names:
        if record.nameID in (FAMILY, FULL_NAME, TYPOGRAPHIC_FAMILY, UNIQUE_NAME):
            record.string = record.toUnicode().replace("Poppins", "Poppins Tabular")
        elif record.nameID == POSTSCRIPT_NAME:
            record.string = record.toUnicode().replace("Poppins", "PoppinsTabular")


def write_tabular(source, target):
    font = TTFont(source, recalcTimestamp=False)
    # No kerning, which would move digits.
    chosen = subset.Subsetter(subset.Options(layout_features=[], hinting=False,
                                             name_IDs=["*"], name_languages=["*"]))
    chosen.populate(unicodes=CHARACTERS)
    chosen.subset(font)
    widen_digits(font)
    rename(font)
    font.save(target)


def write(packages, folder):
    for name, weight in WEIGHTS.items():
        shutil.copyfile(f"{packages}/poppins/{weight}{name}/Poppins_{weight}{name}.ttf",
                        f"{folder}/Poppins-{name}.ttf")
    for name in TABULAR:
        write_tabular(f"{folder}/Poppins-{name}.ttf", f"{folder}/PoppinsTabular-{name}.ttf")
    shutil.copyfile(f"{packages}/poppins/LICENSE_FONT", f"{folder}/LICENSE-OFL-1.1.txt")
