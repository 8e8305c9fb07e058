// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "scan/recognition/Quad.h"

#include <vector>

namespace tovarin {

/// Puts the pieces of a page into rows: the rows from the top down, the pieces of each from left to
/// right, all as positions in `pieces`. The page may be tilted or seen in perspective: the slope of
/// its text is taken to change evenly from top to bottom.
std::vector<std::vector<std::size_t>> rowsInReadingOrder(const std::vector<Quad> &pieces);

} // namespace tovarin
