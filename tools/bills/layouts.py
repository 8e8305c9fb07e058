# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""All layouts of bills."""
import collections

import layouts_first
import layouts_paper
import layouts_phone
import layouts_web
from page import Page

# `language` is None for a layout that comes in both; `draw(page, bill, random)` draws it on a page
# that `paper(look, width)` makes.
Layout = collections.namedtuple("Layout", "name language widths draw paper", defaults=[Page])

ALL = [Layout(*values) for module in (layouts_first, layouts_phone, layouts_paper, layouts_web)
       for values in module.LAYOUTS]
