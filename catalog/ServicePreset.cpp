// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "catalog/ServicePreset.h"

#include "app/LocalizationManager.h"

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

std::optional<ServiceTier> firstOf(const std::optional<QList<ServiceTier>> &tiers) {
    return tiers && !tiers->isEmpty() ? std::optional(tiers->first()) : std::nullopt;
}

} // namespace

Subscription ServicePreset::subscription(const std::optional<ServiceTier> &tier, bool isZh,
                                         const Clock &clock) const {
    const std::optional<ServiceTier> chosen = tier ? tier : firstOf(tiers);
    QString name = isZh ? nameZh : nameEn;
    if (chosen)
        name += u" · "_s + (isZh ? chosen->labelZh : chosen->labelEn);
    return {.id = QUuid::createUuid(),
            .name = name,
            .amount = chosen ? chosen->amount : amount,
            .currency = currency,
            .billingType = BillingType::recurring,
            .cycle = cycle,
            .startDate = clock.now(),
            .category = category,
            .notes = LocalizationManager::shared().isZh() ? u"快速添加"_s : u"Quick pick"_s,
            .isActive = true,
            .serviceID = id};
}

size_t qHash(const ServiceTier &tier, size_t seed) noexcept {
    return qHashMulti(seed, tier.id, tier.labelZh, tier.labelEn, tier.amount);
}

size_t qHash(const ServicePreset &preset, size_t seed) noexcept {
    const ServicePreset &p = preset;
    const size_t fields = qHashMulti(seed, p.id, p.nameZh, p.nameEn, p.icon, p.category, p.currency,
                                     p.amount, rawValue(p.cycle));
    return p.tiers ? qHashMulti(fields, 1, *p.tiers) : qHashMulti(fields, 0);
}

} // namespace tovarin
