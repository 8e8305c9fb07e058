// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Tovarin

// Shows what is chosen, and unfolds the place where it can be chosen anew.
BaseButton {
    id: root

    required property string value
    property bool unfolded: false

    implicitWidth: 220
    implicitHeight: 36
    leftPadding: 12
    rightPadding: 12

    Accessible.description: value
    Accessible.checkable: true
    Accessible.checked: unfolded

    background: FieldGround {
        hovered: root.hovered
        pressed: root.down
        focused: root.visualFocus
    }
    contentItem: RowLayout {
        spacing: 8

        Symbol {
            visible: root.icon.name !== ""
            name: root.icon.name
            size: 14
            color: Theme.textSecondary
        }
        ThemeText {
            Layout.fillWidth: true
            text: root.value
            font.pixelSize: 14
            Accessible.ignored: true
        }
        Symbol {
            name: "chevron.down"
            size: 12
            color: Theme.textSecondary
            rotation: root.unfolded ? 180 : 0
        }
    }
}
