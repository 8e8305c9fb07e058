// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/RoundedImage.h"

#include <QPainter>

namespace tovarin {

namespace {

constexpr QSize mostPixels(1024, 1024);

QImage fitted(const QImage &picture, QSize size) {
    const QImage scaled = picture.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QImage canvas(size, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    QRect place = scaled.rect();
    place.moveCenter(canvas.rect().center());
    painter.drawImage(place, scaled);
    return canvas;
}

} // namespace

QImage roundedImage(const QImage &picture, const QSize &size, double radius) {
    const QSize side = size.isEmpty() ? picture.size() : size.boundedTo(mostPixels);
    QImage canvas(side, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(fitted(picture, side));
    const double pixels = radius / 100 * side.width();
    painter.drawRoundedRect(canvas.rect(), pixels, pixels);
    return canvas;
}

} // namespace tovarin
