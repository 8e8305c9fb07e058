// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// A day of a calendar. Its title is the day in full, which a screen reader says.
BaseButton {
    id: root

    required property string number
    required property bool isCurrentMonth
    required property bool isSelected
    required property bool isToday

    implicitWidth: 36
    implicitHeight: 36

    Accessible.selectable: true
    Accessible.selected: isSelected

    background: Rectangle {
        radius: 10
        color: root.isSelected ? (root.down ? Qt.darker(Theme.accent, 1.2)
                                            : root.hovered ? Qt.lighter(Theme.accent, 1.06)
                                                           : Theme.accent)
                               : Qt.rgba(1, 1, 1, root.down ? 0.18 : (root.isToday ? 0.1 : 0)
                                                                     + (root.hovered ? 0.07 : 0))
        border.width: root.isToday && !root.isSelected ? 1 : 0
        border.color: Qt.alpha(Theme.textSecondary, 0.5)

        FocusRing {
            shown: root.visualFocus
            around: parent.radius
        }
    }
    contentItem: ThemeText {
        text: root.number
        color: root.isSelected ? Theme.onAccent
                               : root.isCurrentMonth ? Theme.text : Theme.textTertiary
        font.pixelSize: 14
        font.weight: root.isSelected ? Font.DemiBold : Font.Medium
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
}
