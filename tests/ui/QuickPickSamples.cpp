// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/ui/QuickPickSamples.h"

#include "catalog/ServiceCatalog.h"

#include <algorithm>

namespace tovarin {

const ServicePreset &preset(const QString &id) {
    const ServicePreset *const found = ServiceCatalog::preset(id);
    if (!found)
        qFatal("there is no %s", qPrintable(id));
    return *found;
}

int cellOf(const QuickPickCells &cells, const QString &id) {
    const QList<QuickPickCells::Cell> &all = cells.cells();
    const auto found = std::ranges::find(all, id, &QuickPickCells::Cell::presetID);
    if (found == all.end())
        qFatal("%s is not shown", qPrintable(id));
    return static_cast<int>(found - all.begin());
}

QStringList namesOf(const QList<Subscription> &subscriptions) {
    QStringList names;
    for (const Subscription &sub : subscriptions)
        names.append(sub.name);
    return names;
}

} // namespace tovarin
