// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/scan/job/ScanRun.h"

#include "tests/support/WaitFor.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

QString standInScanner() {
    return QString::fromUtf8(STAND_IN_SCANNER);
}

QList<QUrl> filesNamed(const QStringList &names) {
    QList<QUrl> files;
    for (const QString &name : names)
        files.append(QUrl::fromLocalFile(u"/nowhere/"_s + name + u".png"_s));
    return files;
}

QStringList ScanRun::names() const {
    QStringList names;
    for (const Subscription &draft : drafts)
        names.append(draft.name);
    return names;
}

QStringList ScanRun::processes() const {
    QStringList ids;
    for (const Subscription &draft : drafts)
        ids.append(note(draft, 0));
    ids.removeDuplicates();
    return ids;
}

ScanRun scan(ScanJob &job, const QList<QUrl> &files) {
    ScanRun run;
    const QObject listener;
    QObject::connect(&job, &ScanJob::progress, &listener, [&run](int done, int total) {
        run.progress.append({done, total});
    });
    QObject::connect(&job, &ScanJob::finished, &listener,
                     [&run, &job](const QList<Subscription> &drafts) {
                         EXPECT_FALSE(job.isRunning());
                         run.drafts = drafts;
                         ++run.timesFinished;
                     });
    EXPECT_TRUE(job.start(files));
    EXPECT_TRUE(job.isRunning());
    EXPECT_EQ(run.timesFinished, 0);
    EXPECT_TRUE(waitFor([&run] { return run.timesFinished > 0; }));
    return run;
}

ScanRun scan(const QStringList &names, std::chrono::milliseconds limit) {
    ScanJob job(standInScanner(), limit);
    return scan(job, filesNamed(names));
}

QString note(const Subscription &draft, int index) {
    return draft.notes.split(u'\n').value(index);
}

} // namespace tovarin
