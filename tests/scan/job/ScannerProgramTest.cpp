// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/job/ScannerProgram.h"

#include "tests/support/Printing.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

class ScannerProgramTest : public testing::Test {
protected:
    QString path(const QString &file) const { return m_root.filePath(file); }
    QString found() const { return scannerProgram(path(u"bin"_s)); }

    void put(const QString &file, QFile::Permissions permissions) const {
        ASSERT_TRUE(QDir(m_root.path()).mkpath(QFileInfo(file).path()));
        QFile program(path(file));
        ASSERT_TRUE(program.open(QIODevice::WriteOnly));
        ASSERT_TRUE(program.setPermissions(permissions));
    }
    void putProgram(const QString &file) const {
        put(file, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

private:
    QTemporaryDir m_root;
};

} // namespace

TEST_F(ScannerProgramTest, IsNowhere) {
    EXPECT_EQ(found(), QString());
}

TEST_F(ScannerProgramTest, LooksInTheBuildTreeThenWhereItIsInstalledThenBesideTheProgram) {
    for (const QString &file : {u"scanner/tovarin-scanner"_s, u"libexec/tovarin/tovarin-scanner"_s,
                                u"bin/tovarin-scanner"_s}) {
        putProgram(file);
        EXPECT_EQ(found(), path(file));
    }
}

TEST_F(ScannerProgramTest, TakesProgramsOnly) {
    put(u"bin/tovarin-scanner"_s, QFile::ReadOwner | QFile::WriteOwner);
    ASSERT_TRUE(QDir().mkpath(path(u"libexec/tovarin/tovarin-scanner"_s)));
    EXPECT_EQ(found(), QString());
    putProgram(u"scanner/tovarin-scanner"_s);
    EXPECT_EQ(found(), path(u"scanner/tovarin-scanner"_s));
}

} // namespace tovarin
