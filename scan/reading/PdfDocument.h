// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QBuffer>
#include <QImage>
#include <QPdfDocument>
#include <QString>

namespace tovarin {

/// What a bill's PDF says and looks like, by Qt PDF. Without pages when it cannot be opened.
class PdfDocument {
public:
    /// `pdf` comes from PdfCopy.h.
    explicit PdfDocument(const QByteArray &pdf);

    int pageCount() const;

    /// The text layer, page by page, each begun on a new line; empty when there is none. Lines end
    /// with U+000A. Radicals are written as the ideographs they look like.
    QString text();

    /// The page on white ground, turned as its reader sees it, with its notes and stamps: two
    /// pixels a point, or fewer for a page too large for the budget of PixelBudget.h. A null image
    /// when it cannot be drawn.
    QImage drawing(int page);

private:
    QBuffer m_bytes;
    QPdfDocument m_document;
};

} // namespace tovarin
