// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// A symbol of the program's own set, by its name, in one colour; nothing without a name. It says
// nothing to a screen reader: what it belongs to does.
Image {
    id: root

    required property string name
    property color color: Theme.text
    property real size: 16

    width: size
    height: size
    sourceSize.width: Math.ceil(size * Screen.devicePixelRatio)
    sourceSize.height: Math.ceil(size * Screen.devicePixelRatio)
    source: name === "" ? "" : "image://symbol/" + name + "/" + hex(color.a) + hex(color.r)
                               + hex(color.g) + hex(color.b)
    Accessible.ignored: true

    function hex(channel: real): string {
        return Math.round(channel * 255).toString(16).padStart(2, "0");
    }
}
