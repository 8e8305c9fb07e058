// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// The ground of what opens above the rest: menus, the list of a picker, tooltips.
Rectangle {
    radius: 10
    color: "#1B1B1E"
    border.width: 1
    border.color: Theme.lineStrong
}
