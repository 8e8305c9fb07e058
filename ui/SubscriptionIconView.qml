// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// The square that stands for a subscription: the logo of its service, or a letter.
Item {
    id: root

    required property string logoID
    required property string letter
    property real size: 42
    property real cornerRadius: 11
    property bool dimmed: false

    implicitWidth: size
    implicitHeight: size
    Accessible.ignored: true

    ServiceLogoView {
        visible: root.logoID !== ""
        opacity: root.dimmed ? 0.5 : 1
        logoID: root.logoID
        size: root.size
        cornerRadius: root.cornerRadius
    }
    BrandAvatar {
        visible: root.logoID === ""
        letter: root.letter
        size: root.size
        dimmed: root.dimmed
    }
}
