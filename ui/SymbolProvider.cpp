// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/SymbolProvider.h"

#include <QColor>
#include <QPainter>
#include <QSvgRenderer>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

constexpr int mostPixels = 1024;

QImage drawn(QSvgRenderer &svg, QSize size, QColor colour) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    svg.setAspectRatioMode(Qt::KeepAspectRatio);
    svg.render(&painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), colour);
    return image;
}

} // namespace

QImage SymbolProvider::requestImage(const QString &id, QSize *size, const QSize &wanted) {
    const qsizetype slash = id.lastIndexOf(u'/');
    const QColor colour(u'#' + id.sliced(slash + 1));
    const QString path =
        m_bundle.path(id.first(std::max<qsizetype>(slash, 0)), u"svg"_s, u"Symbols"_s);
    if (path.isEmpty() || !colour.isValid())
        return {};
    QSvgRenderer svg(path);
    if (!svg.isValid())
        return {};
    const QSize fitted =
        wanted.isEmpty() ? svg.defaultSize() : wanted.boundedTo({mostPixels, mostPixels});
    const QImage image = drawn(svg, fitted, colour);
    if (size)
        *size = image.size();
    return image;
}

} // namespace tovarin
