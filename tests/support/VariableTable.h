// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Environment.h"

#include <QMap>

namespace tovarin {

/// An environment of just these variables.
inline Environment variables(const QMap<QByteArray, QByteArray> &table) {
    return [table](const char *name) { return table.value(name); };
}

} // namespace tovarin
