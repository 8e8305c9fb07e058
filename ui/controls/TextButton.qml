// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// A button without a ground, for what is seldom wanted.
BaseButton {
    id: root

    implicitWidth: implicitContentWidth + 20
    leftPadding: 10
    rightPadding: 10
    implicitHeight: 32

    background: Rectangle {
        radius: 8
        color: Qt.alpha(Theme.text, root.down ? 0.13 : root.hovered ? 0.07 : 0)

        FocusRing {
            shown: root.visualFocus
            around: parent.radius
        }
    }
    contentItem: ThemeText {
        text: root.title
        color: root.hovered || root.down ? Theme.text : Theme.textSecondary
        font.pixelSize: 12
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
}
