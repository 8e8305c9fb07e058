// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Tovarin

FocusScope {
    id: root

    required property SettingsModel settings

    readonly property bool isZh: LocalizationManager.isZh
    readonly property string label: isZh ? "设置" : "Settings"

    implicitWidth: 500
    implicitHeight: 660

    Keys.onPressed: event => middle.scroll(event)

    RowLayout {
        id: header

        anchors.top: parent.top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.topMargin: 18
        anchors.leftMargin: 24
        anchors.rightMargin: 18

        ThemeText {
            Layout.fillWidth: true
            text: root.isZh ? "[ 设置 ]" : "[ SETTINGS ]"
            color: Theme.accent
            font.pixelSize: 15
            font.weight: Font.DemiBold
        }
        IconButton {
            objectName: "close"
            icon.name: "xmark"
            title: root.isZh ? "关闭" : "Close"
            onClicked: root.settings.close()
        }
    }

    ScrollArea {
        id: middle

        objectName: "middle"
        anchors.top: header.bottom
        anchors.topMargin: 8
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 2
        anchors.left: parent.left
        anchors.right: parent.right
        spacing: 24

        EntryButton {
            objectName: "quickPick"
            Layout.fillWidth: true
            focus: true
            icon.name: "square.grid.2x2"
            title: root.isZh ? "快选常见服务" : "Quick add services"
            subtitle: root.isZh ? "国内 / 国际两套清单，勾选即添加"
                                : "China & global lists — check to add"
            onClicked: root.settings.quickPick()
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 10

            ThemeText {
                Layout.fillWidth: true
                text: root.isZh ? "语言" : "Language"
                font.pixelSize: 14
                font.weight: Font.DemiBold
            }
            SegmentedPicker {
                objectName: "language"
                Layout.fillWidth: true
                label: root.isZh ? "语言" : "Language"
                labels: root.settings.langNames
                currentIndex: root.settings.langIndex
                onActivated: index => root.settings.chooseLang(index)
            }
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 10

            ThemeText {
                Layout.fillWidth: true
                text: root.isZh ? "续费提醒" : "Renewal reminders"
                font.pixelSize: 14
                font.weight: Font.DemiBold
            }
            HUDSurface {
                Layout.fillWidth: true
                implicitHeight: reminders.implicitHeight + 28

                ColumnLayout {
                    id: reminders

                    anchors.fill: parent
                    anchors.margins: 14
                    spacing: 14

                    ThemeText {
                        Layout.fillWidth: true
                        text: root.isZh ? "提前几天提醒我" : "Remind me how many days ahead"
                        font.pixelSize: 13
                    }
                    SegmentedPicker {
                        objectName: "days"
                        Layout.fillWidth: true
                        label: root.isZh ? "提前几天提醒我" : "Remind me how many days ahead"
                        labels: root.settings.dayNames
                        currentIndex: root.settings.dayIndex
                        onActivated: index => root.settings.chooseDays(index)
                    }
                    Note {
                        text: root.isZh
                              ? "每次到点会在上午 10:00 发送系统通知，提醒你即将扣费的订阅。"
                              : "A system notification is sent at 10:00 AM to remind you of upcoming charges."
                    }
                    SoftButton {
                        objectName: "test"
                        Layout.fillWidth: true
                        title: root.settings.testSent
                               ? (root.isZh ? "已发送，请留意通知"
                                            : "Sent — check notifications")
                               : root.isZh ? "发送测试通知" : "Send test notification"
                        onClicked: root.settings.sendTest()
                        // Each press sends one, however soon it comes.
                        onDoubleClicked: root.settings.sendTest()
                    }
                    Note {
                        text: root.isZh
                              ? "若收不到通知，请到「系统设置 → 通知 → Tovarin」中允许通知。"
                              : "If you don't see notifications, allow them in System Settings → Notifications → Tovarin."
                    }
                }
            }
        }
    }
    Rectangle {
        anchors.top: middle.top
        width: parent.width
        height: 1
        color: Theme.hairline
        visible: middle.contentY > 0
    }

    component Note: ThemeText {
        Layout.fillWidth: true
        color: Theme.textSecondary
        font.pixelSize: 12
        // The arrows come from another font, whose lines are higher.
        lineHeight: 20
        lineHeightMode: Text.FixedHeight
        wrapMode: Text.Wrap
        maximumLineCount: 4
    }
}
