// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Tovarin

// The line between groups of a menu.
T.MenuSeparator {
    implicitWidth: 40
    implicitHeight: 11
    Accessible.ignored: true

    contentItem: Item {
        Rectangle {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.margins: 8
            anchors.verticalCenter: parent.verticalCenter
            height: 1
            color: Theme.hairline
        }
    }
}
