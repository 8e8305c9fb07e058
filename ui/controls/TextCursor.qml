// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// Where the next letter goes. It does not blink: a program that idles does not wake.
Rectangle {
    required property var editor

    width: 2
    color: Theme.accent
    visible: editor.activeFocus && editor.cursorVisible
}
