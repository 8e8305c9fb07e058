// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "catalog/ServiceLogo.h"

#include "catalog/ServiceCatalog.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

class ServiceLogoTest : public testing::Test {
protected:
    ServiceLogoTest() { QDir(folder.path()).mkdir(u"ServiceLogos"_s); }

    /// Puts a picture of one colour among the resources.
    void put(const QString &name, const QColor &colour, QSize size = {8, 8},
             const char *format = "png") const {
        QImage image(size, QImage::Format_RGB32);
        image.fill(colour);
        ASSERT_TRUE(image.save(folder.filePath(name), format));
    }

    void putBytes(const QString &name, const QByteArray &bytes) const {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QByteArray bytesOf(const QString &name) const {
        QFile file(folder.filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QColor colourOf(const QString &id) const { return logos.image(id).pixelColor(0, 0); }

    QTemporaryDir folder;
    ServiceLogo logos{Bundle(folder.path())};
};

Subscription named(const QString &name) {
    return sampleSubscription(name);
}

} // namespace

TEST_F(ServiceLogoTest, IsTheImageNamedAfterThePreset) {
    put(u"ServiceLogos/netflix.png"_s, Qt::red);
    EXPECT_EQ(colourOf(u"netflix"_s), QColor(Qt::red));
    EXPECT_TRUE(logos.image(u"Netflix"_s).isNull());
    EXPECT_TRUE(logos.image(u"netfli"_s).isNull());
    EXPECT_TRUE(logos.image({}).isNull());
}

TEST_F(ServiceLogoTest, IsLookedForAtTheTopAsWell) {
    put(u"netflix.png"_s, Qt::blue);
    put(u"max.png"_s, Qt::blue);
    put(u"ServiceLogos/max.png"_s, Qt::red);
    putBytes(u"ServiceLogos/figma.png"_s, "no picture");
    put(u"figma.png"_s, Qt::green);
    EXPECT_EQ(colourOf(u"netflix"_s), QColor(Qt::blue));
    EXPECT_EQ(colourOf(u"max"_s), QColor(Qt::red));
    EXPECT_EQ(colourOf(u"figma"_s), QColor(Qt::green));
}

TEST_F(ServiceLogoTest, NeedsTheExtensionPng) {
    put(u"ServiceLogos/netflix.jpg"_s, Qt::red, {8, 8}, "jpg");
    put(u"ServiceLogos/max"_s, Qt::red);
    EXPECT_TRUE(logos.image(u"netflix"_s).isNull());
    EXPECT_TRUE(logos.image(u"max"_s).isNull());
}

TEST_F(ServiceLogoTest, MayBeOfAnotherFormatThanItsNameSays) {
    put(u"ServiceLogos/netflix.png"_s, Qt::white, {8, 8}, "jpg");
    EXPECT_EQ(colourOf(u"netflix"_s), QColor(Qt::white));
}

TEST_F(ServiceLogoTest, IsMissingWhenItDoesNotLoad) {
    put(u"whole.png"_s, Qt::red, {64, 64});
    const QByteArray whole = bytesOf(u"whole.png"_s);
    putBytes(u"ServiceLogos/empty.png"_s, {});
    putBytes(u"ServiceLogos/text.png"_s, "not a picture at all");
    putBytes(u"ServiceLogos/cut.png"_s, whole.first(40));
    QDir(folder.path()).mkdir(u"ServiceLogos/folder.png"_s);
    for (const QString &id : {u"empty"_s, u"text"_s, u"cut"_s, u"folder"_s, u"../whole"_s})
        EXPECT_TRUE(logos.image(id).isNull()) << id.toStdString();
}

TEST_F(ServiceLogoTest, IsMadeSmallerInItsShape) {
    put(u"ServiceLogos/wide.png"_s, Qt::red, {1024, 256});
    put(u"ServiceLogos/small.png"_s, Qt::red, {256, 20});
    EXPECT_EQ(logos.image(u"wide"_s).size(), QSize(256, 64));
    EXPECT_EQ(logos.image(u"small"_s).size(), QSize(256, 20));
}

TEST_F(ServiceLogoTest, OfTooManyPixelsIsMissing) {
    put(u"ServiceLogos/most.png"_s, Qt::red, {4096, 4096});
    put(u"ServiceLogos/huge.png"_s, Qt::red, {4097, 4096});
    EXPECT_EQ(logos.image(u"most"_s).size(), QSize(256, 256));
    EXPECT_TRUE(logos.image(u"huge"_s).isNull());
}

TEST_F(ServiceLogoTest, IsLoadedOnce) {
    put(u"ServiceLogos/netflix.png"_s, Qt::red);
    const QImage first = logos.image(u"netflix"_s);
    EXPECT_TRUE(logos.image(u"max"_s).isNull());
    put(u"ServiceLogos/netflix.png"_s, Qt::blue);
    put(u"ServiceLogos/max.png"_s, Qt::blue);
    EXPECT_EQ(logos.image(u"netflix"_s).cacheKey(), first.cacheKey());
    EXPECT_TRUE(logos.image(u"max"_s).isNull());
}

TEST_F(ServiceLogoTest, BelongsToASubscriptionByIdOrName) {
    put(u"ServiceLogos/netflix.png"_s, Qt::red);
    EXPECT_EQ(logos.presetID(named(u"netflix premium"_s)), u"netflix"_s);
    EXPECT_EQ(logos.presetID(named(u"  zoom"_s)), QString());
    EXPECT_EQ(logos.presetID(named({})), QString());
    // Known to the catalog, but without a logo here.
    EXPECT_EQ(logos.presetID(named(u"Spotify"_s)), QString());
    Subscription sub = named(u"Evenings"_s);
    sub.serviceID = u"netflix"_s;
    EXPECT_EQ(logos.presetID(sub), u"netflix"_s);
    sub.serviceID = u"spotify"_s;
    EXPECT_EQ(logos.presetID(sub), QString());
}

TEST_F(ServiceLogoTest, ComesWithTheProgramForMostPresets) {
    const ServiceLogo own{Bundle(QStringLiteral(RESOURCES))};
    const QStringList files =
        QDir(QStringLiteral(RESOURCES "/ServiceLogos")).entryList({u"*.png"_s}, QDir::Files);
    QStringList expected;
    for (const ServicePreset &preset : ServiceCatalog::china() + ServiceCatalog::global()) {
        const QImage image = own.image(preset.id);
        if (image.isNull())
            continue;
        expected.append(preset.id + u".png"_s);
        EXPECT_EQ(image.size(), QSize(192, 192)) << preset.id.toStdString();
    }
    expected.sort();
    EXPECT_EQ(files, expected);
    EXPECT_EQ(files.size(), 32);
}

} // namespace tovarin
