// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// The program tovarin-scanner, as the scan job runs it.

#include "scan/job/ScanJob.h"
#include "scan/job/ScanMessages.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

using Lang = LocalizationManager::Lang;

constexpr std::chrono::seconds patience{120};
constexpr int patienceInMilliseconds = 120000;

const QString scanner = QString::fromUtf8(SCANNER);

QUrl sample(const QString &name) {
    const QString path = QString::fromUtf8(SAMPLE_BILLS) + u'/' + name;
    EXPECT_TRUE(QFile::exists(path)) << qPrintable(path);
    return QUrl::fromLocalFile(path);
}

QList<Subscription> scan(const QList<QUrl> &files) {
    ScanJob job(scanner, patience);
    QEventLoop loop;
    QTimer::singleShot(patience, &loop, [&loop] { loop.exit(1); });
    QList<Subscription> found;
    int done = 0;
    QObject::connect(&job, &ScanJob::progress, &loop, [&done](int now) { done = now; });
    QObject::connect(&job, &ScanJob::finished, &loop, [&](const QList<Subscription> &drafts) {
        found = drafts;
        loop.exit(0);
    });
    EXPECT_TRUE(job.start(files));
    EXPECT_EQ(loop.exec(), 0);
    EXPECT_EQ(done, files.size());
    return found;
}

/// Sets a variable for this process and those it starts, as long as it lives.
class VariableScope {
public:
    VariableScope(const char *name, const QByteArray &value)
        : m_name(name), m_before(qgetenv(name)) {
        qputenv(name, value);
    }
    ~VariableScope() { m_before.isNull() ? qunsetenv(m_name) : qputenv(m_name, m_before); }
    VariableScope(const VariableScope &) = delete;
    VariableScope &operator=(const VariableScope &) = delete;

private:
    const char *m_name;
    QByteArray m_before;
};

QByteArray content(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "no file";
}

/// The value of a line "Name:\tvalue" in the kernel's account of a process.
QByteArray status(qint64 process, const QByteArray &name) {
    for (const QByteArray &line : content(u"/proc/%1/status"_s.arg(process)).split('\n')) {
        if (line.startsWith(name + ':'))
            return line.sliced(name.size() + 1).trimmed();
    }
    return "no such line";
}

} // namespace

TEST(ScannerTest, ReadsTheTextLayerOfAPdf) {
    const QList<Subscription> drafts = scan({sample(u"pdf/text-layer-english.pdf"_s)});
    ASSERT_EQ(drafts.size(), 1);
    EXPECT_EQ(drafts.first().amount, 49.49);
    EXPECT_EQ(drafts.first().currency, u"USD"_s);
}

TEST(ScannerTest, RecognisesTheTextOfPicturesAndDrawnPages) {
    const QList<Subscription> drafts =
        scan({sample(u"hazards/UPPER-CASE.PNG"_s), sample(u"pdf/scanned.pdf"_s)});
    ASSERT_EQ(drafts.size(), 2);
    EXPECT_EQ(drafts.first().amount, 19.9);
    EXPECT_EQ(drafts.first().currency, u"CNY"_s);
    EXPECT_EQ(drafts.last().amount, 49.49);
    EXPECT_EQ(drafts.last().currency, u"USD"_s);
}

TEST(ScannerTest, ReadsEveryFormatInTheSandbox) {
    // The plugins that decode them are loaded there, too.
    for (const QString &name : {u"bill.bmp"_s, u"bill.gif"_s, u"bill.tiff"_s, u"bill.webp"_s}) {
        const QList<Subscription> drafts = scan({sample(u"hazards/"_s + name)});
        ASSERT_EQ(drafts.size(), 1) << qPrintable(name);
        EXPECT_EQ(drafts.first().amount, 41.99) << qPrintable(name);
    }
}

TEST(ScannerTest, ReadsADrawingWithTextInIt) {
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"bill.svg"_s));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write(R"(<svg xmlns="http://www.w3.org/2000/svg" width="400" height="120">
        <text x="20" y="70" font-size="40" font-family="sans-serif">Total $12.50</text></svg>)");
    file.close();
    const QList<Subscription> drafts = scan({QUrl::fromLocalFile(file.fileName())});
    ASSERT_EQ(drafts.size(), 1);
    EXPECT_EQ(drafts.first().amount, 12.5);
    EXPECT_EQ(drafts.first().currency, u"USD"_s);
}

TEST(ScannerTest, GivesAPictureWithoutTextADraftAndAPdfWithoutNone) {
    const QList<Subscription> drafts =
        scan({sample(u"hazards/one-pixel.png"_s), sample(u"pdf/blank-page.pdf"_s)});
    ASSERT_EQ(drafts.size(), 1);
    EXPECT_EQ(drafts.first().name, QString());
    EXPECT_EQ(drafts.first().amount, 0);
}

TEST(ScannerTest, PassesOverWhatCannotBeRead) {
    const QTemporaryDir folder;
    const QString pipe = folder.filePath(u"pipe.png"_s);
    ASSERT_EQ(mkfifo(pipe.toLocal8Bit().constData(), 0600), 0);
    const QList<Subscription> drafts = scan(
        {sample(u"hazards/empty.png"_s), sample(u"hazards/text-named.png"_s),
         sample(u"hazards/head-only.png"_s), sample(u"pdf/password-needed.pdf"_s),
         sample(u"pdf/no-pages.pdf"_s), QUrl::fromLocalFile(pipe),
         QUrl::fromLocalFile(folder.path()), QUrl::fromLocalFile(folder.filePath(u"absent.pdf"_s)),
         sample(u"pdf/text-layer-english.pdf"_s)});
    ASSERT_EQ(drafts.size(), 1);
    EXPECT_EQ(drafts.first().amount, 49.49);
}

TEST(ScannerTest, SpeaksTheLanguageThatTheProgramSpeaks) {
    const QUrl bill = sample(u"pdf/text-layer-english.pdf"_s);
    // Neither the environment nor the settings decide, but what is chosen in this process.
    const VariableScope locale("LC_ALL", "zh_CN.UTF-8");
    {
        const LanguageScope scope(Lang::en);
        EXPECT_TRUE(scan({bill}).value(0).notes.startsWith(u"📷 Scanned text:\n"_s));
    }
    const VariableScope otherLocale("LC_ALL", "en_US.UTF-8");
    const LanguageScope scope(Lang::zh);
    EXPECT_TRUE(scan({bill}).value(0).notes.startsWith(u"📷 识别原文：\n"_s));
}

TEST(ScannerTest, LeavesTheSettingsAlone) {
    const QTemporaryDir settings;
    const VariableScope home("XDG_CONFIG_HOME", settings.path().toLocal8Bit());
    EXPECT_EQ(scan({sample(u"pdf/text-layer-english.pdf"_s)}).size(), 1);
    EXPECT_TRUE(QDir(settings.path()).isEmpty());
}

TEST(ScannerTest, NamesDaysInTheZoneOfTheProgram) {
    const QUrl bill = sample(u"pdf/text-layer-chinese.pdf"_s);
    for (const auto &[zone, midnight] : {std::pair("Asia/Shanghai", "2025-02-03T16:00:00Z"),
                                         std::pair("America/Sao_Paulo", "2025-02-04T03:00:00Z"),
                                         std::pair("UTC", "2025-02-04T00:00:00Z")}) {
        const VariableScope scope("TZ", zone);
        EXPECT_EQ(scan({bill}).value(0).startDate, instant(midnight)) << zone;
    }
}

TEST(ScannerTest, IsShutInWhenItReads) {
    QProcess process;
    process.start(scanner, {u"en"_s});
    process.write(ScanMessages::encodeRequest(u"/absent.png"_s));
    ASSERT_TRUE(process.waitForReadyRead(patienceInMilliseconds));
    EXPECT_EQ(process.readAllStandardOutput(), "null\n");
    EXPECT_EQ(status(process.processId(), "Seccomp"), "2");
    EXPECT_EQ(status(process.processId(), "NoNewPrivs"), "1");
    process.closeWriteChannel();
    ASSERT_TRUE(process.waitForFinished(patienceInMilliseconds));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), EXIT_SUCCESS);
    EXPECT_EQ(process.readAllStandardError(), "");
}

TEST(ScannerTest, EndsWithoutAnAnswerToWhatIsNoRequest) {
    QProcess process;
    process.start(scanner, {u"en"_s});
    process.write("read this\n");
    ASSERT_TRUE(process.waitForFinished(patienceInMilliseconds));
    EXPECT_EQ(process.readAllStandardOutput(), "");
}

TEST(ScannerTest, WantsToBeToldTheLanguage) {
    for (const QStringList &arguments : {QStringList(), QStringList{u"en"_s, u"zh"_s}}) {
        QProcess process;
        process.start(scanner, arguments);
        ASSERT_TRUE(process.waitForFinished(patienceInMilliseconds));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(process.exitCode(), EXIT_FAILURE);
    }
}

} // namespace tovarin
