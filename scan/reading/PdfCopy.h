// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QList>
#include <QSizeF>

namespace tovarin {

/// What Qt PDF is given in the place of a PDF file of unknown origin. Qt PDF looks at the crop box
/// of a page, which may hide a part of it, mixes up the lines of text on a turned page, and opens a
/// file of no pages without a word. libqpdf mends what it can of a damaged file and says nothing.
///
/// Both functions throw std::exception when no document can be made of the bytes, or only with a
/// password, or when its tree of pages has more than 20,000 pages and nodes, or none of them ends.

/// The document for reading its text: upright pages with whole media boxes, without pictures,
/// outlines and attachments.
QByteArray pdfCopyForText(const QByteArray &pdf);

/// The first pages for drawing them.
struct PdfPages {
    QByteArray pdf; ///< The pages as they are, but with whole media boxes.
    /// The sizes of the media boxes, a page each, in points and before the page is turned; empty
    /// where the box has no area.
    QList<QSizeF> mediaBoxes;
};

PdfPages pdfCopyForDrawing(const QByteArray &pdf, int mostPages);

} // namespace tovarin
