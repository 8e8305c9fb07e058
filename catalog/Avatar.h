// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace tovarin {

/// What stands on the avatar of a subscription without a logo: the first character, as people see
/// characters, of the name without the blanks around it, in upper case; "•" for an empty name.
QString avatarLetter(const QString &name);

} // namespace tovarin
