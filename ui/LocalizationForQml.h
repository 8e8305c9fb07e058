// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "app/LocalizationManager.h"

#include <QQmlEngine>
#include <QtQml/qqmlregistration.h>

namespace tovarin {

/// The one LocalizationManager, under its own name in QML. A binding that reads
/// LocalizationManager.isZh follows a change of the language by itself.
struct LocalizationForQml {
    Q_GADGET
    QML_FOREIGN(tovarin::LocalizationManager)
    QML_NAMED_ELEMENT(LocalizationManager)
    QML_SINGLETON

public:
    static LocalizationManager *create(QQmlEngine *, QJSEngine *) {
        LocalizationManager *const manager = &LocalizationManager::shared();
        QJSEngine::setObjectOwnership(manager, QJSEngine::CppOwnership);
        return manager;
    }
};

} // namespace tovarin
