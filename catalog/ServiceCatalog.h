// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "catalog/ServicePreset.h"
#include "catalog/ServiceRegion.h"

#include <QList>
#include <QString>

#include <optional>

/// The services that the program knows. The prices are those of the day the list was made and are
/// changed by hand.
namespace tovarin::ServiceCatalog {

/// Services common in China, and elsewhere, in the order in which they are offered. Built at the
/// first use and constant from then on.
const QList<ServicePreset> &china();
const QList<ServicePreset> &global();

const QList<ServicePreset> &presets(ServiceRegion region);

/// The preset with just this id, or null. It lives as long as the program.
const ServicePreset *preset(const std::optional<QString> &id);

/// The preset that a subscription belongs to, or null: the one of its `serviceID`, else the first
/// one, those of China first, whose Chinese or English name has the same key as the subscription's
/// name or begins alike (CatalogKey.h).
///
/// "Begins alike" is meant broadly: "Netflix Premium" is Netflix, "Maxwell" is Max, and a name of
/// one letter is the first service with that letter. An earlier preset that only begins alike comes
/// before a later one of the very name.
const ServicePreset *preset(const Subscription &subscription);

} // namespace tovarin::ServiceCatalog
