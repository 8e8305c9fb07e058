// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QStringList>

namespace tovarin {

/// The path of the program `name`, one of Tovarin's own, in the first of these folders that has it.
/// They are relative to the folder of the program that asks. Empty when it is in none.
QString findProgram(const QString &name, const QString &askingFolder, const QStringList &folders);

} // namespace tovarin
