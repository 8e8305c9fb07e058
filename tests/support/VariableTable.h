// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Environment.h"

#include <QMap>

namespace tovarin {

/// The values of variables by their names.
using VariableTable = QMap<QByteArray, QByteArray>;

/// An environment of just these variables.
inline Environment variables(const VariableTable &table) {
    return [table](const char *name) { return table.value(name); };
}

} // namespace tovarin
