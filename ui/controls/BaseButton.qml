// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T

// What every button does: it is reached by Tab, pressed by Space and by Return, and a screen reader
// finds it under its title and can press it. How it looks is up to the buttons made of it.
T.AbstractButton {
    required property string title

    focusPolicy: Qt.StrongFocus
    hoverEnabled: enabled
    opacity: enabled ? 1 : 0.45

    Accessible.role: Accessible.Button
    Accessible.name: title
    Accessible.onPressAction: {
        if (enabled)
            clicked();
    }
    Keys.onReturnPressed: event => press(event)
    Keys.onEnterPressed: event => press(event)
    // The keyboard lets go of a held Space again and again.
    Keys.onReleased: event => event.accepted = event.isAutoRepeat && event.key === Qt.Key_Space

    // Once for a key that is held.
    function press(event: KeyEvent) {
        if (!event.isAutoRepeat)
            clicked();
    }
}
