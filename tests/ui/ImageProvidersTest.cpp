// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "catalog/ServiceCatalog.h"
#include "tests/support/Printing.h"
#include "ui/LogoProvider.h"
#include "ui/SymbolProvider.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

const Bundle bundle(u":/resources"_s);

/// The share of the picture that is covered, from 0 to 1.
double coverage(const QImage &image) {
    double sum = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            sum += image.pixelColor(x, y).alphaF();
    }
    return sum / (image.width() * image.height());
}

} // namespace

TEST(SymbolProviderTest, DrawsASymbolInOneColour) {
    SymbolProvider symbols(bundle);
    QSize size;
    const QImage image = symbols.requestImage(u"plus/ff336699"_s, &size, {80, 80});
    EXPECT_EQ(size, QSize(80, 80));
    EXPECT_EQ(image.size(), size);
    EXPECT_EQ(image.pixelColor(40, 40), QColor(0x33, 0x66, 0x99));
    EXPECT_EQ(image.pixelColor(2, 2).alpha(), 0);
    EXPECT_EQ(
        symbols.requestImage(u"plus/80336699"_s, nullptr, {80, 80}).pixelColor(40, 40).alpha(),
        0x80);
}

TEST(SymbolProviderTest, KeepsTheShapeOfASymbolInAnySize) {
    SymbolProvider symbols(bundle);
    EXPECT_EQ(symbols.requestImage(u"plus/ff000000"_s, nullptr, {}).size(), QSize(56, 56));
    const QImage wide = symbols.requestImage(u"plus/ff000000"_s, nullptr, {120, 40});
    EXPECT_EQ(wide.size(), QSize(120, 40));
    EXPECT_EQ(wide.pixelColor(60, 20).alpha(), 255);
    EXPECT_EQ(wide.pixelColor(20, 20).alpha(), 0);
    EXPECT_LE(symbols.requestImage(u"plus/ff000000"_s, nullptr, {100'000, 100'000}).width(), 1024);
}

TEST(SymbolProviderTest, HasNoOthers) {
    SymbolProvider symbols(bundle);
    for (const QString &id : {u"no.such.symbol/ff000000"_s, u"plus"_s, u"plus/"_s, u"plus/red?"_s,
                              u"/ff000000"_s, u""_s, u"../Symbols/plus/ff000000"_s})
        EXPECT_TRUE(symbols.requestImage(id, nullptr, {20, 20}).isNull()) << id.toStdString();
}

TEST(SymbolProviderTest, HasEverySymbolOfTheCatalogAndOfTheScreens) {
    SymbolProvider symbols(bundle);
    QStringList names = {
        u"arrow.right"_s,     u"calendar"_s,        u"checkmark"_s,    u"checkmark.circle.fill"_s,
        u"chevron.left"_s,    u"chevron.right"_s,   u"chevron.down"_s, u"doc.on.doc"_s,
        u"creditcard.fill"_s, u"gearshape.fill"_s,  u"macwindow"_s,    u"pause"_s,
        u"minus.circle"_s,    u"pencil"_s,          u"play"_s,         u"plus"_s,
        u"square.grid.2x2"_s, u"text.viewfinder"_s, u"trash"_s,        u"xmark"_s};
    for (const ServicePreset &preset : ServiceCatalog::china() + ServiceCatalog::global())
        names.append(preset.icon);
    for (const QString &name : names) {
        const double covered =
            coverage(symbols.requestImage(name + u"/ffffffff"_s, nullptr, {56, 56}));
        EXPECT_GT(covered, 0.02) << name.toStdString();
        EXPECT_LT(covered, 0.8) << name.toStdString();
    }
}

TEST(LogoProviderTest, RoundsTheCornersOfALogo) {
    const ServiceLogo logos(bundle);
    LogoProvider provider(logos);
    QSize size;
    const QImage image = provider.requestImage(u"youtube/25"_s, &size, {80, 80});
    EXPECT_EQ(size, QSize(80, 80));
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(image.pixelColor(40, 2), QColor(Qt::white));
    EXPECT_EQ(provider.requestImage(u"youtube/0"_s, nullptr, {80, 80}).pixelColor(0, 0),
              QColor(Qt::white));
    EXPECT_EQ(provider.requestImage(u"youtube/25"_s, nullptr, {}).size(), QSize(192, 192));
    EXPECT_EQ(provider.requestImage(u"youtube/25"_s, nullptr, {100'000, 100'000}).size(),
              QSize(1024, 1024));
}

TEST(LogoProviderTest, FitsALogoThatIsNotSquare) {
    const QTemporaryDir folder;
    ASSERT_TRUE(QDir(folder.path()).mkdir(u"ServiceLogos"_s));
    QImage wide(100, 50, QImage::Format_RGB32);
    wide.fill(Qt::red);
    ASSERT_TRUE(wide.save(folder.filePath(u"ServiceLogos/max.png"_s)));
    const ServiceLogo logos{Bundle(folder.path())};
    LogoProvider provider(logos);
    const QImage image = provider.requestImage(u"max/10"_s, nullptr, {80, 80});
    EXPECT_EQ(image.size(), QSize(80, 80));
    EXPECT_EQ(image.pixelColor(40, 40), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(1, 40), QColor(Qt::red));
    EXPECT_EQ(image.pixelColor(40, 10).alpha(), 0);
}

TEST(LogoProviderTest, HasNoOthers) {
    const ServiceLogo logos(bundle);
    LogoProvider provider(logos);
    for (const QString &id : {u"iqiyi/10"_s, u"youtube"_s, u""_s, u"/10"_s})
        EXPECT_TRUE(provider.requestImage(id, nullptr, {20, 20}).isNull()) << id.toStdString();
}

} // namespace tovarin
