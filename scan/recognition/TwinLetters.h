// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "scan/recognition/Glyph.h"
#include "scan/recognition/InkProfile.h"

namespace tovarin {

/// The model takes neighbouring strokes, "Il" or "ll", for one where they stand close: "Iluma" for
/// "Illuma". Doubles the letter of such a group where the ink of the word shows one upright stroke
/// more than was read, and all else of the word agrees with what was read.
Glyphs withTwinLetters(const Glyphs &glyphs, const InkProfile &ink);

} // namespace tovarin
