// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/UserCalendar.h"
#include "scan/recognition/NeuralTextRecognizer.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/ManualClock.h"

#include <QJsonObject>
#include <QStringList>

#include <optional>

namespace tovarin {

/// Reads samples as tovarin-scanner does, and tells the whole text besides. Speaks English, in
/// Shanghai, and its clock stands.
class BillReader {
public:
    BillReader();

    /// In the form of a golden file's object.
    std::optional<QJsonObject> read(const QString &sample);

private:
    /// The recogniser, remembering the text of every bitmap.
    class Recorder final : public TextRecognizer {
    public:
        Recorder();
        QList<TextObservation> recognize(const QImage &bitmap) override;

        QStringList texts;

    private:
        NeuralTextRecognizer m_recognizer;
    };

    LanguageScope m_language;
    ManualClock m_clock;
    UserCalendar m_calendar;
    Recorder m_recorder;
};

} // namespace tovarin
