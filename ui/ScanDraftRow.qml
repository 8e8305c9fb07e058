// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Tovarin

// A scanned draft, to be ticked and corrected.
Item {
    id: root

    required property int index
    required property bool isIncluded
    required property string name
    required property bool lacksName
    required property real amount
    required property string cycleLabel
    property bool hasRule: true

    readonly property bool isZh: LocalizationManager.isZh
    readonly property string nameOrNone: lacksName ? (isZh ? "未识别名称" : "No name") : name

    signal included(bool isIncluded)
    signal named(string name)
    signal priced(real amount)

    implicitHeight: pieces.implicitHeight + 24

    Accessible.role: Accessible.ListItem
    Accessible.name: nameOrNone

    Rectangle {
        width: parent.width
        height: 1
        visible: root.hasRule
        color: Theme.hairline
        opacity: 0.6
    }
    RowLayout {
        id: pieces

        y: 12
        width: parent.width
        spacing: 12

        CheckBox {
            objectName: "check"
            Layout.alignment: Qt.AlignTop
            Layout.topMargin: 4
            focus: root.index === 0
            label: root.nameOrNone
            checked: root.isIncluded
            onToggled: root.included(checked)
        }
        ColumnLayout {
            Layout.fillWidth: true
            Layout.alignment: Qt.AlignTop
            spacing: 4

            TextField {
                objectName: "name"
                Layout.fillWidth: true
                label: root.isZh ? "名称" : "Name"
                placeholderText: root.isZh ? "名称" : "Name"
                text: root.name
                onTextChanged: root.named(text)
            }
            ThemeText {
                objectName: "warning"
                Layout.fillWidth: true
                visible: root.lacksName
                text: root.isZh ? "未识别名称" : "No name"
                color: Theme.textTertiary
                font.pixelSize: 11
            }
        }
        NumberField {
            objectName: "amount"
            Layout.alignment: Qt.AlignTop
            Layout.fillWidth: true
            Layout.maximumWidth: 120
            Layout.minimumWidth: 72
            label: root.isZh ? "金额" : "Amount"
            value: root.amount
            onEdited: amount => root.priced(amount)
        }
        ThemeText {
            objectName: "cycle"
            Layout.alignment: Qt.AlignTop
            Layout.preferredWidth: 64
            Layout.preferredHeight: 36
            text: root.cycleLabel
            color: Theme.textSecondary
            font.pixelSize: 12
            horizontalAlignment: Text.AlignRight
            verticalAlignment: Text.AlignVCenter
        }
    }
}
