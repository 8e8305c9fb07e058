# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""The application's own mark, a duck: drawn here, in the colours of the theme."""
import os

from logos import png

YELLOW, ORANGE, INK = "#F6C94A", "#F28A2E", "#151008"
ICON_SIDES = [16, 22, 24, 32, 48, 64, 128, 256, 512]
MARK_SIDE = 128

BODY = "M84 268C98 256 118 262 134 276C158 297 190 302 222 296C206 276 198 250 198 222C198 156 250 " \
       "104 316 104C381 104 432 154 432 218C432 258 412 292 382 312C404 330 416 352 416 378C416 438 " \
       "354 476 252 476C142 476 72 420 72 330C72 304 76 280 84 268Z"
WING = "M176 352C214 388 268 386 314 346C318 404 278 440 228 436C196 433 176 402 176 352Z"
BEAK = "M420 190C452 182 488 190 498 208C504 222 486 248 434 254C424 255 416 248 416 236V196C416 193 " \
       "417 191 420 190Z"
EYE = '<circle cx="346" cy="194" r="{0}" fill="' + INK + '"/>'


def duck(eye, wing=True):
    return (f'<path d="{BODY}" fill="{YELLOW}"/><path d="{BEAK}" fill="{ORANGE}"/>'
            + (f'<path d="{WING}" fill="{ORANGE}" fill-opacity=".55"/>' if wing else "")
            + EYE.format(eye))


def drawing(content):
    return f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 512 512">{content}</svg>\n'


def mark():
    """The duck on a dark tile with room around it."""
    return drawing(
        '<defs><linearGradient id="ground" x2="0" y2="1"><stop stop-color="#2B2413"/>'
        '<stop offset="1" stop-color="#0E0C08"/></linearGradient></defs>'
        '<rect x="4" y="4" width="504" height="504" rx="114" fill="url(#ground)" '
        f'stroke="{YELLOW}" stroke-opacity=".48" stroke-width="8"/>'
        f'<g transform="translate(34 26) scale(.8)">{duck(20)}</g>')


def panel_mark():
    """For 18 points on a panel: the duck alone, large, with an edge that shows on light ground."""
    edge = f'<g fill="none" stroke="{INK}" stroke-width="44" stroke-linejoin="round">' \
           f'<path d="{BODY}"/><path d="{BEAK}"/></g>'
    return drawing(f'<g transform="translate(-21 -23) scale(.965)">{edge}{duck(34, wing=False)}</g>')


def write(resources):
    folder = os.path.join(resources, "Brand")
    os.makedirs(os.path.join(folder, "icons"), exist_ok=True)
    for name, svg in (("BrandMark", mark()), ("PanelMark", panel_mark())):
        with open(os.path.join(folder, name + ".svg"), "w", encoding="utf-8") as file:
            file.write(svg)
    for side in ICON_SIDES:
        png(mark(), os.path.join(folder, "icons", f"{side}.png"), side)
    png(mark(), os.path.join(resources, "BrandMark.png"), MARK_SIDE)
