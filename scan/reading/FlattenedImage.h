// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>

namespace tovarin {

/// The image on white ground, in the format RGB32. Works in place where nobody else holds the
/// pixels.
QImage flattenedOnWhite(QImage image);

} // namespace tovarin
