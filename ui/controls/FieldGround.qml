// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// The ground of what is typed or chosen in.
Rectangle {
    required property bool hovered
    required property bool focused
    property bool pressed: false
    // False while what is typed cannot be used.
    property bool acceptable: true

    radius: 10
    color: Qt.rgba(1, 1, 1, pressed ? 0.13 : hovered || focused ? 0.08 : 0.05)
    border.width: focused ? 2 : 1
    border.color: !acceptable ? Theme.beakOrange
                              : focused ? Theme.accent : hovered ? Theme.lineStrong : Theme.hairline
}
