// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QImage>

#include <cstdlib>

namespace tovarin {

inline constexpr QRgb ink = qRgb(200, 40, 40);
inline constexpr QRgb paper = qRgb(255, 255, 255);

/// Whether a pixel has a colour, as nearly as JPEG and colour conversions keep it.
inline bool isNearly(QRgb colour, QRgb pixel) {
    constexpr int off = 12;
    return std::abs(qRed(colour) - qRed(pixel)) <= off &&
           std::abs(qGreen(colour) - qGreen(pixel)) <= off &&
           std::abs(qBlue(colour) - qBlue(pixel)) <= off;
}

} // namespace tovarin
