// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// Scanners that misbehave, and none at all.

#include "tests/scan/job/ScanRun.h"
#include "tests/support/Printing.h"
#include "tests/support/WaitFor.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace Qt::Literals::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace tovarin {

namespace {

class BadAnswerTest : public testing::TestWithParam<const char *> {};

/// Long enough to start a scanner and get an answer, also on a busy machine.
constexpr std::chrono::seconds shortly{2};

} // namespace

TEST_P(BadAnswerTest, CostsThisFileAloneAndTheScanner) {
    const QString bad = QString::fromLatin1(GetParam());
    const ScanRun run = scan({u"bill 1"_s, bad, u"bill 2"_s, u"bill 3"_s});
    EXPECT_EQ(run.names(), QStringList({u"bill 1"_s, u"bill 2"_s, u"bill 3"_s}));
    EXPECT_EQ(run.processes().size(), 2);
    EXPECT_EQ(note(run.drafts.value(1), 4), u"1"_s);
    EXPECT_EQ(note(run.drafts.value(2), 4), u"2"_s);
    EXPECT_THAT(run.progress, ElementsAre(Pair(1, 4), Pair(2, 4), Pair(3, 4), Pair(4, 4)));
}

TEST_P(BadAnswerTest, CountsAsReadWhenItIsTheOnlyFile) {
    const ScanRun run = scan(QStringList(QString::fromLatin1(GetParam())));
    EXPECT_THAT(run.drafts, IsEmpty());
    EXPECT_THAT(run.progress, ElementsAre(Pair(1, 1)));
    EXPECT_EQ(run.timesFinished, 1);
}

INSTANTIATE_TEST_SUITE_P(Kinds, BadAnswerTest,
                         testing::Values("crash", "leave", "half", "flood", "junk", "wrong field",
                                         "empty line", "empty list", "too much", "too long"));

TEST(ScanJobFaultTest, GivesUpAFileThatOutlastsTheLimit) {
    const ScanRun run = scan({u"bill 1"_s, u"hang"_s, u"bill 2"_s}, shortly);
    EXPECT_EQ(run.names(), QStringList({u"bill 1"_s, u"bill 2"_s}));
    EXPECT_EQ(run.processes().size(), 2);
    EXPECT_THAT(run.progress, ElementsAre(Pair(1, 3), Pair(2, 3), Pair(3, 3)));
}

TEST(ScanJobFaultTest, LetsHalfAnAnswerNotLengthenTheLimit) {
    EXPECT_EQ(scan({u"half and hang"_s, u"bill"_s}, shortly).names(), QStringList(u"bill"_s));
}

TEST(ScanJobFaultTest, EndsAScannerThatWillNotBeAsked) {
    EXPECT_EQ(scan({u"ignore end"_s, u"bill"_s}, shortly).names(), QStringList(u"bill"_s));
}

TEST(ScanJobFaultTest, GivesEachFileTheWholeLimit) {
    // Together they take twice as long as one file may.
    const ScanRun run = scan({u"hang"_s, u"bill 1"_s, u"hang"_s, u"bill 2"_s}, shortly);
    EXPECT_EQ(run.names(), QStringList({u"bill 1"_s, u"bill 2"_s}));
}

TEST(ScanJobFaultTest, DoesNotReadWhatTheScannerComplainsOf) {
    const ScanRun run = scan({u"much on the side"_s, u"bill"_s});
    EXPECT_EQ(run.names(), QStringList({u"much on the side"_s, u"bill"_s}));
}

TEST(ScanJobFaultTest, GivesNothingWithoutAScanner) {
    const QTemporaryDir folder;
    const QString noProgram = folder.filePath(u"text"_s);
    QFile file(noProgram);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("no program");
    file.close();
    for (const QString &scanner : {folder.filePath(u"absent"_s), noProgram, folder.path(), u""_s}) {
        ScanJob job(scanner, amply);
        for (int time = 0; time < 2; ++time) {
            const ScanRun run = scan(job, filesNamed({u"bill"_s, u"bill"_s}));
            EXPECT_THAT(run.drafts, IsEmpty());
            EXPECT_THAT(run.progress, ElementsAre(Pair(1, 2), Pair(2, 2)));
            EXPECT_EQ(run.timesFinished, 1);
        }
    }
}

TEST(ScanJobFaultTest, GivesNothingWithAScannerThatOnlyEnds) {
    ScanJob job(u"/bin/true"_s, amply);
    const ScanRun run = scan(job, filesNamed({u"bill"_s, u"bill"_s}));
    EXPECT_THAT(run.drafts, IsEmpty());
    EXPECT_THAT(run.progress, ElementsAre(Pair(1, 2), Pair(2, 2)));
}

TEST(ScanJobFaultTest, ForgetsADraftWithoutItsScan) {
    ScanJob job(standInScanner(), amply);
    int drafts = 0;
    QObject::connect(&job, &ScanJob::progress, &job, [&] {
        ++drafts;
        job.cancel();
    });
    EXPECT_TRUE(job.start(filesNamed({u"bill 1"_s, u"bill 2"_s})));
    EXPECT_TRUE(waitFor([&] { return drafts == 1; }));
    job.disconnect();
    EXPECT_EQ(scan(job, filesNamed({u"bill 3"_s})).names(), QStringList(u"bill 3"_s));
}

} // namespace tovarin
