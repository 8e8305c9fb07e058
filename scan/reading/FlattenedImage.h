// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QImage>

namespace tovarin {

/// The image on white ground, in the format BGR888, which is what recognition takes.
QImage flattenedOnWhite(QImage image);

} // namespace tovarin
