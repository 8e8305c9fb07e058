// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

class QQmlEngine;

namespace tovarin {

class Bundle;
class BrandAssets;
class ServiceLogo;

/// Gives the engine what the screens draw: symbols, logos and the mark. `logos` must outlive it.
void addImageProviders(QQmlEngine &engine, const Bundle &bundle, const BrandAssets &brand,
                       const ServiceLogo &logos);

} // namespace tovarin
