// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scanner/TextModels.h"

#include <QDir>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

QString textModelsFolder(const QString &programFolder) {
    // From bin/, and from libexec/tovarin/.
    for (const QString &prefix : {u"/.."_s, u"/../.."_s}) {
        const QString installed =
            QDir::cleanPath(programFolder + prefix + u"/share/tovarin/TextModels"_s);
        if (QDir(installed).exists())
            return installed;
    }
    return QString::fromUtf8(TOVARIN_SOURCE_RESOURCES) + u"/TextModels"_s;
}

} // namespace tovarin
