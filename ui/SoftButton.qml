// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Tovarin

// The button of this program: a rounded rectangle, filled with the accent when it is the prominent
// one of its place.
T.AbstractButton {
    id: root

    required property string title
    property bool prominent: false

    readonly property color ink: prominent ? Theme.onAccent : Theme.text

    implicitWidth: implicitContentWidth + 36
    leftPadding: (width - implicitContentWidth) / 2
    implicitHeight: 40
    focusPolicy: Qt.StrongFocus
    hoverEnabled: true
    opacity: enabled ? 1 : 0.45

    Accessible.role: Accessible.Button
    Accessible.name: title
    Accessible.onPressAction: {
        if (enabled)
            clicked();
    }
    Keys.onReturnPressed: event => press(event)
    Keys.onEnterPressed: event => press(event)

    // Once for a key that is held.
    function press(event: KeyEvent) {
        if (!event.isAutoRepeat)
            clicked();
    }

    background: Rectangle {
        radius: 12
        color: root.prominent ? (root.down ? Qt.darker(Theme.accent, 1.2)
                                           : root.hovered ? Qt.lighter(Theme.accent, 1.06)
                                                          : Theme.accent)
                              : Qt.rgba(Theme.text.r, Theme.text.g, Theme.text.b,
                                        root.down ? 0.18 : root.hovered ? 0.13 : 0.08)
        border.width: root.visualFocus ? 2 : root.prominent ? 0 : 1
        border.color: root.visualFocus ? (root.prominent ? Theme.text : Theme.accent)
                                       : Theme.hairline
    }
    contentItem: Row {
        spacing: 6

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.icon.name !== ""
            name: root.icon.name
            color: root.ink
        }
        ThemeText {
            anchors.verticalCenter: parent.verticalCenter
            text: root.title
            color: root.ink
            font.pixelSize: 14
            font.weight: Font.DemiBold
            Accessible.ignored: true
        }
    }
}
