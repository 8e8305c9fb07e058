// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQuick
import Tovarin

// The panel that drops from the status item.
Rectangle {
    id: root

    required property MenuBarModel panel

    readonly property bool isZh: LocalizationManager.isZh

    signal open()
    signal quit()
    signal dismiss()

    implicitWidth: 300
    implicitHeight: sections.implicitHeight
    color: Theme.bg
    focus: true

    Accessible.role: Accessible.Dialog
    Accessible.name: "Tovarin"

    Keys.onEscapePressed: dismiss()

    component Rule: Rectangle {
        width: root.width
        height: 1
        color: Theme.hairline
    }

    Column {
        id: sections

        width: root.width

        Item {
            width: parent.width
            height: 52

            BrandMark {
                id: mark

                x: 16
                anchors.verticalCenter: parent.verticalCenter
                size: 24
            }
            ThemeText {
                anchors.left: mark.right
                anchors.leftMargin: 8
                anchors.verticalCenter: parent.verticalCenter
                text: "Tovarin"
                font.pixelSize: 14
                font.weight: Font.Bold
            }
        }
        Rule {}
        Column {
            x: 16
            width: parent.width - 32
            topPadding: 14
            bottomPadding: 14
            spacing: 2

            ThemeText {
                width: parent.width
                text: root.isZh ? "每月订阅支出" : "Monthly spend"
                color: Theme.textSecondary
                font.pixelSize: 11
            }
            ThemeText {
                width: parent.width
                text: root.panel.monthlySpend
                font.pixelSize: 28
                font.weight: Font.Bold
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: 14
            }
            ThemeText {
                width: parent.width
                text: root.panel.summary
                color: Theme.textSecondary
                font.pixelSize: 11
            }
        }
        Rule {}
        Column {
            x: 16
            width: parent.width - 32
            topPadding: 14
            bottomPadding: 14
            spacing: 8

            ThemeText {
                width: parent.width
                text: root.isZh ? "近 7 天待扣费" : "Due in the next 7 days"
                color: Theme.textSecondary
                font.pixelSize: 11
            }
            ThemeText {
                width: parent.width
                visible: root.panel.rows.length === 0
                text: root.isZh ? "近期没有要扣费的订阅" : "Nothing due soon"
                font.pixelSize: 12
            }
            Repeater {
                model: root.panel.rows

                Item {
                    id: row

                    required property var modelData

                    width: parent ? parent.width : 0
                    height: 18

                    Accessible.role: Accessible.ListItem
                    Accessible.name: modelData.name

                    ThemeText {
                        anchors.left: parent.left
                        anchors.right: days.left
                        anchors.rightMargin: 8
                        anchors.verticalCenter: parent.verticalCenter
                        text: row.modelData.name
                        font.pixelSize: 12
                    }
                    ThemeText {
                        id: days

                        anchors.right: amount.left
                        anchors.rightMargin: 4
                        anchors.verticalCenter: parent.verticalCenter
                        text: row.modelData.daysText
                        color: Theme.beakOrange
                        font.pixelSize: 11
                    }
                    ThemeText {
                        id: amount

                        anchors.right: parent.right
                        width: 66
                        height: parent.height
                        horizontalAlignment: Text.AlignRight
                        verticalAlignment: Text.AlignVCenter
                        text: row.modelData.amountText
                        color: Theme.accent
                        font.pixelSize: 12
                        font.weight: Font.DemiBold
                        fontSizeMode: Text.HorizontalFit
                        minimumPixelSize: 8
                    }
                }
            }
        }
        Rule {}
        Item {
            width: parent.width
            height: 68

            SoftButton {
                anchors.left: parent.left
                anchors.leftMargin: 16
                anchors.verticalCenter: parent.verticalCenter
                focus: true
                prominent: true
                icon.name: "macwindow"
                title: root.isZh ? "打开 Tovarin" : "Open Tovarin"
                onClicked: root.open()
            }
            TextButton {
                anchors.right: parent.right
                anchors.rightMargin: 10
                anchors.verticalCenter: parent.verticalCenter
                title: root.isZh ? "退出" : "Quit"
                onClicked: root.quit()
            }
        }
    }
    Rectangle {
        anchors.fill: parent
        color: "transparent"
        border.width: 1
        border.color: Theme.hairline
    }
}
