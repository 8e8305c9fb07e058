// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/reading/PdfDocument.h"

#include "scan/reading/FlattenedImage.h"
#include "scan/reading/PixelBudget.h"
#include "scan/reading/Radicals.h"

#include <QPdfDocumentRenderOptions>
#include <QPdfSelection>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

constexpr double pixelsPerPoint = 2;

/// PDFium ends lines with U+000D U+000A and joins a word that is hyphenated at the end of a line to
/// its rest by U+FFFE, which is no character. The page shows the hyphen and the line's end. Other
/// line ends stand in a text layer only if whoever wrote it put them there.
QString withPlainLines(QString text) {
    text.replace(u"\r\n"_s, u"\n"_s).replace(QChar(0xFFFE), u"-\n"_s);
    for (const QChar lineEnd : {QChar(u'\r'), QChar(0x85), QChar(0x2028), QChar(0x2029)})
        text.replace(lineEnd, u'\n');
    return text;
}

} // namespace

PdfDocument::PdfDocument(const QByteArray &pdf) {
    m_bytes.setData(pdf);
    m_bytes.open(QBuffer::ReadOnly);
    m_document.load(&m_bytes);
}

int PdfDocument::pageCount() const {
    return m_document.status() == QPdfDocument::Status::Ready ? m_document.pageCount() : 0;
}

QString PdfDocument::text() {
    QString text;
    for (int page = 0; page < pageCount(); ++page) {
        if (page > 0)
            text += u'\n';
        text += m_document.getAllText(page).text();
    }
    return withoutRadicals(withPlainLines(text));
}

QImage PdfDocument::drawing(int page) {
    QPdfDocumentRenderOptions options;
    options.setRenderFlags(QPdfDocumentRenderOptions::RenderFlag::Annotations);
    const QSize size = withinBudget(m_document.pagePointSize(page) * pixelsPerPoint);
    QImage drawn = m_document.render(page, size, options);
    return drawn.isNull() ? drawn : flattenedOnWhite(std::move(drawn));
}

} // namespace tovarin
