// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/MarkProvider.h"

#include "ui/RoundedImage.h"

namespace tovarin {

QImage MarkProvider::requestImage(const QString &id, QSize *size, const QSize &wanted) {
    if (m_mark.isNull())
        return {};
    const QImage image = roundedImage(m_mark, wanted, id.toDouble());
    if (size)
        *size = image.size();
    return image;
}

} // namespace tovarin
