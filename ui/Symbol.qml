// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// A symbol of the program's own set, by its name, in one colour; nothing without a name. It says
// nothing to a screen reader: what it belongs to does.
Item {
    id: root

    required property string name
    property color color: Theme.text
    property real size: 16

    // An image's own implicit size is in pixels, which layouts would take for points.
    implicitWidth: size
    implicitHeight: size
    Accessible.ignored: true

    Image {
        anchors.fill: parent
        // In points: Qt asks the provider for as many pixels as the screen has.
        sourceSize.width: Math.ceil(root.size)
        sourceSize.height: Math.ceil(root.size)
        source: root.name === "" ? "" : "image://symbol/" + root.name + "/" + root.hex(root.color.a)
                                        + root.hex(root.color.r) + root.hex(root.color.g)
                                        + root.hex(root.color.b)
        Accessible.ignored: true
    }

    function hex(channel: real): string {
        return Math.round(channel * 255).toString(16).padStart(2, "0");
    }
}
