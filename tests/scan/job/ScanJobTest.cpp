// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/job/ScanJob.h"

#include "tests/scan/job/ScanRun.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/Printing.h"
#include "tests/support/WaitFor.h"

#include <QDir>
#include <QProcess>

#include <gmock/gmock.h>

#include <cerrno>
#include <csignal>

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace tovarin {

namespace {

using Lang = LocalizationManager::Lang;

/// Waits for the scanner of a job that has just begun.
pid_t scannerOf(const ScanJob &job) {
    const QProcess *process = nullptr;
    EXPECT_TRUE(waitFor([&] {
        process = job.findChild<QProcess *>();
        return process && process->state() == QProcess::Running;
    }));
    return static_cast<pid_t>(process->processId());
}

bool isGone(pid_t process) {
    return kill(process, 0) < 0 && errno == ESRCH;
}

} // namespace

TEST(ScanJobTest, GivesTheDraftsInTheOrderOfTheFilesFromOneScanner) {
    const ScanRun run = scan({u"bill b"_s, u"bill a"_s, u"nothing"_s, u"bill b"_s, u"bill c"_s});
    EXPECT_EQ(run.names(), QStringList({u"bill b"_s, u"bill a"_s, u"bill b"_s, u"bill c"_s}));
    EXPECT_EQ(run.processes().size(), 1);
    EXPECT_EQ(note(run.drafts.last(), 4), u"5"_s);
    EXPECT_THAT(run.progress,
                ElementsAre(Pair(1, 5), Pair(2, 5), Pair(3, 5), Pair(4, 5), Pair(5, 5)));
    EXPECT_EQ(run.timesFinished, 1);
}

TEST(ScanJobTest, GivesEachFileTwentySecondsAsARule) {
    EXPECT_EQ(ScanJob::defaultLimit, std::chrono::seconds(20));
}

TEST(ScanJobTest, ReplacesAScannerThatKeepsMuchMemory) {
    const ScanRun run =
        scan({u"bill a"_s, u"bill b"_s, u"bill that costs memory"_s, u"bill c"_s, u"bill d"_s});
    EXPECT_EQ(run.names(), QStringList({u"bill a"_s, u"bill b"_s, u"bill that costs memory"_s,
                                        u"bill c"_s, u"bill d"_s}));
    EXPECT_EQ(run.processes().size(), 2);
    EXPECT_EQ(note(run.drafts[2], 0), note(run.drafts[0], 0));
    EXPECT_NE(note(run.drafts[3], 0), note(run.drafts[0], 0));
    EXPECT_EQ(note(run.drafts[4], 0), note(run.drafts[3], 0));
}

TEST(ScanJobTest, MakesEveryDraftANewActiveEntryOfNoService) {
    const ScanRun run = scan({u"forged"_s, u"forged"_s});
    ASSERT_EQ(run.names(), QStringList({u"forged"_s, u"forged"_s}));
    const QUuid named(u"11111111-2222-4333-8444-555555555555"_s);
    for (const Subscription &draft : run.drafts) {
        EXPECT_NE(draft.id, named);
        EXPECT_FALSE(draft.id.isNull());
        EXPECT_TRUE(draft.isActive);
        EXPECT_EQ(draft.serviceID, std::nullopt);
    }
    EXPECT_NE(run.drafts[0].id, run.drafts[1].id);
}

TEST(ScanJobTest, KeepsEveryFieldOfADraft) {
    const Subscription draft = scan({u"bill"_s}).drafts.value(0);
    EXPECT_FALSE(draft.id.isNull());
    EXPECT_EQ(draft.name, u"bill"_s);
    EXPECT_EQ(draft.amount, 12.5);
    EXPECT_EQ(draft.currency, u"CNY"_s);
    EXPECT_EQ(draft.billingType, BillingType::recurring);
    EXPECT_EQ(draft.cycle, BillingCycle::monthly);
    EXPECT_EQ(draft.startDate, Instant(std::chrono::milliseconds(1735689600000)));
    EXPECT_EQ(draft.category, u"其他"_s);
    EXPECT_EQ(draft.notes.count(u'\n'), 4);
    EXPECT_TRUE(draft.isActive);
    EXPECT_EQ(draft.serviceID, std::nullopt);
}

TEST(ScanJobTest, EndsAScanOfNothing) {
    const ScanRun run = scan(QStringList());
    EXPECT_THAT(run.drafts, IsEmpty());
    EXPECT_THAT(run.progress, IsEmpty());
    EXPECT_EQ(run.timesFinished, 1);
}

TEST(ScanJobTest, HandsAnyPathOver) {
    const QString path = u"/no where/账单 \"1\"\n\\\u00a0é/bill 🧾.PDF"_s;
    ScanJob job(standInScanner(), amply);
    const ScanRun run = scan(job, {QUrl::fromLocalFile(path)});
    EXPECT_EQ(run.names(), QStringList(u"bill 🧾"_s));
    EXPECT_EQ(run.drafts.value(0).notes.section(u'\n', 3, 4), path);
}

TEST(ScanJobTest, HandsARelativePathOverAsSeenFromHere) {
    ScanJob job(standInScanner(), amply);
    const ScanRun run = scan(job, {QUrl::fromLocalFile(u"some/bill.png"_s)});
    EXPECT_EQ(note(run.drafts.value(0), 3), QDir::currentPath() + u"/some/bill.png"_s);
}

TEST(ScanJobTest, PassesOverWhatIsNoLocalFile) {
    ScanJob job(standInScanner(), amply);
    QList<QUrl> files = filesNamed({u"bill"_s});
    files.prepend(QUrl(u"https://localhost/bill.png"_s));
    files.append({QUrl(), QUrl(u"bill.png"_s), QUrl(u"data:,bill"_s)});
    const ScanRun run = scan(job, files);
    EXPECT_EQ(run.names(), QStringList(u"bill"_s));
    EXPECT_THAT(run.progress,
                ElementsAre(Pair(1, 5), Pair(2, 5), Pair(3, 5), Pair(4, 5), Pair(5, 5)));
}

TEST(ScanJobTest, TellsTheScannerTheLanguageOfTheMoment) {
    ScanJob job(standInScanner(), amply);
    for (const auto &[lang, argument] : {std::pair(Lang::zh, u"zh"_s), {Lang::en, u"en"_s}}) {
        const LanguageScope scope(lang);
        EXPECT_EQ(note(scan(job, filesNamed({u"bill"_s})).drafts.value(0), 1), argument);
    }
}

TEST(ScanJobTest, LeavesTheTimeZoneToTheScanner) {
    const QByteArray before = qgetenv("TZ");
    for (const QByteArray &zone : {"Asia/Shanghai"_ba, "America/Sao_Paulo"_ba}) {
        qputenv("TZ", zone);
        EXPECT_EQ(note(scan({u"bill"_s}).drafts.value(0), 2), QString::fromLatin1(zone));
    }
    before.isNull() ? qunsetenv("TZ") : qputenv("TZ", before);
}

TEST(ScanJobTest, RunsOneScanAtATime) {
    ScanJob job(standInScanner(), amply);
    int finished = 0;
    QStringList names;
    QObject::connect(&job, &ScanJob::progress, &job,
                     [&job] { EXPECT_FALSE(job.start(filesNamed({u"bill in between"_s}))); });
    QObject::connect(&job, &ScanJob::finished, &job, [&](const QList<Subscription> &drafts) {
        for (const Subscription &draft : drafts)
            names.append(draft.name);
        // The end of one may begin the next.
        if (++finished == 1) {
            EXPECT_TRUE(job.start(filesNamed({u"bill 2"_s})));
        }
    });
    EXPECT_TRUE(job.start(filesNamed({u"bill 1"_s})));
    EXPECT_FALSE(job.start(filesNamed({u"bill too many"_s})));
    EXPECT_TRUE(waitFor([&] { return finished == 2; }));
    EXPECT_EQ(names, QStringList({u"bill 1"_s, u"bill 2"_s}));
    EXPECT_FALSE(job.isRunning());
}

TEST(ScanJobTest, IsSilentAfterItIsCancelled) {
    ScanJob job(standInScanner(), amply);
    int told = 0;
    const QMetaObject::Connection progress =
        QObject::connect(&job, &ScanJob::progress, &job, [&told] { ++told; });
    QObject::connect(&job, &ScanJob::finished, &job, [&told] { ++told; });
    EXPECT_TRUE(job.start(filesNamed({u"hang"_s, u"bill"_s})));
    const pid_t scanner = scannerOf(job);
    job.cancel();
    EXPECT_FALSE(job.isRunning());
    EXPECT_TRUE(waitFor([scanner] { return isGone(scanner); }));
    EXPECT_EQ(told, 0);
    QObject::disconnect(progress);
    EXPECT_EQ(scan(job, filesNamed({u"bill"_s})).names(), QStringList(u"bill"_s));
    EXPECT_EQ(told, 1);
}

TEST(ScanJobTest, MayBeCancelledByWhoIsToldOfTheProgress) {
    ScanJob job(standInScanner(), amply);
    int finished = 0;
    int done = 0;
    QObject::connect(&job, &ScanJob::progress, &job, [&](int now) {
        done = now;
        if (done == 2)
            job.cancel();
    });
    QObject::connect(&job, &ScanJob::finished, &job, [&finished] { ++finished; });
    EXPECT_TRUE(job.start(filesNamed({u"bill"_s, u"bill"_s, u"bill"_s})));
    EXPECT_TRUE(waitFor([&] { return !job.isRunning(); }));
    EXPECT_TRUE(waitFor([&] { return job.findChildren<QProcess *>().isEmpty(); }));
    EXPECT_EQ(done, 2);
    EXPECT_EQ(finished, 0);
}

TEST(ScanJobTest, TakesItsScannerAlongWhenItIsDestroyed) {
    for (const QString &name : {u"hang"_s, u"ignore end"_s, u"flood"_s}) {
        auto job = std::make_unique<ScanJob>(standInScanner(), amply);
        EXPECT_TRUE(job->start(filesNamed({name})));
        const pid_t scanner = scannerOf(*job);
        EXPECT_FALSE(isGone(scanner));
        job.reset();
        EXPECT_TRUE(isGone(scanner)) << qPrintable(name);
    }
}

TEST(ScanJobTest, LeavesNoScannerBehindWhenTheScanEnds) {
    ScanJob job(standInScanner(), amply);
    const ScanRun run = scan(job, filesNamed({u"bill"_s, u"junk"_s, u"bill"_s}));
    EXPECT_TRUE(waitFor([&] { return job.findChildren<QProcess *>().isEmpty(); }));
    EXPECT_EQ(run.processes().size(), 2);
    for (const QString &process : run.processes())
        EXPECT_TRUE(isGone(process.toInt()));
}

} // namespace tovarin
