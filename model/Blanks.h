// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace tovarin {

/// The space characters of every script and the tab. Line breaks are none.
bool isBlank(QChar character);

/// A text without the blanks at its ends.
QString withoutBlanksAround(const QString &text);

} // namespace tovarin
