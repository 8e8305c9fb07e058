// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>

namespace tovarin {

/// The picture of `size` pixels in whose middle `picture` stands, scaled to fit, with round
/// corners; their radius is in hundredths of the width. It is as large as `picture` when the size
/// is empty, and at most 1024 pixels wide and high.
QImage roundedImage(const QImage &picture, const QSize &size, double radius);

} // namespace tovarin
