// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "ui/BrandAssets.h"

#include <QQuickImageProvider>

namespace tovarin {

/// Hands the program's mark to QML: "image://mark/<radius>", the radius of the corners in
/// hundredths of the side.
class MarkProvider final : public QQuickImageProvider {
public:
    explicit MarkProvider(const BrandAssets &brand)
        : QQuickImageProvider(Image), m_mark(brand.markImage()) {}

    /// A picture of `wanted` pixels; as large as the mark when no size is given.
    QImage requestImage(const QString &id, QSize *size, const QSize &wanted) override;

private:
    QImage m_mark;
};

} // namespace tovarin
