// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Tovarin

// The button of this program: a rounded rectangle, filled with the accent when it is the prominent
// one of its place, and in warning colours when what it does cannot be undone.
BaseButton {
    id: root

    property bool prominent: false
    property bool destructive: false

    readonly property color ink: prominent ? Theme.onAccent : destructive ? Theme.beakOrange
                                                                          : Theme.text

    // The second half of a double click may have been meant for what stood here before.
    onDoubleClicked: {}

    implicitWidth: implicitContentWidth + 36
    leftPadding: Math.max(10, (width - implicitContentWidth) / 2)
    rightPadding: leftPadding
    implicitHeight: 40

    background: Rectangle {
        radius: 12
        color: root.prominent ? (root.down ? Qt.darker(Theme.accent, 1.2)
                                           : root.hovered ? Qt.lighter(Theme.accent, 1.06)
                                                          : Theme.accent)
                              : Qt.alpha(root.ink, root.down ? 0.18 : root.hovered ? 0.13 : 0.08)
        border.width: root.prominent ? 0 : 1
        border.color: root.destructive ? Qt.alpha(root.ink, 0.35) : Theme.hairline

        FocusRing {
            shown: root.visualFocus
            around: parent.radius
        }
    }
    contentItem: RowLayout {
        spacing: 6

        Symbol {
            visible: root.icon.name !== ""
            name: root.icon.name
            color: root.ink
        }
        ThemeText {
            Layout.fillWidth: true
            text: root.title
            color: root.ink
            font.pixelSize: 14
            font.weight: Font.DemiBold
            Accessible.ignored: true
        }
    }
}
