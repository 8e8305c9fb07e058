// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QSize>
#include <QSizeF>

namespace tovarin {

/// The most bytes that one bitmap takes: 12 and a quarter million pixels of four bytes. A4 at
/// 350 dots an inch fits, and so do a photograph of 12 megapixels and a screenshot of five screens'
/// length; with the copies that recognition makes, the process keeps below 400 MiB.
constexpr double bitmapBudget = 12.25e6 * 4;

/// `wanted`, or the largest size of the same shape that the budget holds at so many bytes a pixel.
/// No side is longer than 32,000 pixels, where OpenCV's coordinates end, or shorter than 1.
QSize withinBudget(QSizeF wanted, int bytesPerPixel = 4);

} // namespace tovarin
