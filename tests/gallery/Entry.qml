// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick

// One control of the gallery on its place.
Item {
    id: root

    required property string title
    default property Item control
    // How far down what it opens reaches; 0 for what opens nothing.
    property real openHeight: 0

    objectName: "entry"
    implicitWidth: Math.max(160, control.implicitWidth + 24)
    implicitHeight: control.implicitHeight + 24
    data: [control]

    Binding {
        target: root.control
        property: "x"
        value: 12
    }
    Binding {
        target: root.control
        property: "y"
        value: 12
    }
}
