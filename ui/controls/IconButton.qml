// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// A symbol that can be pressed. Its title is what a screen reader says, and what its tooltip shows.
BaseButton {
    id: root

    property real symbolSize: 16

    implicitWidth: 32
    implicitHeight: 32

    background: Rectangle {
        radius: 9
        color: Qt.alpha(Theme.text, root.down ? 0.18 : root.hovered ? 0.1 : 0)

        FocusRing {
            shown: root.visualFocus
            around: parent.radius
        }
    }
    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: root.icon.name
            size: root.symbolSize
            color: root.hovered || root.down ? Theme.text : Theme.textSecondary
        }
    }

    // Bound components cannot be made from others in Qt 6.4.
    // qmllint disable unqualified
    Loader {
        active: root.hovered || root.visualFocus
        sourceComponent: ToolTip {
            parent: root
            text: root.title
            shown: root.hovered && !root.down || root.visualFocus
        }
    }
    // qmllint enable unqualified
}
