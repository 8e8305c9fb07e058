// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Tovarin

// A subscription in the list.
RowButton {
    id: root

    required property int index
    required property string tag
    required property string subtitle
    required property string amountText
    required property string monthlyText
    required property bool isActive
    required property string logoID
    required property string avatarLetter

    hasRule: index > 0

    contentItem: RowLayout {
        spacing: 14

        SubscriptionIconView {
            logoID: root.logoID
            letter: root.avatarLetter
            size: 42
            dimmed: !root.isActive
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 3

            RowLayout {
                spacing: 8

                ThemeText {
                    Layout.fillWidth: true
                    Layout.maximumWidth: Math.ceil(implicitWidth)
                    text: root.name
                    color: root.isActive ? Theme.text : Theme.textSecondary
                    font.pixelSize: 15
                    font.weight: Font.DemiBold
                }
                Tag {
                    visible: word !== ""
                    word: root.tag
                    tint: root.isActive ? Theme.accent : Theme.textTertiary
                }
                Item {
                    Layout.fillWidth: true
                }
            }
            ThemeText {
                Layout.fillWidth: true
                text: root.subtitle
                color: Theme.textSecondary
                font.pixelSize: 12
            }
        }
        ColumnLayout {
            Layout.maximumWidth: root.width / 2
            spacing: 3

            ThemeText {
                Layout.maximumWidth: root.width / 2
                Layout.alignment: Qt.AlignRight
                text: root.amountText
                color: Theme.accent
                font.family: Theme.tabularFamily
                font.pixelSize: 15
                font.weight: Font.DemiBold
            }
            ThemeText {
                Layout.maximumWidth: root.width / 2
                Layout.alignment: Qt.AlignRight
                visible: text !== ""
                text: root.monthlyText
                color: Theme.textTertiary
                font.pixelSize: 11
            }
        }
        Symbol {
            name: "chevron.right"
            size: 13
            color: Theme.textTertiary
        }
    }
}
