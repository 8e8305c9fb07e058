// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "model/BillingType.h"

#include "app/LocalizationManager.h"

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

QString rawValue(BillingType type) {
    return type == BillingType::recurring ? u"recurring"_s : u"oneTime"_s;
}

std::optional<BillingType> billingTypeOf(QStringView rawValue) {
    for (const BillingType type : allBillingTypes) {
        if (tovarin::rawValue(type) == rawValue)
            return type;
    }
    return std::nullopt;
}

QString label(BillingType type) {
    const bool isZh = LocalizationManager::shared().isZh();
    if (type == BillingType::recurring)
        return isZh ? u"订阅续费"_s : u"Subscription"_s;
    return isZh ? u"单次买断"_s : u"One-time"_s;
}

} // namespace tovarin
