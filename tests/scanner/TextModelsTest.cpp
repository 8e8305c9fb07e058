// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scanner/TextModels.h"

#include "tests/support/Printing.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

TEST(TextModelsTest, AreFoundFromEveryFolderOfPrograms) {
    const QTemporaryDir root;
    const QString models = root.filePath(u"share/tovarin/TextModels"_s);
    EXPECT_EQ(textModelsFolder(root.filePath(u"bin"_s)), QString());

    ASSERT_TRUE(QDir().mkpath(models));
    EXPECT_EQ(textModelsFolder(root.filePath(u"bin"_s)), models);
    EXPECT_EQ(textModelsFolder(root.filePath(u"libexec/tovarin"_s)), models);
    EXPECT_EQ(textModelsFolder(root.filePath(u"far/from/here"_s)), QString());
}

// The program that was just built has them as the installed one will.
TEST(TextModelsTest, LieBesideTheBuiltScanner) {
    const QString folder = textModelsFolder(QFileInfo(QString::fromUtf8(SCANNER)).path());
    for (const QString &name : {u"detection.onnx"_s, u"recognition.onnx"_s, u"characters.txt"_s})
        EXPECT_TRUE(QFile::exists(folder + u'/' + name)) << qPrintable(name);
}

} // namespace tovarin
