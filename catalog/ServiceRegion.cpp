// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "catalog/ServiceRegion.h"

#include "app/LocalizationManager.h"

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

QString rawValue(ServiceRegion region) {
    return region == ServiceRegion::china ? u"china"_s : u"global"_s;
}

QString label(ServiceRegion region) {
    const bool isZh = LocalizationManager::shared().isZh();
    if (region == ServiceRegion::china)
        return isZh ? u"国内常用"_s : u"China"_s;
    return isZh ? u"国际常用"_s : u"Global"_s;
}

} // namespace tovarin
