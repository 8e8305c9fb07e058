// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/ImageProviders.h"

#include "ui/BrandAssets.h"
#include "ui/LogoProvider.h"
#include "ui/MarkProvider.h"
#include "ui/SymbolProvider.h"

#include <QQmlEngine>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

void addImageProviders(QQmlEngine &engine, const Bundle &bundle, const BrandAssets &brand,
                       const ServiceLogo &logos) {
    // The engine deletes them.
    engine.addImageProvider(u"symbol"_s, new SymbolProvider(bundle));
    engine.addImageProvider(u"logo"_s, new LogoProvider(logos));
    engine.addImageProvider(u"mark"_s, new MarkProvider(brand));
}

} // namespace tovarin
