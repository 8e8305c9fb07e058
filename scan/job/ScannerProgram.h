// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace tovarin {

/// Where tovarin-scanner is, seen from the folder of the program that wants it: beside it, where it
/// is installed (../libexec/tovarin), or in the build tree (../scanner). Empty when it is nowhere.
QString scannerProgram(const QString &programFolder);

} // namespace tovarin
