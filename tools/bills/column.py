# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""Writes from the top down between two edges of a page."""
import contextlib

import icons
from page import DoesNotFit


class Column:
    def __init__(self, page, left, right, top=0):
        self.page, self.look = page, page.look
        self.left, self.right, self.y = left, right, top

    @property
    def middle(self):
        return (self.left + self.right) / 2

    def gap(self, height):
        self.y += height * self.look.density
        self.page.height = max(self.page.height, self.y)

    def step(self, size):
        """The baseline of a line of that size; moves on below it."""
        baseline = self.y + 1.1 * size
        self.y += 1.5 * size
        return baseline

    def line(self, text, size=None, weight=400, color=None, align="left", family=None, parts=None):
        size = size or self.look.size
        x = {"left": self.left, "center": self.middle, "right": self.right}[align]
        left, right = self.page.text(x, self.step(size), text, size, weight, color, align, family,
                                     parts)
        if left < self.left - 0.5 or right > self.right + 0.5:
            raise DoesNotFit(text)

    def paragraph(self, text, size, color=None, align="left"):
        """Breaks a text into lines, at blanks or, if it has none, anywhere."""
        words, joint = (text.split(" "), " ") if " " in text else (list(text), "")
        line = ""
        for word in words:
            longer = line + joint + word if line else word
            if line and self.page.text_width(longer, size) > self.right - self.left - 2:
                self.line(line, size, color=color, align=align)
                longer = word
            line = longer
        self.line(line, size, color=color, align=align)

    def pair(self, label, value, size=None, weight=400, color=None, label_color=None, at=None,
             label_weight=400):
        """A label and its value: at the right edge, or beginning `at` some distance from the left."""
        size = size or self.look.size
        baseline = self.step(size)
        self.page.text(self.left, baseline, label, size, label_weight, label_color or self.look.muted)
        if at is None:
            self.page.text(self.right, baseline, value, size, weight, color, "right")
        else:
            right = self.page.text(self.left + at, baseline, value, size, weight, color)[1]
            if right > self.right:
                raise DoesNotFit(value)

    def rule(self, dashed=False, indent=0):
        self.page.rule(self.left + indent, self.y, self.right - self.left - indent, dashed=dashed)

    def button(self, text, size=None, filled=True, width=None, height=None):
        size = size or self.look.size
        height = height or 2.7 * size
        width = width or self.right - self.left
        x = self.middle - width / 2
        radius = min(self.look.radius, height / 2)
        if filled:
            self.page.box(x, self.y, width, height, self.look.accent, radius)
        else:
            self.page.box(x, self.y, width, height, self.look.accent, radius, line=1.2)
        if self.page.text_width(text, size, 500) > width - size:
            raise DoesNotFit(text)
        self.page.text(self.middle, self.y + height / 2 + 0.36 * size, text, size, 500,
                       self.look.on_accent if filled else self.look.accent, "center")
        self.y += height

    def icon(self, random, x, size, name=None):
        icons.draw(self.page, random, x, self.y, size, name)

    @contextlib.contextmanager
    def card(self, padding=16, color=None, border=False):
        """What is written inside stands on a card as wide as the column."""
        left, right, top = self.left, self.right, self.y
        self.left, self.right, self.y = left + padding, right - padding, top + padding * 0.8
        yield self
        self.left, self.right, self.y = left, right, self.y + padding * 0.8
        self.page.box(left, top, right - left, self.y - top, color or self.look.card,
                      self.look.radius, behind=True)
        if border:
            self.page.box(left, top, right - left, self.y - top, self.look.line, self.look.radius,
                          line=1)
