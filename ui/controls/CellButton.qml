// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Tovarin

// A cell of a grid that is ticked or not. What it shows is up to who makes it; whether it is ticked,
// to who listens.
T.CheckBox {
    id: root

    required property string title
    property bool ticked: false

    // The second half of a double click may have been meant for what stood here before.
    onDoubleClicked: {}

    implicitWidth: 220
    implicitHeight: 64
    padding: 10
    focusPolicy: Qt.StrongFocus
    hoverEnabled: enabled
    opacity: enabled ? 1 : 0.45
    checked: ticked
    // A press changes nothing by itself.
    nextCheckState: () => checkState

    Accessible.name: title
    Accessible.checkable: true
    Accessible.checked: ticked
    Accessible.focusable: enabled
    Accessible.onPressAction: pressBy(null)
    Accessible.onToggleAction: pressBy(null)
    Keys.onReturnPressed: event => pressBy(event)
    Keys.onEnterPressed: event => pressBy(event)
    // The keyboard lets go of a held Space again and again.
    Keys.onReleased: event => event.accepted = event.isAutoRepeat && event.key === Qt.Key_Space

    // By a key, once while it is held, or by a screen reader.
    function pressBy(event: KeyEvent) {
        if (enabled && !(event && event.isAutoRepeat))
            clicked();
    }

    background: Rectangle {
        radius: 14
        color: root.ticked ? Qt.alpha(Theme.accent, root.down ? 0.2 : root.hovered ? 0.13 : 0.08)
                           : Qt.alpha(Theme.text, root.down ? 0.13 : root.hovered ? 0.08 : 0.04)
        border.width: 1
        border.color: root.ticked ? Theme.warmHairline : Theme.hairline

        FocusRing {
            shown: root.visualFocus
            around: parent.radius
        }
    }
}
