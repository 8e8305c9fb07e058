// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// The controls, each on an entry of its own.
Rectangle {
    id: root

    readonly property bool isZh: LocalizationManager.isZh

    implicitWidth: 420
    implicitHeight: entries.implicitHeight + 400
    color: "#0F0F11"

    Column {
        id: entries

        Entry {
            title: "SoftButton, prominent"

            SoftButton {
                prominent: true
                icon.name: "plus"
                title: root.isZh ? "添加订阅" : "Add"
            }
        }
        Entry {
            title: "SoftButton"

            SoftButton {
                icon.name: "square.grid.2x2"
                title: root.isZh ? "快选" : "Quick pick"
            }
        }
        Entry {
            title: "SoftButton, destructive"

            SoftButton {
                destructive: true
                icon.name: "trash"
                title: root.isZh ? "删除" : "Delete"
            }
        }
        Entry {
            title: "TextButton"

            TextButton {
                title: root.isZh ? "跳过" : "Skip"
            }
        }
        Entry {
            title: "TileButton"

            TileButton {
                icon.name: "pencil"
                title: root.isZh ? "编辑" : "Edit"
            }
        }
        Entry {
            title: "FoldButton"

            FoldButton {
                icon.name: "calendar"
                title: root.isZh ? "首次扣费" : "First charge"
                value: "2025/03/12"
            }
        }
        Entry {
            title: "FoldButton, unfolded"

            FoldButton {
                icon.name: "calendar"
                title: root.isZh ? "首次扣费" : "First charge"
                value: "2025/03/12"
                unfolded: true
            }
        }
        Entry {
            title: "DayButton"

            DayButton {
                title: root.isZh ? "2025年3月12日星期三" : "Wednesday, March 12, 2025"
                number: "12"
                isCurrentMonth: true
                isSelected: false
                isToday: false
            }
        }
        Entry {
            title: "DayButton, today"

            DayButton {
                title: root.isZh ? "2025年3月12日星期三" : "Wednesday, March 12, 2025"
                number: "12"
                isCurrentMonth: true
                isSelected: false
                isToday: true
            }
        }
        Entry {
            title: "DayButton, selected"

            DayButton {
                title: root.isZh ? "2025年3月12日星期三" : "Wednesday, March 12, 2025"
                number: "12"
                isCurrentMonth: true
                isSelected: true
                isToday: false
            }
        }
        Entry {
            title: "DayButton, of another month"

            DayButton {
                title: root.isZh ? "2025年4月1日星期二" : "Tuesday, April 1, 2025"
                number: "1"
                isCurrentMonth: false
                isSelected: false
                isToday: false
            }
        }
        Entry {
            title: "IconButton"
            openHeight: 96

            IconButton {
                icon.name: "gearshape.fill"
                title: root.isZh ? "设置" : "Settings"
            }
        }
        Entry {
            title: "CellButton"

            CellButton {
                title: root.isZh ? "爱奇艺 VIP" : "iQIYI VIP"
                contentItem: ThemeText {
                    text: root.isZh ? "爱奇艺 VIP" : "iQIYI VIP"
                    verticalAlignment: Text.AlignVCenter
                }
            }
        }
        Entry {
            title: "CellButton, ticked"

            CellButton {
                title: root.isZh ? "爱奇艺 VIP" : "iQIYI VIP"
                ticked: true
                contentItem: ThemeText {
                    text: root.isZh ? "爱奇艺 VIP" : "iQIYI VIP"
                    verticalAlignment: Text.AlignVCenter
                }
            }
        }
        Entry {
            title: "TextField, empty"

            TextField {
                label: root.isZh ? "名称" : "Name"
                placeholderText: root.isZh ? "如 ChatGPT Plus" : "e.g. ChatGPT Plus"
            }
        }
        Entry {
            title: "TextField, filled"
            openHeight: 190

            TextField {
                label: root.isZh ? "名称" : "Name"
                text: root.isZh ? "晨跑俱乐部的长名字一直写下去" : "A name that goes on for longer than the field"
            }
        }
        Entry {
            title: "NumberField"

            NumberField {
                label: root.isZh ? "金额" : "Amount"
                value: 1234.5
            }
        }
        Entry {
            title: "TextArea"

            TextArea {
                label: root.isZh ? "备注" : "Notes"
                placeholderText: root.isZh ? "可选备注" : "Optional notes"
            }
        }
        Entry {
            title: "Picker"
            openHeight: 190

            Picker {
                label: root.isZh ? "周期" : "Cycle"
                model: root.isZh ? ["每周", "每月", "每季", "每年"]
                                 : ["Weekly", "Monthly", "Quarterly", "Yearly"]
                currentIndex: 1
            }
        }
        Entry {
            title: "SegmentedPicker"

            SegmentedPicker {
                label: root.isZh ? "类型" : "Type"
                labels: root.isZh ? ["订阅续费", "单次买断"] : ["Subscription", "One-time"]
                currentIndex: 0
                onActivated: index => currentIndex = index
            }
        }
        Entry {
            title: "SegmentedPicker, none chosen"

            SegmentedPicker {
                label: root.isZh ? "提前几天提醒我" : "Remind me how many days ahead"
                labels: root.isZh ? ["当天", "1 天", "2 天", "3 天"] : ["Same day", "1d", "2d", "3d"]
                onActivated: index => currentIndex = index
            }
        }
        Entry {
            title: "Switch, off"

            Switch {
                label: root.isZh ? "仍在使用" : "Still active"
                text: label
            }
        }
        Entry {
            title: "Switch, on"

            Switch {
                label: root.isZh ? "仍在使用" : "Still active"
                checked: true
            }
        }
        Entry {
            title: "CheckBox, off"

            CheckBox {
                label: root.isZh ? "添加" : "Include"
            }
        }
        Entry {
            title: "CheckBox, on"

            CheckBox {
                label: root.isZh ? "添加" : "Include"
                text: label
                checked: true
            }
        }
        Entry {
            title: "Menu"
            openHeight: 170

            SoftButton {
                id: opener

                title: root.isZh ? "菜单" : "Menu"
                onClicked: menu.popup(opener, 0, height + 4)

                Menu {
                    id: menu

                    MenuItem {
                        text: root.isZh ? "隐藏 Tovarin" : "Hide Tovarin"
                        keys: "Ctrl+H"
                    }
                    MenuSeparator {}
                    MenuItem {
                        text: root.isZh ? "剪切" : "Cut"
                        enabled: false
                    }
                    MenuItem {
                        text: root.isZh ? "退出 Tovarin" : "Quit Tovarin"
                        keys: "Ctrl+Q"
                    }
                }
            }
        }
        Entry {
            title: "SubscriptionRow"

            SubscriptionRow {
                implicitWidth: 400
                index: 0
                pressable: true
                name: "Netflix"
                tag: ""
                subtitle: root.isZh ? "影音 · 每月 · 2025/07/06 扣费" : "Video · Monthly · Charges 2025/07/06"
                amountText: "-$15.49"
                monthlyText: root.isZh ? "≈¥111.53/月" : "≈$15.49/mo"
                isActive: true
                logoID: "netflix"
                avatarLetter: "N"
            }
        }
        Entry {
            title: "ScrollBar"

            ScrollBar {
                implicitHeight: 90
                size: 0.4
            }
        }
    }

    // Opened by whoever draws the pictures, or by a click on what is free of controls.
    Sheet {
        id: sheet

        objectName: "sheet"
        label: root.isZh ? "设置" : "Settings"
        preferredWidth: 360
        preferredHeight: 240

        Column {
            anchors.centerIn: parent
            spacing: 16

            TextField {
                focus: true
                label: root.isZh ? "名称" : "Name"
                placeholderText: label
            }
            SoftButton {
                prominent: true
                title: root.isZh ? "保存" : "Save"
                onClicked: sheet.close()
            }
        }
    }
    TapHandler {
        onTapped: sheet.open()
    }
}
