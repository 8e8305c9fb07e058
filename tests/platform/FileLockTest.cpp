// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/FileLock.h"

#include "tests/support/Printing.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

using enum FileLock::Result;

constexpr int patience = 60000;

class FileLockTest : public testing::Test {
protected:
    QString path(const QString &name) const { return m_folder.filePath(name); }
    QStringList entries() const {
        return QDir(m_folder.path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries);
    }

private:
    const QTemporaryDir m_folder;
};

} // namespace

TEST_F(FileLockTest, IsHeldByOneAtATime) {
    FileLock one(path(u"lock"_s));
    FileLock other(path(u"lock"_s));
    EXPECT_EQ(one.take(), taken);
    EXPECT_EQ(one.take(), taken);
    EXPECT_EQ(other.take(), heldElsewhere);
    EXPECT_EQ(other.take(), heldElsewhere);
    other.release();
    EXPECT_EQ(other.take(), heldElsewhere);
    one.release();
    EXPECT_EQ(other.take(), taken);
    EXPECT_EQ(one.take(), heldElsewhere);
}

TEST_F(FileLockTest, EndsWithItsObject) {
    {
        FileLock one(path(u"lock"_s));
        EXPECT_EQ(one.take(), taken);
    }
    FileLock other(path(u"lock"_s));
    EXPECT_EQ(other.take(), taken);
}

TEST_F(FileLockTest, OfOneFileIsNoneOfAnother) {
    FileLock one(path(u"lock"_s));
    FileLock other(path(u"another lock"_s));
    EXPECT_EQ(one.take(), taken);
    EXPECT_EQ(other.take(), taken);
}

TEST_F(FileLockTest, LeavesAnEmptyFileThatOnlyTheUserReads) {
    FileLock lock(path(u"账单 lock"_s));
    EXPECT_EQ(entries(), QStringList());
    EXPECT_EQ(lock.take(), taken);
    lock.release();
    EXPECT_EQ(entries(), QStringList(u"账单 lock"_s));
    const QFileInfo file(path(u"账单 lock"_s));
    EXPECT_EQ(file.size(), 0);
    EXPECT_EQ(file.permissions() & (QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                    QFile::ReadOther | QFile::WriteOther | QFile::ExeOther),
              QFile::Permissions());
}

TEST_F(FileLockTest, LeavesTheContentsOfAFileAlone) {
    QFile file(path(u"lock"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write("abc"), 3);
    file.close();
    FileLock lock(path(u"lock"_s));
    EXPECT_EQ(lock.take(), taken);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), "abc");
}

TEST_F(FileLockTest, IsNotInheritedByPrograms) {
    FileLock lock(path(u"lock"_s));
    ASSERT_EQ(lock.take(), taken);
    QProcess program;
    program.start(u"cat"_s, QStringList());
    ASSERT_TRUE(program.waitForStarted(patience));
    ASSERT_EQ(program.write("running\n"), 8);
    ASSERT_TRUE(program.waitForReadyRead(patience));
    lock.release();
    FileLock other(path(u"lock"_s));
    EXPECT_EQ(other.take(), taken);
    program.closeWriteChannel();
    EXPECT_TRUE(program.waitForFinished(patience));
}

TEST_F(FileLockTest, IsImpossibleWhereNoFileCanBe) {
    ASSERT_TRUE(QDir().mkdir(path(u"folder"_s)));
    FileLock onFolder(path(u"folder"_s));
    EXPECT_EQ(onFolder.take(), impossible);
    FileLock nowhere(path(u"no folder/lock"_s));
    EXPECT_EQ(nowhere.take(), impossible);
    FileLock unnamed{QString()};
    EXPECT_EQ(unnamed.take(), impossible);
    EXPECT_EQ(entries(), QStringList(u"folder"_s));
}

} // namespace tovarin
