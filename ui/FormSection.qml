// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Tovarin

// Some rows of a form under their title.
ColumnLayout {
    id: root

    required property string title
    default property alias rows: rows.data

    spacing: 8

    ThemeText {
        Layout.fillWidth: true
        text: root.title
        color: Theme.textSecondary
        font.pixelSize: 12
        font.weight: Font.DemiBold
    }
    HUDSurface {
        Layout.fillWidth: true
        implicitHeight: rows.implicitHeight + 28

        ColumnLayout {
            id: rows

            anchors.fill: parent
            anchors.margins: 14
            spacing: 10
        }
    }
}
