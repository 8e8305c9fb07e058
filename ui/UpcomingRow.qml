// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Tovarin

Item {
    id: root

    required property string name
    required property string amountText
    required property string dueText
    required property bool isToday
    required property string logoID
    required property string avatarLetter

    Accessible.role: Accessible.ListItem
    Accessible.name: name

    RowLayout {
        anchors.fill: parent
        spacing: 12

        SubscriptionIconView {
            logoID: root.logoID
            letter: root.avatarLetter
            size: 28
            cornerRadius: 7
        }
        ThemeText {
            Layout.fillWidth: true
            text: root.name
            font.pixelSize: 14
        }
        ThemeText {
            text: root.dueText
            color: root.isToday ? Theme.accent : Theme.textSecondary
            font.pixelSize: 12
        }
        ThemeText {
            Layout.preferredWidth: Math.min(Math.max(84, implicitWidth), root.width / 2)
            text: root.amountText
            horizontalAlignment: Text.AlignRight
            font.pixelSize: 14
            font.weight: Font.DemiBold
        }
    }
}
