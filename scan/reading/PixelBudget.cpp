// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/reading/PixelBudget.h"

#include <algorithm>
#include <cmath>

namespace tovarin {

namespace {

constexpr double longestSide = 32'000;

} // namespace

QSize withinBudget(QSizeF wanted, int bytesPerPixel) {
    const double bytes = wanted.width() * wanted.height() * bytesPerPixel;
    const double scale = std::min({1.0, std::sqrt(bitmapBudget / bytes),
                                   longestSide / std::max(wanted.width(), wanted.height())});
    return scale == 1.0 ? wanted.toSize().expandedTo({1, 1})
                        : QSize(static_cast<int>(wanted.width() * scale),
                                static_cast<int>(wanted.height() * scale))
                              .expandedTo({1, 1});
}

} // namespace tovarin
