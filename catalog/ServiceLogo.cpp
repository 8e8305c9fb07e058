// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "catalog/ServiceLogo.h"

#include "catalog/ServiceCatalog.h"

#include <QImageReader>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

/// A picture of more pixels is no logo, whatever its file says.
constexpr qint64 mostPixels = 4096 * 4096;

/// Whether the file is what its name says, as nearly all are. Told so, Qt does not load a plugin
/// for each format there is, just to ask it.
bool holdsPng(const QString &path) {
    QImageReader reader(path, "png"_ba);
    reader.setAutoDetectImageFormat(false);
    return reader.canRead();
}

QImage loaded(const QString &path) {
    if (path.isEmpty())
        return {};
    const bool isPng = holdsPng(path);
    QImageReader reader(path, isPng ? "png"_ba : QByteArray());
    reader.setAutoDetectImageFormat(!isPng);
    const QSize size = reader.size();
    if (qint64(size.width()) * size.height() > mostPixels)
        return {};
    const QImage image = reader.read();
    const QSize most(ServiceLogo::largestSide, ServiceLogo::largestSide);
    return image.width() <= most.width() && image.height() <= most.height()
               ? image
               : image.scaled(most, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

} // namespace

QImage ServiceLogo::image(const QString &presetID) const {
    const auto found = m_images.constFind(presetID);
    if (found != m_images.cend())
        return *found;
    QImage image = loaded(m_bundle.path(presetID, u"png"_s, u"ServiceLogos"_s));
    if (image.isNull())
        image = loaded(m_bundle.path(presetID, u"png"_s));
    return *m_images.insert(presetID, image);
}

QString ServiceLogo::presetID(const Subscription &subscription) const {
    const ServicePreset *const preset = ServiceCatalog::preset(subscription);
    return preset && !image(preset->id).isNull() ? preset->id : QString();
}

} // namespace tovarin
