// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>
#include <QSizeF>

namespace tovarin {

/// The most bytes that one bitmap takes: 16 million pixels of four bytes. An A4 page at 400 dots an
/// inch fits, and so does a screenshot six screens long; with the copies that recognition makes,
/// the process keeps below 400 MiB.
constexpr double bitmapBudget = 16e6 * 4;

/// `wanted`, or the largest size of the same shape that the budget holds at so many bytes a pixel.
/// No side is longer than 32,000 pixels, where OpenCV's coordinates end, or shorter than 1.
QSize withinBudget(QSizeF wanted, int bytesPerPixel = 4);

} // namespace tovarin
