// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QImage>

namespace tovarin {

/// Decodes an image file of any format that Qt's plugins know, told by its content: the first
/// picture of those in it, turned as its camera says, on white ground, in the format BGR888. One
/// that is larger than the budget of PixelBudget.h is made smaller; JPEG files are so while they
/// are decoded, others after it. A null image when it cannot be decoded, or needs more than 256 MiB
/// for that.
QImage imageFromFile(const QByteArray &bytes);

} // namespace tovarin
