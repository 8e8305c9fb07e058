// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/reading/ReceiptScanner.h"

#include "scan/parser/ReceiptParser.h"
#include "scan/reading/BillFile.h"
#include "scan/reading/ImageFile.h"
#include "scan/reading/PdfCopy.h"
#include "scan/reading/PdfDocument.h"

#include <QByteArray>
#include <QStringList>

#include <exception>
#include <new>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::ReceiptScanner {

namespace {

constexpr int mostPagesDrawn = 3;

/// What follows the last dot of the name, in lower case. A name that only begins with a dot has
/// none.
QString extensionOf(const QUrl &url) {
    const QString name = url.fileName();
    const qsizetype dot = name.lastIndexOf(u'.');
    return dot > 0 ? name.sliced(dot + 1).toLower() : QString();
}

QString recognizedPages(const QByteArray &pdf, TextRecognizer &recognizer) {
    const PdfPages pages = pdfCopyForDrawing(pdf, mostPagesDrawn);
    PdfDocument document(pages.pdf);
    QStringList texts;
    for (int page = 0; page < document.pageCount(); ++page) {
        if (pages.mediaBoxes.value(page).isEmpty())
            continue;
        const QString text = recognizeText(document.drawing(page), recognizer);
        if (!text.trimmed().isEmpty())
            texts.append(text);
    }
    return texts.join(u'\n');
}

QString textOfPdf(const QByteArray &pdf, TextRecognizer &recognizer) {
    const QString text = PdfDocument(pdfCopyForText(pdf)).text().trimmed();
    return text.isEmpty() ? recognizedPages(pdf, recognizer) : text;
}

std::optional<Subscription> scanImage(const QUrl &url, const Services &services) {
    const BillFile file(url.toLocalFile());
    const QImage image = imageFromFile(file.bytes());
    if (image.isNull())
        return std::nullopt;
    return ReceiptParser::parse(recognizeText(image, services.recognizer), services.clock,
                                services.calendar);
}

} // namespace

QList<Subscription> scanFiles(const QList<QUrl> &urls, const Services &services) {
    QList<Subscription> drafts;
    for (const QUrl &url : urls) {
        const std::optional<Subscription> draft =
            extensionOf(url) == u"pdf"_s ? scanPDF(url, services) : scanImage(url, services);
        if (draft)
            drafts.append(*draft);
    }
    return drafts;
}

std::optional<Subscription> scanPDF(const QUrl &url, const Services &services) {
    const BillFile file(url.toLocalFile());
    try {
        const QString text = textOfPdf(file.bytes(), services.recognizer);
        if (text.isEmpty())
            return std::nullopt;
        return ReceiptParser::parse(text, services.clock, services.calendar);
    } catch (const std::bad_alloc &) {
        throw;
    } catch (const std::exception &) {
        return std::nullopt;
    }
}

QString recognizeText(const QImage &image, TextRecognizer &recognizer) {
    if (image.isNull())
        return {};
    try {
        QStringList lines;
        for (const TextObservation &observation : recognizer.recognize(image)) {
            if (!observation.candidates.isEmpty())
                lines.append(observation.candidates.first().text);
        }
        return lines.join(u'\n');
    } catch (const std::bad_alloc &) {
        throw;
    } catch (const std::exception &) {
        return {};
    }
}

} // namespace tovarin::ReceiptScanner
