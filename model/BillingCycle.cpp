// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "model/BillingCycle.h"

#include "app/LocalizationManager.h"

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

QString rawValue(BillingCycle cycle) {
    switch (cycle) {
    case BillingCycle::weekly:
        return u"weekly"_s;
    case BillingCycle::monthly:
        return u"monthly"_s;
    case BillingCycle::quarterly:
        return u"quarterly"_s;
    case BillingCycle::yearly:
        break;
    }
    return u"yearly"_s;
}

std::optional<BillingCycle> billingCycleOf(QStringView rawValue) {
    for (const BillingCycle cycle : allBillingCycles) {
        if (tovarin::rawValue(cycle) == rawValue)
            return cycle;
    }
    return std::nullopt;
}

QString label(BillingCycle cycle) {
    const bool isZh = LocalizationManager::shared().isZh();
    switch (cycle) {
    case BillingCycle::weekly:
        return isZh ? u"每周"_s : u"Weekly"_s;
    case BillingCycle::monthly:
        return isZh ? u"每月"_s : u"Monthly"_s;
    case BillingCycle::quarterly:
        return isZh ? u"每季"_s : u"Quarterly"_s;
    case BillingCycle::yearly:
        break;
    }
    return isZh ? u"每年"_s : u"Yearly"_s;
}

} // namespace tovarin
