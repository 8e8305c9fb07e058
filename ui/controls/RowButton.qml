// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Tovarin

// A row of a list, across the whole page. It can be pressed where something opens by it.
T.ItemDelegate {
    id: root

    // What a screen reader calls it.
    required property string name
    property bool pressable: false
    // The line above it.
    property bool hasRule: true

    // The second half of a double click may have been meant for what stood here before.
    onDoubleClicked: {}

    implicitHeight: 68
    leftPadding: Theme.pageMargin
    rightPadding: Theme.pageMargin
    focusPolicy: pressable ? Qt.StrongFocus : Qt.NoFocus
    hoverEnabled: pressable && enabled

    Accessible.name: name
    Accessible.onPressAction: {
        if (pressable && enabled)
            clicked();
    }
    Keys.onReturnPressed: event => press(event)
    Keys.onEnterPressed: event => press(event)
    // The keyboard lets go of a held Space again and again.
    Keys.onReleased: event => event.accepted = event.isAutoRepeat && event.key === Qt.Key_Space

    // Once for a key that is held.
    function press(event: KeyEvent) {
        if (pressable && !event.isAutoRepeat)
            clicked();
    }

    background: Item {
        Rectangle {
            x: Theme.pageMargin
            width: parent.width - 2 * Theme.pageMargin
            height: 1
            color: Theme.hairline
            opacity: 0.6
            visible: root.hasRule
        }
        Rectangle {
            anchors.fill: parent
            anchors.leftMargin: Theme.pageMargin - 12
            anchors.rightMargin: Theme.pageMargin - 12
            anchors.topMargin: 3
            anchors.bottomMargin: 2
            visible: root.pressable && (root.hovered || root.down || root.visualFocus)
            radius: 12
            color: Qt.alpha(Theme.text, root.down ? 0.1 : root.hovered ? 0.05 : 0)
            border.width: root.visualFocus ? 2 : 0
            border.color: Theme.accent
        }
    }
}
