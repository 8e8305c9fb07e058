// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Environment.h"

#include <QStringList>

namespace tovarin {

/// The languages the user wants to read, best first, as language tags ("zh-CN", "en-GB"). Empty
/// when the environment names none.
///
/// The order is gettext's: LANGUAGE (a list separated by colons) comes first, unless the locale for
/// messages is the C locale; then that locale itself. An entry "C" in LANGUAGE ends the list there,
/// since it asks for the untranslated texts.
QStringList preferredLanguages(const Environment &environment);

} // namespace tovarin
