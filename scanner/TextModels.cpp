// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scanner/TextModels.h"

#include <QDir>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

QString textModelsFolder(const QString &programFolder) {
    // From bin/ or a folder of the build tree, and from libexec/tovarin/.
    for (const QString &prefix : {u"/.."_s, u"/../.."_s}) {
        const QString folder =
            QDir::cleanPath(programFolder + prefix + u"/share/tovarin/TextModels"_s);
        if (QDir(folder).exists())
            return folder;
    }
    return {};
}

} // namespace tovarin
