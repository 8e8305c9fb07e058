# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""A page that is drawn once, as vectors, and remembers every piece of text on it.

All lengths are in the page's own pixels: a phone is 375 to 420 of them wide. The page can then be
shown at any scale, as a picture or in a PDF, with the same text at the same places."""
import math

import cairo
import gi
import numpy

gi.require_version("Pango", "1.0")
gi.require_version("PangoCairo", "1.0")
from gi.repository import Pango, PangoCairo  # noqa: E402

import pdf_files  # noqa: E402
import rows  # noqa: E402


class DoesNotFit(Exception):
    """These contents do not fit this layout; others may."""


class Page:
    """`look` gives fonts and colours, `width` the width; the height follows from what is drawn."""

    def __init__(self, look, width):
        self.look = look
        self.width = width
        self.height = 0
        self.pieces = []
        self._layers = [cairo.RecordingSurface(cairo.CONTENT_COLOR_ALPHA, None) for _ in range(2)]
        self._cards, self.context = [cairo.Context(layer) for layer in self._layers]
        self._options = cairo.FontOptions()
        self._options.set_hint_style(cairo.HINT_STYLE_NONE)
        self._options.set_hint_metrics(cairo.HINT_METRICS_OFF)
        self._options.set_antialias(cairo.ANTIALIAS_GRAY)

    def _layout(self, text, size, weight, family, parts):
        layout = PangoCairo.create_layout(self.context)
        PangoCairo.context_set_font_options(layout.get_context(), self._options)
        layout.get_context().set_language(Pango.Language.from_string("zh-cn"))
        font = Pango.FontDescription()
        font.set_family(family or self.look.family)
        font.set_weight(weight)
        font.set_absolute_size(size * Pango.SCALE)
        layout.set_font_description(font)
        layout.set_text(text, -1)
        attributes = Pango.AttrList()
        start = 0
        for part, factor in parts or ():
            attribute = Pango.attr_size_new_absolute(int(size * factor * Pango.SCALE))
            attribute.start_index = start
            start += len(part.encode())
            attribute.end_index = start
            attributes.insert(attribute)
        if parts:
            layout.set_attributes(attributes)
        if layout.get_unknown_glyphs_count():
            raise RuntimeError(f"no font has all letters of {text!r}")
        return layout

    def text(self, x, baseline, text, size, weight=400, color=None, align="left", family=None,
             parts=None):
        """Writes one piece of text; `align` tells which end `x` is. `parts` splits the text into
        pieces of other sizes, given as factors. Gives the piece's left and right end."""
        text = text or "".join(part for part, _ in parts)
        if not text or text != text.strip():
            raise ValueError(f"{text!r} has blanks at its ends")
        layout = self._layout(text, size, weight, family, parts)
        width = layout.get_size()[0] / Pango.SCALE
        left = x - {"left": 0, "center": width / 2, "right": width}[align]
        if left < 4 or left + width > self.width - 4:
            raise DoesNotFit(text)
        self.context.set_source_rgb(*(color or self.look.text))
        self.context.move_to(left, baseline - layout.get_baseline() / Pango.SCALE)
        PangoCairo.show_layout(self.context, layout)
        self.pieces.append(rows.Piece(text, left, left + width, baseline, size))
        self.height = max(self.height, baseline + size)
        return left, left + width

    def text_width(self, text, size, weight=400):
        return self._layout(text, size, weight, None, None).get_size()[0] / Pango.SCALE

    def box(self, x, y, width, height, color, radius=0, line=0, behind=False):
        """A rectangle, filled, or with a border of `line` only; one that is `behind` lies under all
        that is drawn before or after it."""
        path = self._cards if behind else self.context
        radius = min(radius, width / 2, height / 2)
        path.new_sub_path()
        for corner_x, corner_y, turn in ((x + width - radius, y + radius, -1), (
                x + width - radius, y + height - radius, 0), (
                x + radius, y + height - radius, 1), (x + radius, y + radius, 2)):
            path.arc(corner_x, corner_y, radius, turn * math.pi / 2, (turn + 1) * math.pi / 2)
        path.close_path()
        path.set_source_rgb(*color)
        if line:
            path.set_line_width(line)
            path.stroke()
        else:
            path.fill()
        self.height = max(self.height, y + height)

    def rule(self, x, y, width, color=None, thickness=1, dashed=False):
        path = self.context
        path.set_source_rgb(*(color or self.look.line))
        path.set_line_width(thickness)
        path.set_dash([4, 3] if dashed else [])
        path.move_to(x, y)
        path.line_to(x + width, y)
        path.stroke()
        path.set_dash([])
        self.height = max(self.height, y)

    def rows(self):
        """The texts in reading order; refuses a page whose rows are not plain to see."""
        return rows.in_reading_order(self.pieces)

    def smallest_size(self):
        return min(piece.size for piece in self.pieces)

    def picture(self, scale):
        """The page's pixels at that scale, blue first."""
        size = [math.ceil(length * scale) for length in (self.width, self.height)]
        surface = cairo.ImageSurface(cairo.FORMAT_RGB24, *size)
        self.show(surface, scale)
        surface.flush()
        pixels = numpy.frombuffer(surface.get_data(), numpy.uint8).reshape(size[1], -1, 4)
        return numpy.ascontiguousarray(pixels[:, :size[0], :3])

    def document(self):
        """The page as a PDF file with a text layer."""
        return pdf_files.with_text([self])

    def show(self, surface, scale):
        """Draws the page on another surface, `scale` times as large."""
        context = cairo.Context(surface)
        context.set_source_rgb(*self.look.ground)
        context.paint()
        context.scale(scale, scale)
        for layer in self._layers:
            context.set_source_surface(layer, 0, 0)
            context.paint()
