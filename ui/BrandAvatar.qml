// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// A letter in a square, for an entry without a logo.
Rectangle {
    id: root

    required property string letter
    property real size: 42
    property bool dimmed: false

    implicitWidth: size
    implicitHeight: size
    radius: size * 0.26
    color: Qt.rgba(1, 1, 1, dimmed ? 0.04 : 0.08)

    ThemeText {
        anchors.centerIn: parent
        text: root.letter
        color: root.dimmed ? Theme.textTertiary : Theme.text
        font.pixelSize: root.size * 0.4
        font.weight: Font.DemiBold
        Accessible.ignored: true
    }
}
