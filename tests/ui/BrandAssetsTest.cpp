// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/BrandAssets.h"

#include "tests/support/Printing.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

/// The share of the picture that differs from its ground by at least a third of the way from black
/// to white.
double contrast(const QImage &mark, QColor ground) {
    int seen = 0;
    for (int y = 0; y < mark.height(); ++y) {
        for (int x = 0; x < mark.width(); ++x) {
            const QColor colour = mark.pixelColor(x, y);
            const double covered = static_cast<double>(colour.alpha()) / 255;
            const double shade =
                covered * qGray(colour.rgb()) + (1 - covered) * qGray(ground.rgb());
            seen += std::abs(shade - qGray(ground.rgb())) > 85;
        }
    }
    return static_cast<double>(seen) / (mark.width() * mark.height());
}

class BrandFolder : public testing::Test {
protected:
    void bring(const QString &name) {
        ASSERT_TRUE(QDir(folder.path()).mkpath(QFileInfo(name).path()));
        ASSERT_TRUE(QFile::copy(u":/resources/"_s + name, folder.filePath(name)));
    }

    QTemporaryDir folder;
    BrandAssets assets{Bundle(folder.path())};
};

} // namespace

TEST(BrandAssets, HaveTheMark) {
    const QImage mark = BrandAssets(Bundle(u":/resources"_s)).markImage();
    EXPECT_EQ(mark.size(), QSize(128, 128));
}

TEST(BrandAssets, AreSeenOnEveryPanel) {
    const QIcon icon = BrandAssets(Bundle(u":/resources"_s)).panelIcon();
    for (const int size : {16, 18, 22, 24, 36, 48}) {
        const QImage mark = icon.pixmap(QSize(size, size), 1.0).toImage();
        ASSERT_EQ(mark.size(), QSize(size, size));
        for (const QColor ground : {QColor(Qt::white), QColor(Qt::black), QColor(0xEF, 0xF0, 0xF1),
                                    QColor(0x2A, 0x2E, 0x32)})
            EXPECT_GT(contrast(mark, ground), 0.1) << size << ' ' << ground.name().toStdString();
    }
}

TEST(BrandAssets, ComeInTheSizesOfPanels) {
    QList<int> widths;
    for (const QSize size : BrandAssets(Bundle(u":/resources"_s)).panelIcon().availableSizes())
        widths.append(size.width());
    EXPECT_EQ(widths, (QList<int>{16, 18, 22, 24, 32, 36, 44, 48, 64}));
}

TEST_F(BrandFolder, FallsBackToTheMark) {
    EXPECT_TRUE(assets.markImage().isNull());
    EXPECT_TRUE(assets.panelIcon().isNull());
    bring(u"BrandMark.png"_s);
    EXPECT_FALSE(assets.markImage().isNull());
    const QImage mark = assets.panelIcon().pixmap(QSize(48, 48), 1.0).toImage();
    // The mark's own tile, which the drawing for panels has not.
    EXPECT_EQ(mark.pixelColor(24, 4).alpha(), 255);
}

TEST_F(BrandFolder, FallsBackToTheCard) {
    bring(u"Symbols/creditcard.fill.svg"_s);
    const QImage card = assets.panelIcon().pixmap(QSize(48, 48), 1.0).toImage();
    ASSERT_EQ(card.size(), QSize(48, 48));
    EXPECT_EQ(card.pixelColor(24, 34), QColor(0x8A, 0x8A, 0x8A));
}

TEST_F(BrandFolder, PassesOverWhatIsNoPicture) {
    for (const QString &name : {u"BrandMark.png"_s, u"Brand/PanelMark.svg"_s}) {
        ASSERT_TRUE(QDir(folder.path()).mkpath(QFileInfo(name).path()));
        QFile broken(folder.filePath(name));
        ASSERT_TRUE(broken.open(QFile::WriteOnly));
        broken.write("no picture");
    }
    EXPECT_TRUE(assets.markImage().isNull());
    bring(u"Symbols/creditcard.fill.svg"_s);
    EXPECT_FALSE(assets.panelIcon().isNull());
}

} // namespace tovarin
