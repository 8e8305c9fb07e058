// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Tovarin

RowLayout {
    id: root

    required property string title
    required property string note

    spacing: 12

    ThemeText {
        Layout.fillWidth: true
        text: root.title
        font.pixelSize: 15
        font.weight: Font.DemiBold
    }
    ThemeText {
        text: root.note
        color: Theme.textSecondary
        font.pixelSize: 12
    }
}
