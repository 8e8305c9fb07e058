// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// What one thing about an entry is, on the right of what it is called. It has as many lines as it
// takes.
Item {
    id: root

    required property string label
    required property string value
    property bool hasRule: true

    implicitHeight: Math.max(words.implicitHeight, caption.implicitHeight) + 16

    Rectangle {
        width: parent.width
        height: 1
        visible: root.hasRule
        color: Theme.hairline
        opacity: 0.6
    }
    ThemeText {
        id: caption

        y: 8
        width: 92
        text: root.label
        color: Theme.textSecondary
        font.pixelSize: 13
    }
    ThemeText {
        id: words

        x: caption.width + 12
        y: 8
        width: root.width - x
        text: root.value
        font.pixelSize: 13
        font.weight: Font.Medium
        horizontalAlignment: lineCount > 1 ? Text.AlignLeft : Text.AlignRight
        wrapMode: Text.Wrap
        elide: Text.ElideNone
        maximumLineCount: 2147483647
    }
}
