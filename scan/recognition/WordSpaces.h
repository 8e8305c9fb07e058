// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "scan/recognition/Glyph.h"
#include "scan/recognition/InkProfile.h"

namespace tovarin {

/// Puts back the blanks between words, which the recognition model mostly leaves out, wherever the
/// ink leaves a gap. Blanks that the model did see stay.
Glyphs withWordSpaces(const Glyphs &glyphs, const InkProfile &ink);

} // namespace tovarin
