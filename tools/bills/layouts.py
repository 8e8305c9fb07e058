# SPDX-FileCopyrightText: The Tovarin developers
# SPDX-License-Identifier: MIT
"""All layouts of bills."""
import collections

import layouts_first
import layouts_paper
import layouts_phone

# `language` is None for a layout that comes in both; `draw(page, bill, random)` draws it.
Layout = collections.namedtuple("Layout", "name language widths draw")

ALL = [Layout(*values) for module in (layouts_first, layouts_phone, layouts_paper)
       for values in module.LAYOUTS]
