// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/ProgramFinder.h"

#include <QDir>
#include <QFileInfo>

namespace tovarin {

QString findProgram(const QString &name, const QString &askingFolder, const QStringList &folders) {
    for (const QString &folder : folders) {
        const QFileInfo program(QDir::cleanPath(askingFolder + u'/' + folder + u'/' + name));
        if (program.isFile() && program.isExecutable())
            return program.absoluteFilePath();
    }
    return {};
}

} // namespace tovarin
