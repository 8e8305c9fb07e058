// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "catalog/ServiceLogo.h"

#include <QQuickImageProvider>

namespace tovarin {

/// Hands the logos of services to QML: "image://logo/<preset id>/<radius>", the radius of the
/// corners in hundredths of the side. The software scene graph cannot clip to round corners, so
/// they are cut here. Not for images that load asynchronously.
class LogoProvider final : public QQuickImageProvider {
public:
    /// `logos` must outlive the QML engine.
    explicit LogoProvider(const ServiceLogo &logos) : QQuickImageProvider(Image), m_logos(logos) {}

    /// A picture of `wanted` pixels with the logo scaled to fit in its middle; as large as the logo
    /// when no size is given.
    QImage requestImage(const QString &id, QSize *size, const QSize &wanted) override;

private:
    const ServiceLogo &m_logos;
};

} // namespace tovarin
