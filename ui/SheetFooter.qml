// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Tovarin

// The buttons at the foot of a sheet, below a line.
Item {
    default property alias buttons: row.data

    anchors.left: parent.left
    anchors.right: parent.right
    anchors.bottom: parent.bottom
    height: 72

    Rectangle {
        anchors.left: parent.left
        anchors.right: parent.right
        height: 1
        color: Theme.hairline
    }
    RowLayout {
        id: row

        anchors.fill: parent
        anchors.leftMargin: 24
        anchors.rightMargin: 24
        spacing: 12
    }
}
