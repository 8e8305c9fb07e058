// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// The square that stands for a service: its logo, or its symbol where there is none. It says nothing
// to a screen reader; the name beside it does.
Item {
    id: root

    // The id of a preset whose logo there is, else empty.
    required property string logoID
    property string icon: ""
    property real size: 42
    property real cornerRadius: 11
    property bool selected: false

    readonly property bool hasLogo: logoID !== ""

    implicitWidth: size
    implicitHeight: size
    Accessible.ignored: true

    Image {
        anchors.fill: parent
        visible: root.hasLogo
        source: root.hasLogo ? "image://logo/" + root.logoID + "/"
                               + (100 * root.cornerRadius / root.size).toFixed(2) : ""
        sourceSize.width: Math.ceil(root.size)
        sourceSize.height: Math.ceil(root.size)
        Accessible.ignored: true
    }
    Rectangle {
        anchors.fill: parent
        radius: root.cornerRadius
        color: root.hasLogo ? "transparent"
                            : root.selected ? Qt.alpha(Theme.accent, 0.08)
                                            : Qt.rgba(1, 1, 1, 0.06)
        border.width: root.hasLogo ? 1 : 0
        border.color: Qt.rgba(1, 1, 1, 0.12)
    }
    Symbol {
        anchors.centerIn: parent
        visible: !root.hasLogo && root.icon !== ""
        name: root.icon
        size: root.size * 0.46
        color: root.selected ? Theme.accent : Theme.textSecondary
    }
}
