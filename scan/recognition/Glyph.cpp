// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/Glyph.h"

namespace tovarin {

QString textOf(const Glyphs &glyphs) {
    QString text;
    for (const Glyph &glyph : glyphs)
        text += glyph.text;
    return text;
}

float confidenceOf(const Glyphs &glyphs) {
    float sum = 0;
    for (const Glyph &glyph : glyphs)
        sum += glyph.confidence;
    return glyphs.empty() ? 0 : sum / static_cast<float>(glyphs.size());
}

} // namespace tovarin
