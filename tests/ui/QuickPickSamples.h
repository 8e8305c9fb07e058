// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "catalog/ServicePreset.h"
#include "model/Subscription.h"
#include "ui/QuickPickCells.h"

namespace tovarin {

/// A service of the catalog, by its id. Another id fails the test.
const ServicePreset &preset(const QString &id);

/// Where a service stands among the cells that are shown. One that is not there fails the test.
int cellOf(const QuickPickCells &cells, const QString &id);

QStringList namesOf(const QList<Subscription> &subscriptions);

} // namespace tovarin
