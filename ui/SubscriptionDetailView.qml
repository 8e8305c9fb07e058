// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tovarin

// The sheet that shows one subscription in full.
FocusScope {
    id: root

    required property SubscriptionDetailModel detail

    readonly property bool isZh: LocalizationManager.isZh
    readonly property string label: isZh ? "详情" : "Details"

    implicitWidth: 460
    implicitHeight: Math.min(620, header.height + middle.implicitHeight + footer.height)
    focus: true

    Keys.onPressed: event => middle.scroll(event)

    Item {
        id: header

        width: parent.width
        height: 56

        ThemeText {
            anchors.left: parent.left
            anchors.right: close.left
            anchors.leftMargin: 24
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            text: root.detail.title
            color: Theme.accent
            font.pixelSize: 15
            font.weight: Font.DemiBold
        }
        IconButton {
            id: close

            objectName: "close"
            anchors.right: parent.right
            anchors.rightMargin: 16
            anchors.verticalCenter: parent.verticalCenter
            focus: true
            symbolSize: 14
            icon.name: "xmark"
            title: root.isZh ? "关闭" : "Close"
            onClicked: root.detail.dismiss()
        }
    }

    ScrollArea {
        id: middle

        objectName: "middle"
        anchors.top: header.bottom
        anchors.bottom: footer.top
        width: parent.width
        spacing: 16

        RowLayout {
            Layout.fillWidth: true
            spacing: 14

            SubscriptionIconView {
                objectName: "icon"
                Layout.alignment: Qt.AlignTop
                logoID: root.detail.logoID
                letter: root.detail.avatarLetter
                size: 52
                cornerRadius: 13
                dimmed: !root.detail.isActive
            }
            ThemeText {
                objectName: "name"
                Layout.fillWidth: true
                text: root.detail.name
                font.pixelSize: 20
                font.weight: Font.DemiBold
                wrapMode: Text.Wrap
                maximumLineCount: 3
            }
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 2

            ThemeText {
                objectName: "amount"
                Layout.fillWidth: true
                Layout.preferredHeight: 48
                text: root.detail.amountText
                font.family: Theme.tabularFamily
                font.pixelSize: 40
                font.weight: Font.Bold
                fontSizeMode: Text.HorizontalFit
                minimumPixelSize: 20
                verticalAlignment: Text.AlignVCenter
            }
            ThemeText {
                objectName: "date"
                Layout.fillWidth: true
                visible: text !== ""
                text: root.detail.dateText
                color: Theme.textSecondary
                font.pixelSize: 13
            }
        }
        RowLayout {
            Layout.fillWidth: true
            spacing: 10

            TileButton {
                objectName: "edit"
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                icon.name: "pencil"
                title: root.detail.editTitle
                onClicked: root.detail.edit()
            }
            TileButton {
                objectName: "toggle"
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                icon.name: root.detail.toggleSymbol
                title: root.detail.toggleTitle
                onClicked: root.detail.toggle()
            }
            TileButton {
                objectName: "copy"
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                icon.name: "doc.on.doc"
                title: root.detail.copyTitle
                onClicked: root.detail.copy()
            }
        }
        HUDSurface {
            Layout.fillWidth: true
            implicitHeight: rows.implicitHeight + 8

            Column {
                id: rows

                x: 16
                y: 4
                width: parent.width - 32

                Repeater {
                    model: root.detail.rows

                    DetailRow {
                        required property int index
                        required property var modelData

                        width: rows.width
                        label: modelData.label
                        value: modelData.value
                        hasRule: index > 0
                    }
                }
            }
        }
    }

    SheetFooter {
        id: footer

        SoftButton {
            objectName: "delete"
            Layout.fillWidth: true
            destructive: true
            icon.name: "trash"
            title: root.detail.deleteTitle
            onClicked: root.detail.deleteSubscription()
        }
    }
    Rectangle {
        anchors.top: header.bottom
        width: parent.width
        height: 1
        color: Theme.hairline
        visible: middle.contentY > 0
    }
}
