// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/SignReader.h"

#include "tests/support/Printing.h"

#include <QFontMetrics>
#include <QPainter>

#include <gtest/gtest.h>

namespace tovarin {

using namespace Qt::Literals::StringLiterals;

namespace {

/// What is read of one character, cut out as it stands on its line.
QString read(const QString &character, QFont font, int size) {
    static SignReader reader;
    font.setPixelSize(size);
    const QFontMetrics metrics(font);
    const QRect ink = metrics.tightBoundingRect(character);
    QImage image(ink.width() + size / 5, metrics.height(), QImage::Format_BGR888);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(font);
    painter.drawText(size / 10 - ink.left(), metrics.ascent(), character);
    painter.end();
    return reader.read({image.height(), image.width(), CV_8UC3, image.bits(),
                        static_cast<std::size_t>(image.bytesPerLine())});
}

} // namespace

TEST(SignReaderTest, ReadsSignsThinAndBold) {
    for (const bool bold : {false, true}) {
        QFont font(u"DejaVu Sans"_s);
        font.setBold(bold);
        for (const int size : {15, 22, 36}) {
            for (const QString &sign : {u"€"_s, u"£"_s, u"¥"_s})
                EXPECT_EQ(read(sign, font, size), sign) << bold << ' ' << size;
        }
    }
}

TEST(SignReaderTest, KnowsTheDollar) {
    EXPECT_EQ(read(u"$"_s, QFont(u"DejaVu Sans"_s), 22), u"$"_s);
}

TEST(SignReaderTest, TakesNoLetterOrDigitForASign) {
    for (const bool bold : {false, true}) {
        QFont font(u"DejaVu Sans"_s);
        font.setBold(bold);
        for (const QString &other : {u"E"_s, u"F"_s, u"C"_s, u"L"_s, u"R"_s, u"1"_s, u"7"_s})
            EXPECT_EQ(read(other, font, 22), QString()) << other.toStdString();
    }
}

} // namespace tovarin
