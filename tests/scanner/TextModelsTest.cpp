// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scanner/TextModels.h"

#include "tests/support/Printing.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

TEST(TextModelsTest, AreInstalledOrLieInTheSources) {
    const QTemporaryDir root;
    const QString models = root.filePath(u"share/tovarin/TextModels"_s);
    const QString sources = textModelsFolder(root.filePath(u"bin"_s));
    EXPECT_TRUE(QFile::exists(sources + u"/recognition.onnx"_s));
    EXPECT_NE(sources, models);

    ASSERT_TRUE(QDir().mkpath(models));
    EXPECT_EQ(textModelsFolder(root.filePath(u"bin"_s)), models);
    EXPECT_EQ(textModelsFolder(root.filePath(u"libexec/tovarin"_s)), models);
    EXPECT_EQ(textModelsFolder(root.filePath(u"build/dev/scanner"_s)), sources);
}

} // namespace tovarin
