// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/OpenPanel.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fnmatch.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

using enum OpenPanel::ContentType;

const QList<OpenPanel::ContentType> all = {png, jpeg, tiff, image, pdf};

/// Whether a panel that minds the letter case would show the file.
bool isShown(const char *name, const QList<OpenPanel::ContentType> &types) {
    return std::ranges::any_of(OpenPanel::fileNamePatterns(types), [name](const QString &pattern) {
        return fnmatch(pattern.toUtf8().constData(), name, 0) == 0;
    });
}

} // namespace

TEST(OpenPanelTest, SpellsPatternsInBothLetterCases) {
    EXPECT_EQ(OpenPanel::fileNamePatterns({png}), QStringList(u"*.[pP][nN][gG]"_s));
    EXPECT_EQ(OpenPanel::fileNamePatterns({pdf}), QStringList(u"*.[pP][dD][fF]"_s));
    EXPECT_EQ(OpenPanel::fileNamePatterns({tiff}),
              QStringList({u"*.[tT][iI][fF]"_s, u"*.[tT][iI][fF][fF]"_s}));
    EXPECT_EQ(OpenPanel::fileNamePatterns({}), QStringList());
}

TEST(OpenPanelTest, KeepsTheOrderOfTheTypesAndRepeatsNothing) {
    QStringList patterns = OpenPanel::fileNamePatterns({pdf, png, pdf});
    EXPECT_EQ(patterns, QStringList({u"*.[pP][dD][fF]"_s, u"*.[pP][nN][gG]"_s}));
    patterns = OpenPanel::fileNamePatterns(all);
    EXPECT_EQ(patterns.first(), u"*.[pP][nN][gG]"_s);
    EXPECT_EQ(patterns.last(), u"*.[pP][dD][fF]"_s);
    EXPECT_EQ(patterns.removeDuplicates(), 0);
    EXPECT_LT(patterns.indexOf(u"*.[jJ][pP][gG]"_s), patterns.indexOf(u"*.[tT][iI][fF]"_s));
    EXPECT_LT(patterns.indexOf(u"*.[tT][iI][fF]"_s), patterns.indexOf(u"*.[bB][mM][pP]"_s));
}

TEST(OpenPanelTest, ShowsImagesAndPdfsOnly) {
    for (const char *name :
         {"a.png", "A.PNG", "a.Png", "a.jpg", "a.JPEG", "a.tif", "a.TIFF", "a.gif", "a.bmp",
          "a.webp", "a.heic", "a.svg", "a.pdf", "a b.PDF", "账单.Pdf", "a.tar.png"})
        EXPECT_TRUE(isShown(name, all)) << name;
    for (const char *name : {"a.txt", "png", "a.pngx", "a.doc", "apdf", "a.zip", "a.png.txt", ""})
        EXPECT_FALSE(isShown(name, all)) << name;
    for (const char *name : {"a.gif", "a.jpg", "a.pdf"})
        EXPECT_FALSE(isShown(name, {png})) << name;
}

} // namespace tovarin
