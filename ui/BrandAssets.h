// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Bundle.h"

#include <QIcon>
#include <QImage>

namespace tovarin {

/// The pictures that stand for the program itself. For the main thread.
class BrandAssets {
public:
    explicit BrandAssets(Bundle bundle) : m_bundle(std::move(bundle)) {}

    /// The program's mark, "BrandMark.png" of the resources, in its own size in pixels; a null
    /// image when there is none that loads.
    QImage markImage() const;

    /// What stands for the program in a panel, where it is some 18 points high on a light or a dark
    /// ground: the mark in a bolder drawing, in the sizes that panels use. Without that drawing the
    /// mark itself; without the mark, the symbol "creditcard.fill".
    QIcon panelIcon() const;

private:
    Bundle m_bundle;
    mutable QImage m_mark; ///< Once it was asked for; it takes a while to decode.
};

} // namespace tovarin
