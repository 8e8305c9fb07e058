// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tovarin

// The sheet in which many services are added at once: ticked first, then confirmed.
FocusScope {
    id: root

    required property QuickPickModel quickPick

    readonly property bool isZh: LocalizationManager.isZh
    readonly property bool picking: quickPick.step === 1
    readonly property string label: picking ? (isZh ? "快速添加常见服务" : "QUICK ADD")
                                            : (isZh ? "确认并调整" : "REVIEW")
    readonly property ScrollArea middle: picking ? cells : rows

    implicitWidth: 540
    implicitHeight: 640
    focus: true

    onPickingChanged: {
        rows.contentY = 0;
        if (activeFocus)
            takeKeyboard();
    }

    // The default action of each step, where the key means nothing else. One that is held from
    // before does not count.
    Keys.onReturnPressed: event => goOnBy(event)
    Keys.onEnterPressed: event => goOnBy(event)
    Keys.onPressed: event => middle.scroll(event)

    function goOnBy(event: KeyEvent) {
        if (!event.isAutoRepeat)
            goOn();
    }

    function goOn() {
        if (picking && quickPick.canConfirm)
            quickPick.goConfirm();
        else if (!picking && quickPick.canSave)
            quickPick.saveAll();
    }

    // To where the step begins: the first amount that is missing. Without one, the sheet has it, as
    // what had it is out of sight.
    function takeKeyboard() {
        if (picking) {
            grid.takeKeyboard();
            return;
        }
        for (let i = 0; i < list.count; ++i) {
            const row = list.itemAt(i) as QuickPickRow;
            if (row && row.lacksAmount) {
                row.field.forceActiveFocus(Qt.TabFocusReason);
                row.field.selectAll();
                return;
            }
        }
    }

    ColumnLayout {
        id: header

        anchors.top: parent.top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: 24
        spacing: 4

        TextButton {
            objectName: "back"
            Layout.leftMargin: -10
            Layout.topMargin: -8
            visible: !root.picking
            title: root.isZh ? "返回" : "Back"
            onClicked: root.quickPick.back()
        }
        ThemeText {
            Layout.fillWidth: true
            text: "[ " + root.label + " ]"
            color: Theme.accent
            font.pixelSize: 15
            font.weight: Font.DemiBold
        }
        ThemeText {
            Layout.fillWidth: true
            text: root.picking ? (root.isZh ? "勾选你在用的，不必一个个手填"
                                            : "Check what you use — skip typing each one")
                               : (root.isZh ? "可改金额；选「其他」需自行填写"
                                            : "Edit amounts; fill in price for「Other」")
            color: Theme.textSecondary
            font.pixelSize: 12
        }
        SegmentedPicker {
            objectName: "region"
            Layout.fillWidth: true
            Layout.topMargin: 10
            visible: root.picking
            label: root.isZh ? "地区" : "Region"
            labels: root.quickPick.regionNames
            currentIndex: root.quickPick.regionIndex
            onActivated: index => {
                root.quickPick.chooseRegion(index);
                cells.contentY = 0;
            }
        }
    }
    ScrollArea {
        id: cells

        objectName: "cells"
        anchors.top: header.bottom
        anchors.topMargin: 10
        anchors.bottom: footer.top
        anchors.left: parent.left
        anchors.right: parent.right
        visible: root.picking

        QuickPickGrid {
            id: grid

            objectName: "grid"
            Layout.fillWidth: true
            focus: true
            quickPick: root.quickPick
            // How far there is to scroll is known a little later.
            onGrown: cell => Qt.callLater(cells.reveal, cell)
        }
    }
    ScrollArea {
        id: rows

        objectName: "rows"
        anchors.top: header.bottom
        anchors.topMargin: 8
        anchors.bottom: footer.top
        anchors.left: parent.left
        anchors.right: parent.right
        visible: !root.picking

        Column {
            id: column

            Layout.fillWidth: true

            Accessible.role: Accessible.List
            Accessible.name: root.label

            Repeater {
                id: list

                model: root.quickPick.rows

                QuickPickRow {
                    objectName: "row" + index
                    width: column.width
                    onEdited: amount => root.quickPick.setAmount(index, amount)
                }
            }
        }
    }
    Rectangle {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: root.middle.top
        height: 1
        color: Theme.hairline
        visible: root.middle.contentY > 0
    }
    SheetFooter {
        id: footer

        SoftButton {
            objectName: "skip"
            title: root.isZh ? "跳过" : "Skip"
            onClicked: root.quickPick.skip()
        }
        Item {
            Layout.fillWidth: true
        }
        SoftButton {
            objectName: "continue"
            visible: root.picking
            prominent: true
            enabled: root.quickPick.canConfirm
            icon.name: "arrow.right"
            title: root.isZh ? "下一步" : "Continue"
            onClicked: root.goOn()
        }
        SoftButton {
            objectName: "add"
            visible: !root.picking
            prominent: true
            enabled: root.quickPick.canSave
            icon.name: "checkmark"
            title: root.isZh ? "添加 " + root.quickPick.count + " 项"
                             : "Add " + root.quickPick.count
            onClicked: root.goOn()
        }
    }
}
