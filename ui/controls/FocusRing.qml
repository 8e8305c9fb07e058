// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// The line around what the keyboard is at. It stands a little off, so that it is seen on every
// ground, the accent included.
Rectangle {
    required property bool shown
    // The corner radius of what it is put around.
    required property real around

    anchors.fill: parent
    anchors.margins: -3
    visible: shown
    radius: around + 3
    color: "transparent"
    border.width: 2
    border.color: Theme.accent
}
