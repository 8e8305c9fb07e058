// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace tovarin {

/// The folder of the models that recognise text, share/tovarin/TextModels, as seen from the folder
/// of the program: where they are installed, or in the build tree, which links it to the sources'.
/// Empty when it is nowhere.
QString textModelsFolder(const QString &programFolder);

} // namespace tovarin
