# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""How a page looks: its fonts and colours, drawn by lot."""
import colorsys
import dataclasses

CHINESE = ["Noto Sans CJK SC"] * 5 + ["WenQuanYi Micro Hei", "WenQuanYi Zen Hei", "Noto Serif CJK SC"]
LATIN = ["Roboto", "Inter", "Open Sans", "Lato", "DejaVu Sans", "Liberation Sans"]
LATIN_SERIF = ["Liberation Serif", "DejaVu Serif", "Noto Serif CJK SC"]


def _rgb(text):
    return tuple(int(text[i:i + 2], 16) / 255 for i in (0, 2, 4))


def _mix(one, other, share):
    return tuple(a * (1 - share) + b * share for a, b in zip(one, other))


@dataclasses.dataclass
class Look:
    family: str
    dark: bool
    ground: tuple   # behind everything
    card: tuple     # behind a group of rows
    text: tuple
    muted: tuple    # labels
    faint: tuple    # small print
    line: tuple
    accent: tuple
    on_accent: tuple
    size: float     # of the body text
    radius: float
    density: float  # distance of rows, as a factor

    def tint(self, share=0.12):
        """The accent, hardly there."""
        return _mix(self.card, self.accent, share)


def by_lot(random, chinese, dark):
    if chinese:
        family = random.choice(CHINESE)
        if random.random() < 0.6:
            family = f"{random.choice(LATIN)}, {family}"
    else:
        serif = random.random() < 0.15
        family = f"{random.choice(LATIN_SERIF if serif else LATIN)}, Noto Sans CJK SC"
    if dark:
        ground, card = random.choice([("000000", "1c1c1e"), ("121212", "1e1e1e"),
                                      ("0f1419", "192734"), ("18181b", "27272a"),
                                      ("1a1b26", "1a1b26")])
        text, muted, faint, line = random.choice([("ffffff", "a1a1a8", "8e8e93", "38383a"),
                                                  ("e8eaed", "9aa0a6", "9aa0a6", "3c4043"),
                                                  ("e4e4e7", "b0b0b8", "8c8c96", "3f3f46")])
    else:
        ground, card = random.choice([("ffffff", "ffffff"), ("f2f2f7", "ffffff"),
                                      ("f5f5f5", "ffffff"), ("ffffff", "f7f7f9"),
                                      ("ededed", "ffffff"), ("fafaf7", "ffffff"),
                                      ("eef2f7", "ffffff"), ("fbf3e6", "fffdf8")])
        text, muted, faint, line = random.choice([("000000", "6c6c70", "8a8a8e", "dcdce0"),
                                                  ("222222", "666666", "888888", "e5e5e5"),
                                                  ("191919", "7a7a7a", "7f7f7f", "e6e6e6"),
                                                  ("1f2937", "6b7280", "6b7280", "e5e7eb"),
                                                  ("333333", "555555", "777777", "cccccc")])
    hue = random.random()
    value = random.uniform(0.55, 0.8) if not dark else random.uniform(0.6, 0.85)
    accent = colorsys.hsv_to_rgb(hue, random.uniform(0.6, 0.95), value)
    light = 0.3 * accent[0] + 0.59 * accent[1] + 0.11 * accent[2]
    return Look(family, dark, _rgb(ground), _rgb(card), _rgb(text), _rgb(muted), _rgb(faint),
                _rgb(line), accent, (1, 1, 1) if light < 0.6 else (0.05, 0.05, 0.05),
                random.choice([14, 15, 15, 16, 16, 17]), random.choice([0, 4, 8, 10, 12, 16]),
                random.uniform(0.85, 1.2))
