// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick

// What a menu is filled with when it is first opened, from top to bottom.
QtObject {
    default property list<QtObject> lines
}
