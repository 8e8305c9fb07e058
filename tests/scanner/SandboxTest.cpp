// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scanner/Sandbox.h"

#include "tests/scanner/Attempts.h"
#include "tests/support/Printing.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

constexpr int patience = 60000;

class SandboxTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(QDir(m_folder.path()).mkdir(u"folder"_s));
        QFile file(m_folder.filePath(u"file"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write("x"), 1);
    }

    /// Runs the probe to its end.
    void run(QProcess &probe, const QStringList &arguments) const {
        probe.setWorkingDirectory(m_folder.path());
        probe.start(QString::fromUtf8(SANDBOX_PROBE), arguments);
        ASSERT_TRUE(probe.waitForFinished(patience));
    }

    /// What comes of an attempt, as the probe prints it.
    QByteArray outcome(const QString &mode, std::size_t attempt) const {
        QProcess probe;
        run(probe, {mode, QString::number(attempt)});
        EXPECT_EQ(probe.exitStatus(), QProcess::NormalExit);
        EXPECT_EQ(probe.exitCode(), 0) << probe.readAllStandardError().constData();
        return probe.readAllStandardOutput();
    }

    QByteArray content() const {
        QFile file(m_folder.filePath(u"file"_s));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : "no file";
    }
    QStringList entries() const {
        return QDir(m_folder.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries);
    }

private:
    QTemporaryDir m_folder;
};

class AttemptTest : public SandboxTest, public testing::WithParamInterface<std::size_t> {};

std::string nameOf(const testing::TestParamInfo<std::size_t> &info) {
    std::string name = attempts().at(info.param).name;
    std::ranges::replace(name, ' ', '_');
    return name;
}

} // namespace

TEST_P(AttemptTest, ComesToWhatTheSandboxAllows) {
    const Attempt &attempt = attempts().at(GetParam());
    const QByteArray expected = QByteArray::number(attempt.inside);
    EXPECT_EQ(outcome(u"inside"_s, GetParam()), expected);
    EXPECT_EQ(outcome(u"earlier"_s, GetParam()), expected);
    EXPECT_EQ(content(), "x");
    EXPECT_EQ(entries(), QStringList({u"file"_s, u"folder"_s}));
    // It is the sandbox that refuses.
    if (attempt.inside != 0 && outcome(u"outside"_s, GetParam()) == expected)
        GTEST_SKIP() << "This machine refuses it to everybody.";
}

INSTANTIATE_TEST_SUITE_P(Each, AttemptTest, testing::Range(std::size_t{0}, attempts().size()),
                         nameOf);

TEST_F(SandboxTest, LetsTheProcessAbortItself) {
    QProcess probe;
    run(probe, {u"abort"_s});
    EXPECT_EQ(probe.exitStatus(), QProcess::CrashExit);
    EXPECT_EQ(probe.exitCode(), SIGABRT);
}

TEST_F(SandboxTest, DiesWithItsParent) {
    // The output ends when the last process that holds it has.
    QProcess probe;
    QProcess reader;
    probe.setStandardOutputProcess(&reader);
    reader.start(u"cat"_s, QStringList());
    run(probe, {u"orphan"_s});
    EXPECT_EQ(probe.exitCode(), 0);
    EXPECT_TRUE(reader.waitForFinished(patience));
    EXPECT_EQ(reader.readAllStandardOutput(), "ready\n");
}

} // namespace tovarin
