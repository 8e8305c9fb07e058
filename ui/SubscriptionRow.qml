// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Tovarin

Item {
    id: root

    required property int index
    required property string name
    required property string tag
    required property string subtitle
    required property string amountText
    required property string monthlyText
    required property bool isActive
    required property string logoID
    required property string avatarLetter

    implicitHeight: 68

    Accessible.role: Accessible.ListItem
    Accessible.name: name

    Rectangle {
        x: Theme.pageMargin
        width: root.width - 2 * Theme.pageMargin
        height: 1
        color: Theme.hairline
        opacity: 0.6
        visible: root.index > 0
    }

    RowLayout {
        anchors.fill: parent
        anchors.leftMargin: Theme.pageMargin
        anchors.rightMargin: Theme.pageMargin
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
                Rectangle {
                    readonly property color tint: root.isActive ? Theme.accent : Theme.textTertiary

                    visible: root.tag !== ""
                    implicitWidth: tagText.implicitWidth + 12
                    implicitHeight: tagText.implicitHeight + 4
                    radius: height / 2
                    color: Qt.rgba(tint.r, tint.g, tint.b, 0.08)

                    ThemeText {
                        id: tagText

                        anchors.centerIn: parent
                        text: root.tag
                        color: parent.tint
                        font.pixelSize: 10
                        font.weight: Font.DemiBold
                    }
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
