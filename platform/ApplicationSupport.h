// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Environment.h"

#include <QString>

namespace tovarin {

/// The folder for the user's application data: $XDG_DATA_HOME, else ~/.local/share. A relative
/// XDG_DATA_HOME is ignored, as the XDG base-directory rules want. Without HOME the password
/// database names the home; a user who has none there either cannot be served: qFatal.
QString applicationSupportFolder(const Environment &environment);

/// The same for settings: $XDG_CONFIG_HOME, else ~/.config.
QString configurationFolder(const Environment &environment);

/// The same for what a program has to remember between its runs: $XDG_STATE_HOME, else
/// ~/.local/state.
QString stateFolder(const Environment &environment);

} // namespace tovarin
