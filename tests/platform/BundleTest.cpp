// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/Bundle.h"

#include "tests/support/Printing.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

class BundleTest : public testing::Test {
protected:
    BundleTest() {
        QDir(folder.path()).mkpath(u"Fonts/folder.ttf"_s);
        for (const QString &name :
             {u"Fonts/b.ttf"_s, u"Fonts/a.ttf"_s, u"Fonts/c.otf"_s, u"Fonts/d"_s, u"mark.png"_s}) {
            QFile file(folder.filePath(name));
            EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        }
    }

    QTemporaryDir folder;
    Bundle bundle{folder.path()};
};

} // namespace

TEST_F(BundleTest, FindsAResourceInItsFolderOnly) {
    EXPECT_EQ(bundle.path(u"a"_s, u"ttf"_s, u"Fonts"_s), folder.filePath(u"Fonts/a.ttf"_s));
    EXPECT_EQ(bundle.path(u"mark"_s, u"png"_s), folder.filePath(u"mark.png"_s));
    EXPECT_EQ(bundle.path(u"a"_s, u"ttf"_s), QString());
    EXPECT_EQ(bundle.path(u"mark"_s, u"png"_s, u"Fonts"_s), QString());
    EXPECT_EQ(bundle.path(u"mark"_s, u"png"_s, u"No such folder"_s), QString());
}

TEST_F(BundleTest, FindsNothingElse) {
    for (const QString &name : {u""_s, u"A"_s, u"x"_s, u"folder"_s, u"../mark"_s, u"./a"_s})
        EXPECT_EQ(bundle.path(name, u"ttf"_s, u"Fonts"_s), QString()) << name.toStdString();
}

TEST_F(BundleTest, ListsTheResourcesOfATypeByName) {
    EXPECT_EQ(bundle.paths(u"ttf"_s, u"Fonts"_s),
              QStringList({folder.filePath(u"Fonts/a.ttf"_s), folder.filePath(u"Fonts/b.ttf"_s)}));
    EXPECT_EQ(bundle.paths(u"png"_s, u"Fonts"_s), QStringList());
    EXPECT_EQ(bundle.paths(u"ttf"_s, u"No such folder"_s), QStringList());
}

} // namespace tovarin
