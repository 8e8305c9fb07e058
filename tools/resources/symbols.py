# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""The symbols: most are Framework7's under the names that this program uses; the others are drawn or
put together here, in the same weight on the same ground of 56 by 56."""
import os
import re

# This program's name: the name in Framework7's set.
TAKEN = {
    "arrow.right": "arrow_right",
    "book": "book",
    "bubble.left.and.bubble.right": "bubble_left_bubble_right",
    "calendar": "calendar",
    "checkmark": "checkmark",
    "checkmark.circle.fill": "checkmark_circle_fill",
    "chevron.down": "chevron_down",
    "chevron.left": "chevron_left",
    "chevron.left.forwardslash.chevron.right": "chevron_left_slash_chevron_right",
    "chevron.right": "chevron_right",
    "creditcard.fill": "creditcard_fill",
    "cursorarrow.rays": "cursor_rays",
    "doc.on.doc": "doc_on_doc",
    "doc.text": "doc_text",
    "gearshape.fill": "gear_alt_fill",
    "icloud": "cloud",
    "icloud.fill": "cloud_fill",
    "macwindow": "macwindow",
    "minus.circle": "minus_circle",
    "music.note": "music_note",
    "music.note.list": "music_note_list",
    "network": "globe",
    "paintbrush": "paintbrush",
    "pause": "pause",
    "pencil": "pencil",
    "pencil.and.outline": "pencil_outline",
    "play": "play",
    "play.rectangle": "play_rectangle",
    "play.rectangle.fill": "play_rectangle_fill",
    "plus": "plus",
    "scissors": "scissors",
    "shippingbox": "shippingbox",
    "sparkles": "sparkles",
    "square.grid.2x2": "square_grid_2x2",
    "trash": "trash",
    "tv": "tv",
    "xmark": "xmark",
}

ROUND = 'fill="none" stroke="#000" stroke-linecap="round" stroke-linejoin="round"'
LINE, FINE = ROUND + ' stroke-width="3.6"', ROUND + ' stroke-width="3"'
NOTE = '<ellipse cx="{0}" cy="{1}" rx="5.6" ry="4.4" transform="rotate(-18 {0} {1})"/>' \
       '<path ' + FINE + ' d="M{2} {1}V{3}"/>'


def note(x, y, top):
    return NOTE.format(x, y, x + 4.1, top)


def star(x, y, size):
    """A sparkle of four points."""
    inner = size * 0.16
    return (f'<path d="M{x} {y - size}Q{x + inner} {y - inner} {x + size} {y}Q{x + inner} {y + inner} '
            f'{x} {y + size}Q{x - inner} {y + inner} {x - size} {y}Q{x - inner} {y - inner} '
            f'{x} {y - size}Z"/>')


DRAWN = {
    "appletv": f'<rect {LINE} x="4" y="15" width="48" height="26" rx="8"/>'
               f'<path {FINE} d="M19 22v10q0 3 3 3h1M15.500 25.500h7.500'
               'M29 25.500l4.500 9.500 4.500-9.500"/>',
    "externaldrive": f'<rect {LINE} x="3.500" y="14" width="49" height="28" rx="8"/>'
                     f'<path {LINE} d="M12 33h20"/><circle cx="43.500" cy="33" r="2.800"/>',
    "externaldrive.fill": '<path fill-rule="evenodd" d="M11 12h34a9.500 9.500 0 0 1 9.500 9.500v13a9.500 '
                          '9.500 0 0 1-9.500 9.500H11a9.500 9.500 0 0 1-9.500-9.500v-13A9.500 9.500 0 0 1 '
                          '11 12ZM12 31.200a1.800 1.800 0 0 0 0 3.600h20a1.800 1.800 0 0 0 0-3.600Z'
                          'M43.500 30.200a2.800 2.800 0 1 0 .01 0Z"/>',
    "key.fill": '<path fill-rule="evenodd" d="M28 2a14.500 14.500 0 0 1 5.500 27.900V34l4 4-4 4 4 4-9 8.500'
                '-6-6V29.900A14.500 14.500 0 0 1 28 2ZM28 8.500a4.200 4.200 0 1 0 .01 0Z"/>',
    "m.square": f'<rect {LINE} x="6.500" y="6.500" width="43" height="43" rx="9"/>'
                f'<path {LINE} d="M17.500 38V18L28 31.500 38.500 18v20"/>',
    "music.quarternote.3": note(9, 42, 16) + note(25, 47, 21) + note(41, 42, 16),
    "text.book.closed": f'<path {LINE} d="M12 44.500V11a6.500 6.500 0 0 1 6.500-6.500H43a2 2 0 0 1 2 2V39H18'
                        'a6 6 0 0 0-6 6 6 6 0 0 0 6 6.500h27V39"/>'
                        f'<path {FINE} d="M21 15.500h15M21 23h10"/>',
    "text.viewfinder": f'<path {LINE} d="M4.500 17V11.500a7 7 0 0 1 7-7H17M39 4.500h5.500a7 7 0 0 1 7 7V17'
                       'M51.500 39v5.500a7 7 0 0 1-7 7H39M17 51.500h-5.500a7 7 0 0 1-7-7V39'
                       'M16 20h24M16 28h24M16 36h15"/>',
}

# Those that are put together: symbols of the set, scaled by the third number around what they show.
GIFT = f'<g {FINE}><rect x="16.500" y="25" width="23" height="4.500" rx="1"/>' \
       '<path d="M18.500 29.500V40h19V29.500M28 25v15M28 24c-3-8-11-7-8-1.500 1.500 2 5 1.500 8 1.500' \
       'M28 24c3-8 11-7 8-1.500-1.500 2-5 1.500-8 1.500"/></g>'


def body(packages, name):
    path = os.path.join(packages, "framework7-icons", "svg", name + ".svg")
    with open(path, encoding="utf-8") as file:
        return re.search(r"<svg[^>]*>(.*)</svg>", file.read(), re.DOTALL)[1]


def last_outline(packages, name):
    """What stands within a frame: the last closed line of the symbol."""
    *_, outline = re.findall(r"M[^M]+", re.search(r'd="([^"]+)"', body(packages, name))[1])
    return f'<path d="{outline.strip()}"/>'


def all_symbols(packages):
    symbols = {name: body(packages, taken) for name, taken in TAKEN.items()}
    symbols |= DRAWN
    symbols["play.tv"] = (body(packages, "tv") + '<g transform="translate(7.500 4.900) scale(.735)">'
                          + last_outline(packages, "play_rectangle") + "</g>")
    symbols["sparkles.tv"] = body(packages, "tv") + star(25, 26.5, 10) + star(38.5, 19.5, 5.5)
    symbols["app.gift"] = body(packages, "app") + GIFT
    return symbols


def write(packages, folder):
    for name, content in all_symbols(packages).items():
        with open(os.path.join(folder, name + ".svg"), "w", encoding="utf-8") as file:
            file.write(f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 56 56">{content}</svg>\n')
