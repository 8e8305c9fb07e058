// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/LogoProvider.h"

#include <QPainter>

#include <algorithm>

namespace tovarin {

namespace {

constexpr QSize mostPixels(1024, 1024);

QImage fitted(const QImage &logo, QSize size) {
    const QImage scaled = logo.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QImage canvas(size, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    QRect place = scaled.rect();
    place.moveCenter(canvas.rect().center());
    painter.drawImage(place, scaled);
    return canvas;
}

QImage rounded(const QImage &picture, double radius) {
    QImage canvas(picture.size(), QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(picture);
    painter.drawRoundedRect(canvas.rect(), radius, radius);
    return canvas;
}

} // namespace

QImage LogoProvider::requestImage(const QString &id, QSize *size, const QSize &wanted) {
    const qsizetype slash = id.lastIndexOf(u'/');
    const QImage logo = m_logos.image(id.first(std::max<qsizetype>(slash, 0)));
    if (logo.isNull())
        return {};
    const QSize side = wanted.isEmpty() ? logo.size() : wanted.boundedTo(mostPixels);
    const double radius = id.sliced(slash + 1).toDouble() / 100 * side.width();
    const QImage image = rounded(fitted(logo, side), radius);
    if (size)
        *size = image.size();
    return image;
}

} // namespace tovarin
