// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/job/ScannerProgram.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

QString scannerProgram(const QString &programFolder) {
    for (const QString &folder : {u"."_s, u"../libexec/tovarin"_s, u"../scanner"_s}) {
        const QFileInfo program(
            QDir::cleanPath(programFolder + u'/' + folder + u"/tovarin-scanner"_s));
        if (program.isFile() && program.isExecutable())
            return program.absoluteFilePath();
    }
    return {};
}

} // namespace tovarin
