# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""Small drawings without letters: the marks of services, arrows, the signs of a status bar."""
import colorsys
import math


def _color(context, color):
    context.set_source_rgb(*color)


def draw(page, random, x, y, size, name=None):
    """A mark in a coloured tile or disc."""
    color = colorsys.hsv_to_rgb(random.random(), random.uniform(0.5, 0.9), random.uniform(0.5, 0.85))
    page.box(x, y, size, size, color, size * random.choice([0.22, 0.22, 0.5]))
    context = page.context
    _color(context, (1, 1, 1))
    center_x, center_y, unit = x + size / 2, y + size / 2, size / 10
    name = name or random.choice(["play", "ring", "bars", "cloud", "leaf", "star"])
    if name == "play":
        context.move_to(center_x - 2 * unit, center_y - 2.6 * unit)
        context.line_to(center_x + 2.8 * unit, center_y)
        context.line_to(center_x - 2 * unit, center_y + 2.6 * unit)
        context.fill()
    elif name == "ring":
        context.set_line_width(1.4 * unit)
        context.arc(center_x, center_y, 2.4 * unit, 0.6, 2 * math.pi)
        context.stroke()
    elif name == "bars":
        for i, height in enumerate((2, 4, 3)):
            page.box(center_x + (i * 2 - 2.7) * unit, center_y + (2 - height) * unit, 1.4 * unit,
                     height * unit, (1, 1, 1), 0.5 * unit)
    elif name == "cloud":
        for dx, dy, radius in ((-1.8, 0.6, 1.5), (0, -0.4, 2), (1.9, 0.5, 1.6)):
            context.arc(center_x + dx * unit, center_y + dy * unit, radius * unit, 0, 2 * math.pi)
            context.fill()
    elif name == "leaf":
        context.move_to(center_x - 2.6 * unit, center_y + 2.6 * unit)
        context.curve_to(center_x - 3 * unit, center_y - 2 * unit, center_x, center_y - 3 * unit,
                         center_x + 2.8 * unit, center_y - 2.8 * unit)
        context.curve_to(center_x + 3 * unit, center_y, center_x + 2 * unit, center_y + 3 * unit,
                         center_x - 2.6 * unit, center_y + 2.6 * unit)
        context.fill()
    elif name == "check":
        context.set_line_width(1.2 * unit)
        context.move_to(center_x - 2.6 * unit, center_y)
        context.line_to(center_x - 0.6 * unit, center_y + 2 * unit)
        context.line_to(center_x + 2.8 * unit, center_y - 2 * unit)
        context.stroke()
    else:
        for i in range(10):
            reach = (3 if i % 2 == 0 else 1.3) * unit
            angle = i * math.pi / 5 - math.pi / 2
            context.line_to(center_x + reach * math.cos(angle), center_y + reach * math.sin(angle))
        context.fill()


def arrow(page, x, y, size, color, left=False):
    """A thin arrow head: to the right, as behind a row, or to the left, as before a title."""
    context, reach = page.context, -size / 2 if left else size / 2
    _color(context, color)
    context.set_line_width(max(1.2, size / 9))
    context.move_to(x - reach / 2, y - size / 2)
    context.line_to(x + reach / 2, y)
    context.line_to(x - reach / 2, y + size / 2)
    context.stroke()


def status_bar(page, random):
    """The clock of a phone at the left, signal and battery at the right. Gives the bar's height."""
    hour, minute = random.randint(6, 23), random.randrange(60)
    page.text(random.choice([24, 30, 36]), 26, f"{hour}:{minute:02}", 15, 600)
    right, context = page.width - 22, page.context
    color = page.look.text
    page.box(right - 24, 14, 22, 11, color, 3, line=1)
    page.box(right - 22, 16, random.randint(6, 18), 7, color, 1.5)
    page.box(right - 0.5, 17.5, 1.5, 4, color)
    for i in range(4):
        page.box(right - 74 + i * 5, 22 - i * 3, 3.2, 3 + i * 3, color, 1)
    _color(context, color)
    for radius in (3, 6.5, 10):
        context.set_line_width(2)
        context.arc(right - 40, 25, radius, -math.pi * 0.72, -math.pi * 0.28)
        context.stroke()
    if random.random() < 0.3:
        page.text(right - 80, 26, random.choice(["5G", "4G"]), 13, 600, align="right")
    return 44
