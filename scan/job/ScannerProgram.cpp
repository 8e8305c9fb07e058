// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/job/ScannerProgram.h"

#include "platform/ProgramFinder.h"

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

QString scannerProgram(const QString &programFolder) {
    return findProgram(u"tovarin-scanner"_s, programFolder,
                       {u"."_s, u"../libexec/tovarin"_s, u"../scanner"_s});
}

} // namespace tovarin
