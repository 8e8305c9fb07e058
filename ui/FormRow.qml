// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Tovarin

// A row of a form: what it is about, and beside it what it is filled with.
RowLayout {
    id: root

    required property string label
    required property real labelWidth

    spacing: 12

    ThemeText {
        Layout.preferredWidth: root.labelWidth
        Layout.maximumWidth: root.labelWidth
        Layout.alignment: Qt.AlignTop
        Layout.preferredHeight: 36
        text: root.label
        font.pixelSize: 12
        verticalAlignment: Text.AlignVCenter
    }
}
