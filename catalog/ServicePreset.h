// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Subscription.h"

#include <QList>
#include <QString>

#include <optional>

namespace tovarin {

/// One price level of a service.
struct ServiceTier {
    QString id; ///< Unique within its preset: "plus", "50". "custom" is a plan whose price the user
                ///< types; its amount is 0.
    QString labelZh;
    QString labelEn;
    double amount = 0; ///< In the preset's currency, per the preset's cycle.

    bool operator==(const ServiceTier &) const = default;
};

/// One service of the catalog, with what it usually costs.
struct ServicePreset {
    QString id; ///< Unique in the whole catalog; a subscription keeps it as its `serviceID`.
    QString nameZh;
    QString nameEn;
    QString icon;      ///< The name of the symbol drawn where there is no logo.
    QString category;  ///< A key such as "影音"; Format::categoryDisplay gives its name.
    QString currency;  ///< "CNY" or "USD".
    double amount = 0; ///< Per cycle.
    BillingCycle cycle = BillingCycle::monthly;
    std::optional<QList<ServiceTier>> tiers; ///< Absent for a service with a single price.

    bool operator==(const ServicePreset &) const = default;

    /// A new subscription to this service that begins now, at `tier`, or at the first tier when
    /// none is given; named in Chinese if `isZh`. Its notes are in the program's own language.
    Subscription subscription(const std::optional<ServiceTier> &tier, bool isZh,
                              const Clock &clock) const;
};

size_t qHash(const ServiceTier &tier, size_t seed = 0) noexcept;
size_t qHash(const ServicePreset &preset, size_t seed = 0) noexcept;

} // namespace tovarin
