// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Bundle.h"

#include <QQuickImageProvider>

namespace tovarin {

/// Draws the symbols of the resources for QML, in one colour: "image://symbol/<name>/<colour>", the
/// colour as "#aarrggbb" without its "#". An unknown symbol is a null image, which QML complains
/// of.
class SymbolProvider final : public QQuickImageProvider {
public:
    explicit SymbolProvider(Bundle bundle)
        : QQuickImageProvider(Image), m_bundle(std::move(bundle)) {}

    /// `wanted` is in pixels; the symbol keeps its shape in the middle. 56 by 56 when it is not
    /// given.
    QImage requestImage(const QString &id, QSize *size, const QSize &wanted) override;

private:
    Bundle m_bundle;
};

} // namespace tovarin
