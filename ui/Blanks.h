// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace tovarin {

/// A text without the blanks at its ends: the space characters of every script and the tab. Line
/// breaks are none.
QString withoutBlanksAround(const QString &text);

} // namespace tovarin
