// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "scan/recognition/Quad.h"

namespace tovarin {

/// Cuts a piece of text out of a page and lays it flat: its own size, level, square. A piece that
/// is at least half again as high as wide is taken for turned text and laid down by a quarter turn
/// to the left.
cv::Mat rectified(const cv::Mat &page, const Quad &piece);

} // namespace tovarin
