// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Subscription.h"

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <optional>

/// The files of tests/data/bills, and the golden file beside each: what tovarin-scanner has to
/// answer, as {"draft", "readBy", "text"} or, where it gives no draft, `null`.
namespace tovarin {

/// How a text was come by, as golden files call it.
inline const QString byRecognition = QStringLiteral("recognition");
inline const QString byTextLayer = QStringLiteral("text layer");

/// The files to be read, found by walking the folder: paths below it, sorted.
QStringList sampleBills();

/// The samples whose golden files there are, found likewise.
QStringList samplesWithGolden();

/// The whole path of a sample, and of its golden file.
QString samplePath(const QString &sample);
QString goldenPath(const QString &sample);

/// The golden file's object, no value for `null`. One that is missing or holds something else fails
/// the test.
std::optional<QJsonObject> golden(const QString &sample);

/// The text of a golden file.
QByteArray goldenJson(const std::optional<QJsonObject> &answer);

/// The fields of a draft but the id, the notes line by line. The start date is "now" when it is one
/// of the moments from `begin` to `end`, and else a day of the calendar; one that is neither fails
/// the test.
QJsonObject goldenDraft(const Subscription &draft, const UserCalendar &calendar, Instant begin,
                        Instant end);

/// Fails the test when the drafts differ, or their notes by more than the allowance below.
void expectDraft(const QJsonObject &found, const QJsonObject &golden);

/// Fails the test when the texts differ by more than allowed: not at all where a document's own
/// text was taken. Recognition sums floating-point numbers by whatever instructions the processor
/// has, in another order on another processor, and a letter that was a near miss there is one here:
/// a hundredth of the text may differ, and two letters of a short one.
void expectText(const QJsonObject &found, const QJsonObject &golden);

} // namespace tovarin
