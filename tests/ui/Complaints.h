// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>

namespace tovarin {

/// What Qt has said at level warning or worse since somebody cleared it. A test of screens expects
/// that it has said nothing.
QStringList &complaints();

} // namespace tovarin
