// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace tovarin {

/// The folder of the models that recognise text: where it is installed, as seen from the folder of
/// the program, else where the program's sources are.
QString textModelsFolder(const QString &programFolder);

} // namespace tovarin
