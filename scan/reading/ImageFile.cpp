// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/reading/ImageFile.h"

#include "scan/reading/FlattenedImage.h"
#include "scan/reading/PixelBudget.h"

#include <QBuffer>
#include <QImageReader>
#include <QPixelFormat>

#include <algorithm>

namespace tovarin {

namespace {

// In MiB. Later versions of Qt have this limit by themselves; 6.4 stops at half of it, which is
// less than a screenshot of a long page may need.
constexpr int decodingLimit = 256;

int bytesPerPixel(QImage::Format format) {
    constexpr int least = 4;
    return format == QImage::Format_Invalid
               ? least
               : std::max(least, QImage::toPixelFormat(format).bitsPerPixel() / 8);
}

} // namespace

QImage imageFromFile(const QByteArray &bytes) {
    QImageReader::setAllocationLimit(decodingLimit);
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer);
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (!size.isEmpty()) {
        const QSize fitted = withinBudget(size, bytesPerPixel(reader.imageFormat()));
        if (fitted != size)
            reader.setScaledSize(fitted);
    }
    QImage image = reader.read();
    return image.isNull() ? image : flattenedOnWhite(std::move(image));
}

} // namespace tovarin
