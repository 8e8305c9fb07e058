// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Clock.h"

#include <QString>

namespace tovarin {

/// A day as every screen writes it: "2025/03/12", in the Gregorian calendar. The form is fixed; it
/// does not follow the user's locale.
QString displayDate(CivilDay day);

} // namespace tovarin
