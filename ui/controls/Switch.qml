// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Tovarin

// On or off, at once.
T.Switch {
    id: root

    // What it turns on, as a screen reader says it; drawn beside it only if it is the text too.
    required property string label

    implicitWidth: text === "" ? 40 : implicitContentWidth
    implicitHeight: 28
    spacing: 10
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
        y: (root.height - height) / 2
        width: 40
        height: 24
        radius: 12
        color: root.checked ? (root.down ? Qt.darker(Theme.accent, 1.2)
                                         : root.hovered ? Qt.lighter(Theme.accent, 1.06)
                                                        : Theme.accent)
                            : Qt.rgba(1, 1, 1, root.down ? 0.26 : root.hovered ? 0.2 : 0.14)

        FocusRing {
            shown: root.visualFocus
            around: parent.radius
        }
        Rectangle {
            x: 3 + root.visualPosition * (parent.width - width - 6)
            y: 3
            width: 18
            height: 18
            radius: 9
            color: root.checked ? Theme.onAccent : root.down ? Theme.text : "#C9C9C9"
        }
    }
    contentItem: ThemeText {
        leftPadding: root.indicator.width + root.spacing
        text: root.text
        font.pixelSize: 14
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
}
