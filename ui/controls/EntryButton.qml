// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Tovarin

// The way into another screen: what it is, and below it what one can do there.
BaseButton {
    id: root

    required property string subtitle

    // The second half of a double click may have been meant for what stood here before.
    onDoubleClicked: {}

    implicitWidth: 320
    implicitHeight: 64
    leftPadding: 16
    rightPadding: 16

    Accessible.description: subtitle

    background: HUDSurface {
        highlighted: true
        color: root.down ? Qt.darker(Theme.cardHi, 1.3)
                         : root.hovered ? Qt.lighter(Theme.cardHi, 1.5) : Theme.cardHi

        FocusRing {
            shown: root.visualFocus
            around: parent.radius
        }
    }
    contentItem: RowLayout {
        spacing: 14

        Symbol {
            visible: root.icon.name !== ""
            name: root.icon.name
            size: 20
            color: Theme.accent
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 2

            ThemeText {
                Layout.fillWidth: true
                text: root.title
                font.pixelSize: 14
                font.weight: Font.DemiBold
                Accessible.ignored: true
            }
            ThemeText {
                Layout.fillWidth: true
                text: root.subtitle
                color: Theme.textSecondary
                font.pixelSize: 12
                Accessible.ignored: true
            }
        }
        Symbol {
            name: "chevron.right"
            size: 13
            color: Theme.textSecondary
        }
    }
}
