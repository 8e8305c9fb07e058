// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/BrandAssets.h"

#include "ui/SymbolProvider.h"

#include <QImageReader>
#include <QPainter>
#include <QSvgRenderer>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

/// In pixels: 16, 18, 22 and 24 points, plain and on screens that are twice as dense.
constexpr int panelSizes[] = {16, 18, 22, 24, 32, 36, 44, 48, 64};

/// Is seen on light and on dark panels.
const QString symbolColour = u"ff8a8a8a"_s;

QImage drawn(QSvgRenderer &svg, int size) {
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    svg.render(&painter);
    return image;
}

} // namespace

QImage BrandAssets::markImage() const {
    if (m_mark.isNull()) {
        if (const QString path = m_bundle.path(u"BrandMark"_s, u"png"_s); !path.isEmpty()) {
            // Told what it is, Qt does not load a plugin for each format there is, just to ask it.
            QImageReader reader(path, "png");
            reader.setAutoDetectImageFormat(false);
            m_mark = reader.read();
        }
    }
    return m_mark;
}

QIcon BrandAssets::panelIcon() const {
    QSvgRenderer panelMark;
    if (const QString path = m_bundle.path(u"PanelMark"_s, u"svg"_s, u"Brand"_s); !path.isEmpty())
        panelMark.load(path);
    const QImage mark = panelMark.isValid() ? QImage() : markImage();
    SymbolProvider symbols(m_bundle);
    QIcon icon;
    for (const int size : panelSizes) {
        const QImage image =
            panelMark.isValid() ? drawn(panelMark, size)
            : !mark.isNull()
                ? mark.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                : symbols.requestImage(u"creditcard.fill/"_s + symbolColour, nullptr, {size, size});
        if (!image.isNull())
            icon.addPixmap(QPixmap::fromImage(image));
    }
    return icon;
}

} // namespace tovarin
