// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/AppFonts.h"

#include "platform/Bundle.h"
#include "tests/support/Printing.h"

#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

TEST(AppFontsTest, AreKnownToTheProgramWithoutBeingInstalled) {
    for (const QString &family : {u"Poppins"_s, u"Poppins Tabular"_s})
        EXPECT_TRUE(QFontDatabase::hasFamily(family)) << family.toStdString();
    EXPECT_EQ(QFontDatabase::styles(u"Poppins"_s).size(), 4);
    for (const QFont::Weight weight : {QFont::Normal, QFont::Medium, QFont::DemiBold, QFont::Bold})
        EXPECT_EQ(QFontInfo(QFont(u"Poppins"_s, 15, weight)).weight(), weight);
}

TEST(AppFontsTest, LeaveWhatTheyLackToNotoSans) {
    for (const QString &family : {u"Poppins"_s, u"Poppins Tabular"_s})
        EXPECT_EQ(QFont::substitutes(family), QStringList{u"noto sans cjk sc"_s});
}

TEST(AppFontsTest, HaveDigitsOfOneWidthForAmounts) {
    for (const QFont::Weight weight : {QFont::DemiBold, QFont::Bold}) {
        const QFontMetricsF tabular(QFont(u"Poppins Tabular"_s, 40, weight));
        const QFontMetricsF plain(QFont(u"Poppins"_s, 40, weight));
        for (const QChar digit : u"0123456789"_s)
            EXPECT_DOUBLE_EQ(tabular.horizontalAdvance(digit), tabular.horizontalAdvance(u'0'));
        EXPECT_LT(plain.horizontalAdvance(u'1'), plain.horizontalAdvance(u'0'));
    }
}

TEST(AppFontsTest, PassOverWhatIsNoFont) {
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"Fonts"_s));
    QFile broken(folder.filePath(u"Fonts/broken.ttf"_s));
    ASSERT_TRUE(broken.open(QFile::WriteOnly));
    broken.write("no font");
    broken.close();
    const QStringList before = QFontDatabase::families();
    AppFonts::registerBundledFonts(Bundle(folder.path()));
    AppFonts::registerBundledFonts(Bundle(folder.filePath(u"nowhere"_s)));
    EXPECT_EQ(QFontDatabase::families(), before);
}

} // namespace tovarin
