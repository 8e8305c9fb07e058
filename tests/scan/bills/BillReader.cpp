// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/scan/bills/BillReader.h"

#include "scan/reading/BillFile.h"
#include "scan/reading/PdfCopy.h"
#include "scan/reading/PdfDocument.h"
#include "scan/reading/ReceiptScanner.h"
#include "tests/scan/bills/SampleBills.h"
#include "tests/support/Samples.h"

#include <QJsonArray>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

QString textLayer(const QString &path) {
    const BillFile file(path);
    return PdfDocument(pdfCopyForText(file.bytes())).text().trimmed();
}

} // namespace

BillReader::Recorder::Recorder() : m_recognizer(TEXT_MODELS) {}

QList<TextObservation> BillReader::Recorder::recognize(const QImage &bitmap) {
    const QList<TextObservation> observations = m_recognizer.recognize(bitmap);
    QStringList lines;
    for (const TextObservation &observation : observations) {
        if (!observation.candidates.isEmpty())
            lines.append(observation.candidates.first().text);
    }
    // Pages without text do not count.
    if (!lines.isEmpty())
        texts.append(lines.join(u'\n'));
    return observations;
}

BillReader::BillReader()
    : m_language(LocalizationManager::Lang::en)
    , m_clock(instant("2026-01-15T10:30:07Z"))
    , m_calendar(calendarIn("Asia/Shanghai")) {}

std::optional<QJsonObject> BillReader::read(const QString &sample) {
    const QString path = samplePath(sample);
    m_recorder.texts.clear();
    const QList<Subscription> drafts = ReceiptScanner::scanFiles(
        {QUrl::fromLocalFile(path)},
        {.recognizer = m_recorder, .clock = m_clock, .calendar = m_calendar});
    if (drafts.isEmpty())
        return std::nullopt;
    // A picture without letters has been recognised, too, but has no text layer to speak of.
    const bool isRecognized =
        !m_recorder.texts.isEmpty() || !path.endsWith(u".pdf"_s, Qt::CaseInsensitive);
    const QString text = isRecognized ? m_recorder.texts.join(u'\n') : textLayer(path);
    return QJsonObject{
        {u"draft"_s, goldenDraft(drafts.first(), m_calendar, m_clock.now(), m_clock.now())},
        {u"readBy"_s, isRecognized ? byRecognition : byTextLayer},
        {u"text"_s, QJsonArray::fromStringList(text.split(u'\n'))}};
}

} // namespace tovarin
