// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// Files that were made to break, stop or fill up the scanner, each scanned with a sound one behind
// it. hostile_files.py writes them.

#include "scanner/Sandbox.h"
#include "tests/scan/job/ScanRun.h"
#include "tests/support/Printing.h"
#include "tests/support/WaitFor.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

/// No file is given up for the time it takes: what would have to be, fails the test.
constexpr std::chrono::hours withoutLimit{1};

/// For what would otherwise use up the whole limit: whatever comes of it, the time decides.
constexpr std::chrono::seconds shortLimit{6};

/// Libraries, the file itself where it is mapped, and what the system counts besides.
[[maybe_unused]] constexpr long outsideTheLimit = long{400} << 20;

QUrl soundBill() {
    return QUrl::fromLocalFile(QString::fromUtf8(SAMPLE_BILLS) + u"/pdf/text-layer-english.pdf"_s);
}

bool isOfSoundBill(const Subscription &draft) {
    return draft.amount == 49.49 && draft.currency == u"USD";
}

/// Scans the files and the sound one. How many drafts the others gave.
qsizetype draftsBeforeSoundBill(ScanJob &job, QList<QUrl> files) {
    files.append(soundBill());
    const ScanRun run = scan(job, files);
    EXPECT_EQ(run.timesFinished, 1);
    EXPECT_EQ(run.progress.size(), files.size());
    if (run.drafts.isEmpty() || !isOfSoundBill(run.drafts.last())) {
        ADD_FAILURE() << "the sound bill is lost";
        return -1;
    }
    return run.drafts.size() - 1;
}

qsizetype draftsBeforeSoundBill(const QList<QUrl> &files, std::chrono::milliseconds limit) {
    ScanJob job(QString::fromUtf8(SCANNER), limit);
    return draftsBeforeSoundBill(job, files);
}

/// The most memory that a process had that was awaited here, in bytes. Sanitizers take more.
[[maybe_unused]] long mostMemoryOfChildren() {
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    return usage.ru_maxrss * 1024;
}

class FilesTest : public testing::Test {
protected:
    QString path(const QString &name) const { return m_folder.filePath(name); }
    QUrl url(const QString &name) const { return QUrl::fromLocalFile(path(name)); }

    /// Writes the files of the family. Their names, and what is made of them, in order.
    QList<std::pair<QString, QString>> make(const char *family) const {
        QProcess maker;
        maker.start(QString::fromUtf8(PYTHON),
                    {QString::fromUtf8(HOSTILE_FILES), m_folder.path(), QString::fromUtf8(family)});
        EXPECT_TRUE(maker.waitForFinished(-1));
        EXPECT_EQ(maker.exitCode(), 0) << maker.readAllStandardError().constData();
        QFile manifest(path(u"manifest.json"_s));
        EXPECT_TRUE(manifest.open(QFile::ReadOnly));
        QList<std::pair<QString, QString>> files;
        for (const QJsonValue file : QJsonDocument::fromJson(manifest.readAll()).array())
            files.append({file[u"name"_s].toString(), file[u"outcome"_s].toString()});
        return files;
    }

private:
    QTemporaryDir m_folder;
};

class HostileFilesTest : public FilesTest, public testing::WithParamInterface<const char *> {};

/// What a folder may hold in the place of a file that stays as it is.
class OddPlacesTest : public FilesTest {
protected:
    QByteArray local(const QString &name) const { return QFile::encodeName(path(name)); }

    void link(const QString &name, const QString &target) const {
        ASSERT_EQ(symlink(QFile::encodeName(target).constData(), local(name).constData()), 0);
    }

    void copySoundBill(const QString &name) const {
        QFile::remove(path(name));
        ASSERT_TRUE(QFile::copy(soundBill().toLocalFile(), path(name)));
    }
};

bool hasMapped(qint64 process, const QString &file) {
    QFile maps(u"/proc/%1/maps"_s.arg(process));
    return maps.open(QFile::ReadOnly) && maps.readAll().contains(QFile::encodeName(file));
}

} // namespace

TEST_P(HostileFilesTest, CostTheirOwnDraftsAtTheMost) {
    const auto files = make(GetParam());
    ASSERT_GT(files.size(), 4);
    for (const auto &[name, outcome] : files) {
        SCOPED_TRACE(qPrintable(name));
        const bool isEither = outcome == u"either";
        const qsizetype drafts =
            draftsBeforeSoundBill({url(name)}, isEither ? shortLimit : ScanJob::defaultLimit);
        if (isEither)
            EXPECT_LE(drafts, 1);
        else
            EXPECT_EQ(drafts, outcome == u"draft" ? 1 : 0);
#ifndef TOVARIN_ADDRESS_SANITIZER
        EXPECT_LT(mostMemoryOfChildren(), long{memoryLimit} + outsideTheLimit);
#endif
    }
}

INSTANTIATE_TEST_SUITE_P(Families, HostileFilesTest,
                         testing::Values("png", "jpeg", "gif", "webp", "tiff", "drawing",
                                         "other_picture", "pdf_stream", "pdf_structure",
                                         "pdf_drawing"),
                         [](const auto &family) { return std::string(family.param); });

TEST_F(OddPlacesTest, GiveNoDraftAndHoldNothingUp) {
    ASSERT_TRUE(QDir(path({})).mkdir(u"folder.png"_s));
    link(u"nowhere.pdf"_s, u"absent.pdf"_s);
    link(u"circle.png"_s, u"circle.png"_s);
    link(u"zeros.png"_s, u"/dev/zero"_s);
    link(u"requests.png"_s, u"/dev/stdin"_s);
    ASSERT_EQ(mkfifo(local(u"pipe.pdf"_s).constData(), 0600), 0);
    sockaddr_un address{.sun_family = AF_UNIX, .sun_path = {}};
    const QByteArray socketPath = local(u"socket.png"_s);
    ASSERT_LT(socketPath.size(), qsizetype{sizeof address.sun_path});
    std::ranges::copy(socketPath, address.sun_path);
    const int listener = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(listener, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    QFile large(path(u"257-megabytes.png"_s));
    ASSERT_TRUE(large.open(QFile::WriteOnly) && large.resize(257 << 20));
    EXPECT_EQ(
        draftsBeforeSoundBill({url(u"folder.png"_s), url(u"nowhere.pdf"_s), url(u"circle.png"_s),
                               url(u"zeros.png"_s), url(u"requests.png"_s), url(u"pipe.pdf"_s),
                               url(u"socket.png"_s), url(u"257-megabytes.png"_s), url(u"\0.png"_s),
                               url(QString(5000, u'x') + u".png"_s), QUrl(u"file:///dev/null"_s),
                               QUrl(u"file:///proc/self/mem"_s), QUrl(u"file:///proc/kmsg"_s)},
                              withoutLimit),
        0);
    close(listener);
}

TEST_F(OddPlacesTest, AreReadThroughALink) {
    link(u"link.pdf"_s, soundBill().toLocalFile());
    link(u"link to link.PDF"_s, u"link.pdf"_s);
    EXPECT_EQ(draftsBeforeSoundBill({url(u"link.pdf"_s), url(u"link to link.PDF"_s)}, withoutLimit),
              2);
}

TEST_F(OddPlacesTest, AreNotReadWithoutPermission) {
    copySoundBill(u"secret.pdf"_s);
    ASSERT_EQ(chmod(local(u"secret.pdf"_s).constData(), 0), 0);
    ASSERT_EQ(chmod(local({}).constData(), 0755), 0);
    // Root may read what it likes; Qt ends where real and effective user differ.
    const bool isRoot = geteuid() == 0;
    if (isRoot) {
        ASSERT_EQ(setresuid(65534, 65534, 0), 0);
    }
    EXPECT_EQ(draftsBeforeSoundBill({url(u"secret.pdf"_s)}, withoutLimit), 0);
    if (isRoot) {
        ASSERT_EQ(setresuid(0, 0, 0), 0);
    }
}

TEST_F(OddPlacesTest, AreTakenAsTheyAreWhenTheirTurnComes) {
    copySoundBill(u"first.pdf"_s);
    copySoundBill(u"goes.pdf"_s);
    QFile file(path(u"comes.pdf"_s));
    ScanJob job(QString::fromUtf8(SCANNER), withoutLimit);
    QObject::connect(&job, &ScanJob::progress, &job, [&](int done) {
        if (done == 1) {
            QFile::remove(path(u"goes.pdf"_s));
            copySoundBill(u"comes.pdf"_s);
        }
    });
    EXPECT_EQ(
        draftsBeforeSoundBill(job, {url(u"first.pdf"_s), url(u"goes.pdf"_s), url(u"comes.pdf"_s)}),
        2);
}

TEST_F(OddPlacesTest, MayShrinkUnderTheScannersHands) {
    make("jpeg");
    const QString name = u"jpeg-scans-without-end.jpg"_s;
    ScanJob job(QString::fromUtf8(SCANNER), withoutLimit);
    ScanRun run;
    QObject::connect(&job, &ScanJob::finished, &job, [&run](const QList<Subscription> &drafts) {
        run.drafts = drafts;
        ++run.timesFinished;
    });
    ASSERT_TRUE(job.start({url(name), soundBill()}));
    ASSERT_TRUE(waitFor([&] {
        const QProcess *const scanner = job.findChild<QProcess *>();
        return scanner && hasMapped(scanner->processId(), path(name));
    }));
    ASSERT_EQ(truncate(local(name).constData(), 0), 0);
    ASSERT_TRUE(waitFor([&] { return run.timesFinished == 1; }));
    ASSERT_EQ(run.drafts.size(), 1);
    EXPECT_TRUE(isOfSoundBill(run.drafts.first()));
}

} // namespace tovarin
