// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "scan/recognition/Glyph.h"
#include "scan/recognition/InkProfile.h"

namespace tovarin {

/// The dots that stand for the digits of a card, "•••• 1234", which the model reads as full stops
/// of some number: puts as many there as the ink shows, where they stand at half the height of the
/// text and a digit follows.
Glyphs withMaskedDigits(const Glyphs &glyphs, const InkProfile &ink);

} // namespace tovarin
