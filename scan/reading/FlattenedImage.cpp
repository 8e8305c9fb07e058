// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/reading/FlattenedImage.h"

namespace tovarin {

namespace {

QRgb onWhite(QRgb pixel) {
    const int alpha = qAlpha(pixel);
    const auto blend = [alpha](int channel) {
        return (channel * alpha + 255 * (255 - alpha)) / 255;
    };
    return qRgb(blend(qRed(pixel)), blend(qGreen(pixel)), blend(qBlue(pixel)));
}

} // namespace

QImage flattenedOnWhite(QImage image) {
    if (!image.hasAlphaChannel()) {
        image.convertTo(QImage::Format_BGR888);
        return image;
    }
    image.convertTo(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x)
            line[x] = onWhite(line[x]);
    }
    image.reinterpretAsFormat(QImage::Format_RGB32);
    image.convertTo(QImage::Format_BGR888);
    return image;
}

} // namespace tovarin
