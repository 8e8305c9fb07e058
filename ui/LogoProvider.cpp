// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/LogoProvider.h"

#include "ui/RoundedImage.h"

#include <algorithm>

namespace tovarin {

QImage LogoProvider::requestImage(const QString &id, QSize *size, const QSize &wanted) {
    const qsizetype slash = id.lastIndexOf(u'/');
    const QImage logo = m_logos.image(id.first(std::max<qsizetype>(slash, 0)));
    if (logo.isNull())
        return {};
    const QImage image = roundedImage(logo, wanted, id.sliced(slash + 1).toDouble());
    if (size)
        *size = image.size();
    return image;
}

} // namespace tovarin
