// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "scan/recognition/Glyph.h"

namespace tovarin {

/// Settles letters that look alike (I l 1, O 0, S $) where the words of bills tell which one it is:
/// "Al" becomes "AI", "lnvoice" becomes "Invoice", "USS9.99" becomes "US$9.99". The same for names
/// of services with rare Chinese characters. Only among what the model itself held possible: a
/// glyph takes no other character than one of its readings.
Glyphs withSettledLetters(Glyphs glyphs);

} // namespace tovarin
