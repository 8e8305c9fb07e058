// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "scan/job/ScanJob.h"

#include <QStringList>

#include <utility>

namespace tovarin {

/// A limit that no working scanner reaches, on however busy a machine.
inline constexpr std::chrono::seconds amply{60};

/// The path of the scanner that behaves as the files are named.
QString standInScanner();

/// Files by these names, in a folder that is not there.
QList<QUrl> filesNamed(const QStringList &names);

/// What one scan told.
struct ScanRun {
    QList<Subscription> drafts;
    QList<std::pair<int, int>> progress;
    int timesFinished = 0;

    QStringList names() const;

    /// The ids of the processes that the drafts came from, in order, without repetition.
    QStringList processes() const;
};

/// Scans to the end. A scan that does not end fails the test.
ScanRun scan(ScanJob &job, const QList<QUrl> &files);
ScanRun scan(const QStringList &names, std::chrono::milliseconds limit = amply);

/// Line `index` of the notes of the stand-in's draft.
QString note(const Subscription &draft, int index);

} // namespace tovarin
