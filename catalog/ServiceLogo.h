// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Subscription.h"
#include "platform/Bundle.h"

#include <QHash>
#include <QImage>
#include <QString>

namespace tovarin {

/// The logos of services, as far as the program brings them. Not for several threads at once.
class ServiceLogo {
public:
    /// In pixels: more than any place that shows a logo has.
    static constexpr int largestSide = 256;

    explicit ServiceLogo(Bundle bundle) : m_bundle(std::move(bundle)) {}

    /// The image "ServiceLogos/<id>.png" of the resources, else "<id>.png" at their top, else a
    /// null image; one that does not load does not count. What is larger than `largestSide` is made
    /// smaller. Loaded once.
    QImage image(const QString &presetID) const;

    /// The id of the preset by whose logo a subscription is shown; empty for one that belongs to no
    /// preset, or to one without a logo.
    QString presetID(const Subscription &subscription) const;

private:
    Bundle m_bundle;
    mutable QHash<QString, QImage> m_images;
};

} // namespace tovarin
