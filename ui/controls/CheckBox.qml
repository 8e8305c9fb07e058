// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Tovarin

// Ticked or not.
T.CheckBox {
    id: root

    // What is ticked, as a screen reader says it; drawn beside it only if it is the text too.
    required property string label

    implicitWidth: text === "" ? 28 : implicitContentWidth
    implicitHeight: 28
    spacing: 4
    focusPolicy: Qt.StrongFocus
    hoverEnabled: enabled
    opacity: enabled ? 1 : 0.45

    Accessible.name: label
    Accessible.onPressAction: flip()
    Accessible.onToggleAction: flip()
    Keys.onReturnPressed: event => {
        if (!event.isAutoRepeat)
            flip();
    }
    Keys.onEnterPressed: event => {
        if (!event.isAutoRepeat)
            flip();
    }
    // The keyboard lets go of a held Space again and again.
    Keys.onReleased: event => event.accepted = event.isAutoRepeat && event.key === Qt.Key_Space

    function flip() {
        if (!enabled)
            return;
        toggle();
        toggled();
    }

    indicator: Rectangle {
        x: 4
        y: (root.height - height) / 2
        width: 20
        height: 20
        radius: 6
        color: root.checked ? (root.down ? Qt.darker(Theme.accent, 1.2)
                                         : root.hovered ? Qt.lighter(Theme.accent, 1.06)
                                                        : Theme.accent)
                            : Qt.rgba(1, 1, 1, root.down ? 0.18 : root.hovered ? 0.1 : 0.05)
        border.width: root.checked ? 0 : 1
        border.color: root.hovered ? Theme.textSecondary : Theme.lineStrong

        FocusRing {
            shown: root.visualFocus
            around: parent.radius
        }
        Symbol {
            anchors.centerIn: parent
            visible: root.checked
            name: "checkmark"
            size: 13
            color: Theme.onAccent
        }
    }
    contentItem: ThemeText {
        leftPadding: 28 + root.spacing
        text: root.text
        font.pixelSize: 14
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
}
