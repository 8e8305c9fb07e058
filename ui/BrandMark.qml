// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick

// The program's own mark.
Item {
    id: root

    property real size: 32
    // The mark is a tile with round corners already; more than its own can be asked for.
    property real cornerRadius: 0

    implicitWidth: size
    implicitHeight: size
    Accessible.ignored: true

    Image {
        anchors.fill: parent
        source: "image://mark/" + (100 * root.cornerRadius / root.size).toFixed(2)
        sourceSize.width: Math.ceil(root.size)
        sourceSize.height: Math.ceil(root.size)
        Accessible.ignored: true
    }
}
