// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/reading/BillFile.h"

#include "tests/support/Printing.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

class BillFileTest : public testing::Test {
protected:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    QString written(const QString &name, const QByteArray &bytes) const {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
        return path(name);
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(BillFileTest, GivesTheBytesOfAFile) {
    const QByteArray bytes = "a\0b"_ba;
    EXPECT_EQ(BillFile(written(u"账单.png"_s, bytes)).bytes(), bytes);
}

TEST_F(BillFileTest, FollowsALink) {
    ASSERT_TRUE(QFile::link(written(u"a"_s, "bill"), path(u"b"_s)));
    EXPECT_EQ(BillFile(path(u"b"_s)).bytes(), "bill");
}

TEST_F(BillFileTest, HasNothingOfWhatIsNoFile) {
    EXPECT_EQ(BillFile(path(u"nowhere"_s)).bytes(), QByteArray());
    EXPECT_EQ(BillFile(path(u"."_s)).bytes(), QByteArray());
    EXPECT_EQ(BillFile(QString()).bytes(), QByteArray());
    EXPECT_EQ(BillFile(u"/dev/zero"_s).bytes(), QByteArray());
    EXPECT_EQ(BillFile(written(u"empty"_s, {})).bytes(), QByteArray());
}

TEST_F(BillFileTest, WaitsForNobodyToWriteIntoAPipe) {
    ASSERT_EQ(mkfifo(QFile::encodeName(path(u"pipe"_s)).constData(), 0600), 0);
    EXPECT_EQ(BillFile(path(u"pipe"_s)).bytes(), QByteArray());
}

TEST_F(BillFileTest, MayBeAsLargeAsTheLimit) {
    const QString name = written(u"large"_s, "x");
    ASSERT_TRUE(QFile::resize(name, BillFile::largestSize));
    EXPECT_EQ(BillFile(name).bytes().size(), BillFile::largestSize);
    ASSERT_TRUE(QFile::resize(name, BillFile::largestSize + 1));
    EXPECT_EQ(BillFile(name).bytes(), QByteArray());
}

} // namespace tovarin
