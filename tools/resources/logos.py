# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""The logos of services: the glyph of a free icon set in the middle of a tile of the brand's colour."""
import json
import os
import re
import subprocess

SIDE = 192
DARK, WHITE = "#1C1C1E", "#FFFFFF"

# The ids of the presets, the glyph in Simple Icons, the tile (the brand's colour when None), the ink.
SIMPLE = [
    (["1password"], "1password", None, WHITE),
    (["apple-music", "apple-music-cn"], "applemusic", None, WHITE),
    (["apple-tv", "apple-tv-cn"], "appletv", DARK, WHITE),
    (["bilibili"], "bilibili", None, WHITE),
    (["claude"], "claude", None, WHITE),
    (["cursor", "cursor-cn"], "cursor", DARK, WHITE),
    (["dropbox"], "dropbox", None, WHITE),
    (["figma"], "figma", DARK, WHITE),
    (["icloud", "icloud-cn"], "icloud", None, WHITE),
    (["max"], "hbomax", DARK, WHITE),
    (["netease-music"], "neteasecloudmusic", None, WHITE),
    (["netflix"], "netflix", DARK, "#E50914"),
    (["nordvpn"], "nordvpn", None, WHITE),
    (["notion", "notion-cn"], "notion", WHITE, "#000000"),
    (["setapp"], "setapp", DARK, "#E6C3A5"),
    (["spotify"], "spotify", None, "#000000"),
    (["weread"], "weread", None, WHITE),
    (["youtube"], "youtube", WHITE, "#FF0000"),
    (["zhihu"], "zhihu", None, WHITE),
]
# The same with the glyphs of the set "SVG Logos", which mostly have colours of their own.
COLOURED = [
    (["adobe"], "adobe-icon", WHITE, "#000000"),
    (["chatgpt", "chatgpt-cn"], "openai-icon", WHITE, "#000000"),
    (["copilot"], "github-copilot", DARK, WHITE),
    (["google-one"], "google-one", WHITE, "#000000"),
    (["m365", "m365-cn"], "microsoft-icon", WHITE, "#000000"),
]
# And with those of Tabler Icons, which are drawn in lines.
LINED = [
    (["disney"], "brand-disney", "#113CCF", WHITE),
]


def read(packages, *path):
    with open(os.path.join(packages, *path), encoding="utf-8") as file:
        return file.read()


def tile(colour, glyph, width, height, ink):
    """The glyph, of that size, in the middle 58 hundredths of the tile."""
    scale = 0.58 * SIDE / max(width, height)
    left, top = (SIDE - width * scale) / 2, (SIDE - height * scale) / 2
    return (f'<svg xmlns="http://www.w3.org/2000/svg" xmlns:xlink="http://www.w3.org/1999/xlink" '
            f'viewBox="0 0 {SIDE} {SIDE}"><rect width="{SIDE}" height="{SIDE}" fill="{colour}"/>'
            f'<g fill="{ink}" transform="translate({left:.3f} {top:.3f}) scale({scale:.5f})">'
            f"{glyph}</g></svg>")


def tiles(packages):
    """Pairs of ids and drawings."""
    brands = {}
    for icon in json.loads(read(packages, "simple-icons", "data", "simple-icons.json")):
        plain = re.sub("[^a-z0-9]", "", icon["title"].lower().replace("+", "plus"))
        brands[icon.get("slug", plain)] = "#" + icon["hex"]
    for ids, name, colour, ink in SIMPLE:
        glyph = re.search(r"<path.*(?=</svg>)", read(packages, "simple-icons", "icons", name + ".svg"))[0]
        yield ids, tile(colour or brands[name], glyph, 24, 24, ink)
    logos = json.loads(read(packages, "logos", "icons.json"))
    for ids, name, colour, ink in COLOURED:
        icon = logos["icons"][name]
        size = [icon.get(side, logos.get(side)) for side in ("width", "height")]
        yield ids, tile(colour, icon["body"], *size, ink)
    for ids, name, colour, ink in LINED:
        lines = re.search(r"<path.*(?=</svg>)", read(packages, "tabler", "icons", "outline", name + ".svg"),
                          re.DOTALL)[0]
        yield ids, tile(colour, f'<g fill="none" stroke="{ink}" stroke-width="1.8" stroke-linecap="round" '
                                f'stroke-linejoin="round">{lines}</g>', 24, 24, "none")


def png(svg, path, side):
    subprocess.run(["rsvg-convert", "--width", str(side), "--height", str(side), "--output", path],
                   input=svg.encode(), check=True)


def write(packages, folder):
    for ids, svg in tiles(packages):
        for preset in ids:
            png(svg, os.path.join(folder, preset + ".png"), SIDE)
