// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// A word about an entry, on its own colour.
Rectangle {
    id: root

    required property string word
    required property color tint

    implicitWidth: words.implicitWidth + 12
    implicitHeight: words.implicitHeight + 4
    radius: height / 2
    color: Qt.alpha(tint, 0.08)

    ThemeText {
        id: words

        anchors.centerIn: parent
        text: root.word
        color: root.tint
        font.pixelSize: 10
        font.weight: Font.DemiBold
    }
}
