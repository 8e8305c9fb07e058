// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick.Templates as T

// What an item of a menu does, and the keys that do it too.
T.Action {}
