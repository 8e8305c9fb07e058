// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// A tile that can be pressed: a symbol over its title.
BaseButton {
    id: root

    // The second half of a double click may have been meant for what stood here before.
    onDoubleClicked: {}

    implicitWidth: 120
    implicitHeight: 66
    leftPadding: 8
    rightPadding: 8

    background: HUDSurface {
        cornerRadius: 14

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: Qt.alpha(Theme.text, root.down ? 0.16 : root.hovered ? 0.08 : 0)
        }
        FocusRing {
            shown: root.visualFocus
            around: parent.radius
        }
    }
    contentItem: Item {
        Symbol {
            x: (parent.width - width) / 2
            y: parent.height / 2 - height - 1
            name: root.icon.name
            size: 18
        }
        ThemeText {
            y: parent.height / 2 + 6
            width: parent.width
            text: root.title
            font.pixelSize: 12
            font.weight: Font.Medium
            horizontalAlignment: Text.AlignHCenter
            Accessible.ignored: true
        }
    }
}
