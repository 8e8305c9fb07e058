// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QList>

namespace tovarin {

/// One page of a PDF file.
struct PdfPage {
    QByteArray content;
    QByteArray entries = "/MediaBox[0 0 200 300]"; ///< Of the page's dictionary.
};

/// A PDF file, written byte by byte so that it can be wrong in any way. `inherited` are entries of
/// the root of the page tree. Pages have two fonts: F1 is Latin, and in F2 the codes from "A" on
/// stand for the units of `unicode`.
QByteArray pdfOf(const QList<PdfPage> &pages, const QByteArray &inherited = {},
                 const QList<char32_t> &unicode = {});

/// Content that writes lines from the top of a page of the usual size on.
QByteArray lines(const QList<QByteArray> &lines, const char *font = "F1");

/// Content that paints a rectangle, in points from the lower left, in the ink 200, 40, 40.
QByteArray inkedRectangle(int x, int y, int width, int height);

/// Content like that of a scanner: one picture of ink all over the page.
QByteArray scan();

/// The file, encrypted with AES-256. It opens without a password where the user's is empty.
QByteArray encrypted(const QByteArray &pdf, const char *userPassword);

} // namespace tovarin
