// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Tovarin

// One line of a menu, with the keys that do the same, if there are any.
T.MenuItem {
    id: root

    // The keys that do the same; it does not make them do so.
    property string keys: ""

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: 30
    leftPadding: 10
    rightPadding: 10
    hoverEnabled: enabled
    opacity: enabled ? 1 : 0.4

    Accessible.name: text
    Accessible.onPressAction: {
        if (enabled)
            clicked();
    }

    background: Rectangle {
        radius: 6
        color: root.down ? Qt.darker(Theme.accent, 1.2) : Theme.accent
        visible: root.highlighted || root.down
    }
    contentItem: RowLayout {
        spacing: 28

        ThemeText {
            Layout.fillWidth: true
            text: root.text
            color: root.highlighted ? Theme.onAccent : Theme.text
            font.pixelSize: root.font.pixelSize
            Accessible.ignored: true
        }
        ThemeText {
            visible: text !== ""
            text: root.keys
            color: root.highlighted ? Theme.onAccent : Theme.textSecondary
            font.pixelSize: root.font.pixelSize - 1
            Accessible.ignored: true
        }
    }
}
