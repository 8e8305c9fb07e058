// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/reading/ImageFile.h"

#include "scan/reading/PixelBudget.h"
#include "tests/scan/reading/Colours.h"
#include "tests/support/Printing.h"

#include <QBuffer>
#include <QFile>

#include <gtest/gtest.h>

#include <array>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

QByteArray encoded(const QImage &image, const char *format) {
    QByteArray bytes;
    QBuffer buffer(&bytes);
    EXPECT_TRUE(buffer.open(QBuffer::WriteOnly));
    EXPECT_TRUE(image.save(&buffer, format, 100)) << format;
    return bytes;
}

QByteArray sample(const char *name) {
    QFile file(QString::fromUtf8(TEST_DATA "/images/") + QString::fromLatin1(name));
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << name;
    return file.readAll();
}

/// 32×16, the left half of ink, the right half of `ground`.
QImage halfInked(QImage::Format format, QColor ground = Qt::white) {
    QImage image(32, 16, format);
    image.fill(ground);
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 16; ++x)
            image.setPixelColor(x, y, QColor(ink));
    }
    return image;
}

void expectHalfInked(const QImage &image) {
    ASSERT_EQ(image.format(), QImage::Format_BGR888);
    const int width = image.width();
    for (int y = 0; y < image.height(); ++y) {
        EXPECT_TRUE(isNearly(ink, image.pixel(0, y)));
        EXPECT_TRUE(isNearly(ink, image.pixel(width * 3 / 8, y)));
        EXPECT_TRUE(isNearly(paper, image.pixel(width * 5 / 8, y)));
        EXPECT_TRUE(isNearly(paper, image.pixel(width - 1, y)));
    }
}

class ImageFormatTest : public testing::TestWithParam<const char *> {};

/// A JPEG file that says how the camera was held (EXIF orientation 1 to 8).
QByteArray turnedJpeg(const QImage &image, char orientation) {
    const QByteArray tiff = "MM\0\x2a\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0"_ba +
                            QByteArray(1, orientation) + "\0\0\0\0\0\0"_ba;
    const QByteArray exif = "Exif\0\0"_ba + tiff;
    QByteArray jpeg = encoded(image, "jpeg");
    return jpeg.insert(2,
                       "\xff\xe1\0"_ba + QByteArray(1, static_cast<char>(exif.size() + 2)) + exif);
}

} // namespace

TEST_P(ImageFormatTest, IsReadByItsContent) {
    const QImage image = imageFromFile(encoded(halfInked(QImage::Format_RGB32), GetParam()));
    EXPECT_EQ(image.size(), QSize(32, 16));
    expectHalfInked(image);
}

INSTANTIATE_TEST_SUITE_P(Formats, ImageFormatTest,
                         testing::Values("png", "jpeg", "tiff", "webp", "bmp", "ppm", "ico"));

TEST(ImageFileTest, ReadsWhatQtCannotWrite) {
    for (const char *name : {"two-pictures.gif", "two-pictures.tiff", "transparent.gif"}) {
        SCOPED_TRACE(name);
        const QImage image = imageFromFile(sample(name));
        EXPECT_EQ(image.size(), QSize(4, 2));
        expectHalfInked(image);
    }
    for (const char *name : {"cmyk.jpg", "interlaced.png"}) {
        SCOPED_TRACE(name);
        const QImage image = imageFromFile(sample(name));
        ASSERT_EQ(image.size(), QSize(8, 8));
        EXPECT_TRUE(isNearly(ink, image.pixel(0, 0)));
        EXPECT_TRUE(isNearly(ink, image.pixel(7, 7)));
    }
}

TEST(ImageFileTest, ReadsADrawingWithTextInIt) {
    const QImage image = imageFromFile(
        "<svg xmlns='http://www.w3.org/2000/svg' width='40' height='20'>"
        "<rect width='20' height='20' fill='#c82828'/><text x='22' y='30'>¥1</text></svg>"_ba);
    EXPECT_EQ(image.size(), QSize(40, 20));
    expectHalfInked(image);
}

TEST(ImageFileTest, ConvertsEveryKindOfPixels) {
    for (const QImage::Format format :
         {QImage::Format_RGB888, QImage::Format_RGBX64, QImage::Format_RGBA64,
          QImage::Format_ARGB32_Premultiplied, QImage::Format_RGB16})
        expectHalfInked(imageFromFile(encoded(halfInked(format), "png")));

    QImage palette(32, 16, QImage::Format_Indexed8);
    palette.setColorTable({ink, qRgba(0, 0, 0, 0)});
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 32; ++x)
            palette.setPixel(x, y, x < 16 ? 0 : 1);
    }
    expectHalfInked(imageFromFile(encoded(palette, "png")));
}

TEST(ImageFileTest, KeepsTheShadesOfGrey) {
    for (const QImage::Format format : {QImage::Format_Grayscale8, QImage::Format_Grayscale16}) {
        QImage grey(2, 1, format);
        grey.setPixelColor(0, 0, QColor(100, 100, 100));
        grey.setPixelColor(1, 0, Qt::white);
        const QImage image = imageFromFile(encoded(grey, "png"));
        EXPECT_EQ(image.format(), QImage::Format_BGR888);
        EXPECT_EQ(image.pixel(0, 0), qRgb(100, 100, 100));
        EXPECT_EQ(image.pixel(1, 0), paper);
    }
    QImage bits(2, 1, QImage::Format_Mono);
    bits.setColorTable({qRgb(0, 0, 0), paper});
    bits.setPixel(0, 0, 0);
    bits.setPixel(1, 0, 1);
    const QImage image = imageFromFile(encoded(bits, "png"));
    EXPECT_EQ(image.pixel(0, 0), qRgb(0, 0, 0));
    EXPECT_EQ(image.pixel(1, 0), paper);
}

TEST(ImageFileTest, LaysTransparentPixelsOnWhite) {
    QImage glass(4, 1, QImage::Format_ARGB32);
    glass.setPixel(0, 0, qRgba(0, 0, 0, 0));
    glass.setPixel(1, 0, qRgba(0, 0, 0, 51));
    glass.setPixel(2, 0, qRgba(200, 40, 40, 128));
    glass.setPixel(3, 0, qRgba(200, 40, 40, 255));
    const QImage image = imageFromFile(encoded(glass, "png"));
    EXPECT_EQ(image.pixel(0, 0), paper);
    EXPECT_EQ(image.pixel(1, 0), qRgb(204, 204, 204));
    EXPECT_EQ(image.pixel(2, 0), qRgb(227, 147, 147));
    EXPECT_EQ(image.pixel(3, 0), ink);
}

TEST(ImageFileTest, TurnsAPhotographAsItsCameraWasHeld) {
    // Where the upper left corner of the stored pixels belongs, as row and column.
    constexpr std::array<std::pair<int, int>, 8> corners = {
        {{0, 0}, {0, 1}, {1, 1}, {1, 0}, {0, 0}, {0, 1}, {1, 1}, {1, 0}}};
    QImage photo(32, 16, QImage::Format_RGB32);
    photo.fill(paper);
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 8; ++x)
            photo.setPixel(x, y, ink);
    }
    for (char orientation = 1; orientation <= 8; ++orientation) {
        SCOPED_TRACE(int(orientation));
        const QImage image = imageFromFile(turnedJpeg(photo, orientation));
        ASSERT_EQ(image.size(), orientation < 5 ? QSize(32, 16) : QSize(16, 32));
        const auto [row, column] = corners.at(static_cast<std::size_t>(orientation - 1));
        for (int y = 0; y < 2; ++y) {
            for (int x = 0; x < 2; ++x) {
                const QRgb expected = y == row && x == column ? ink : paper;
                EXPECT_TRUE(isNearly(expected, image.pixel(x == 0 ? 2 : image.width() - 3,
                                                           y == 0 ? 2 : image.height() - 3)));
            }
        }
    }
}

TEST(ImageFileTest, MakesAVeryLargePictureSmaller) {
    QImage large(8000, 4000, QImage::Format_Grayscale8);
    large.fill(Qt::white);
    for (const char *format : {"jpeg", "png", "tiff"}) {
        SCOPED_TRACE(format);
        const QImage image = imageFromFile(encoded(large, format));
        EXPECT_EQ(image.size(), withinBudget(large.size()));
        EXPECT_LT(image.width(), 8000);
        EXPECT_EQ(image.pixel(0, 0), paper);
    }
}

TEST(ImageFileTest, LeavesAPictureWithinTheBudgetAsItIs) {
    QImage image(4032, 3024, QImage::Format_Grayscale8);
    image.fill(Qt::white);
    EXPECT_EQ(imageFromFile(encoded(image, "jpeg")).size(), image.size());
}

TEST(ImageFileTest, DecodesUpTo256MiB) {
    constexpr int width = 8192;
    for (const int height : {8192, 8193}) {
        QImage large(width, height, QImage::Format_RGB888);
        large.fill(Qt::white);
        EXPECT_EQ(imageFromFile(encoded(large, "ppm")).isNull(), height > 8192);
    }
}

TEST(ImageFileTest, IsNullForAnythingElse) {
    const QByteArray png = encoded(halfInked(QImage::Format_RGB32), "png");
    for (const QByteArray &bytes :
         {""_ba, "x"_ba, "%PDF-1.4"_ba, "GIF89a"_ba, png.first(8), png.first(png.size() / 2)})
        EXPECT_TRUE(imageFromFile(bytes).isNull()) << bytes.left(8).constData();
}

TEST(PixelBudgetTest, KeepsWhatFits) {
    EXPECT_EQ(withinBudget({1190.4, 1683.6}), QSize(1190, 1684));
    EXPECT_EQ(withinBudget({3500, 3500}), QSize(3500, 3500));
    EXPECT_EQ(withinBudget({0.2, 0.2}), QSize(1, 1));
}

TEST(PixelBudgetTest, ShrinksTheRestInProportion) {
    EXPECT_EQ(withinBudget({14000, 3500}), QSize(7000, 1750));
    EXPECT_EQ(withinBudget({4000, 4000}, 8), QSize(2474, 2474));
    EXPECT_EQ(withinBudget({64000, 100}), QSize(32000, 50));
    EXPECT_EQ(withinBudget({1, 1e6}), QSize(1, 32000));
    EXPECT_EQ(withinBudget({28000, 28000}), QSize(3500, 3500));
}

} // namespace tovarin
