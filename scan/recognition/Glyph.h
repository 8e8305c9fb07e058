// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "scan/recognition/TextRecognizer.h"

#include <QList>
#include <QString>

#include <vector>

namespace tovarin {

/// One way to read a glyph.
struct GlyphReading {
    QString text;     ///< One character of the model's dictionary.
    float confidence; ///< 0 to 1.
};

/// One character of a line as it was read.
struct Glyph {
    QString text;
    float confidence; ///< 0 to 1.
    float position;   ///< Of its middle along the line: 0 where the line begins, 1 where it ends.
    QList<GlyphReading> others; ///< What else it may be, likeliest first.
};

using Glyphs = std::vector<Glyph>;

QString textOf(const Glyphs &glyphs);

/// The ways to read a line, best first: as its glyphs are, and then with one of them exchanged for
/// what else it may be, likeliest first; at most four.
QList<TextCandidate> candidatesOf(const Glyphs &glyphs);

/// The mean over the glyphs; 0 when there are none.
float confidenceOf(const Glyphs &glyphs);

} // namespace tovarin
