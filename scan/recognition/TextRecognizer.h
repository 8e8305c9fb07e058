// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>
#include <QList>
#include <QPointF>
#include <QString>

#include <array>

namespace tovarin {

/// One reading of a piece of text.
struct TextCandidate {
    QString text;
    float confidence; ///< 0 to 1; comparable within one observation only.

    bool operator==(const TextCandidate &) const = default;
};

/// One piece of text as the page sets it: a label, a value, a line of a paragraph.
struct TextObservation {
    QList<TextCandidate> candidates; ///< Best first; empty when nothing could be made of it.
    /// Pixels of the bitmap, clockwise from the corner where the text begins, above it.
    std::array<QPointF, 4> box;
};

/// Finds and reads the text of a bitmap. Quality comes before speed, Chinese before English; no
/// correction invents a character that was not seen. The same bitmap gives the same result.
class TextRecognizer {
public:
    virtual ~TextRecognizer() = default;

    /// In reading order: row by row from the top, each row from left to right, so that a label
    /// comes right before its value. A bitmap without text, or one that cannot be read, gives none.
    /// Not for use by two threads at once.
    virtual QList<TextObservation> recognize(const QImage &bitmap) = 0;

protected:
    TextRecognizer() = default;
    TextRecognizer(const TextRecognizer &) = default;
    TextRecognizer &operator=(const TextRecognizer &) = default;
};

} // namespace tovarin
