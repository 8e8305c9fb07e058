// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

Column {
    id: root

    required property ContentSheets sheets

    readonly property bool isZh: LocalizationManager.isZh

    function takeKeyboard() {
        quickPick.forceActiveFocus(Qt.TabFocusReason);
    }

    spacing: 8
    topPadding: 64
    bottomPadding: 64

    ThemeText {
        width: root.width
        horizontalAlignment: Text.AlignHCenter
        text: root.isZh ? "还没有任何订阅记录" : "No subscriptions yet"
        font.pixelSize: 16
        font.weight: Font.DemiBold
    }
    ThemeText {
        width: root.width
        horizontalAlignment: Text.AlignHCenter
        text: root.isZh ? "从常见服务快选开始，或批量扫描账单截图"
                        : "Start with quick pick, or batch-scan billing screenshots"
        color: Theme.textSecondary
        font.pixelSize: 13
    }
    Item {
        width: 1
        height: 10
    }
    Row {
        anchors.horizontalCenter: parent.horizontalCenter
        spacing: 10

        SoftButton {
            id: quickPick

            objectName: "emptyQuickPick"
            icon.name: "square.grid.2x2"
            title: root.isZh ? "快选常见服务" : "Quick pick"
            onClicked: root.sheets.showQuickPick()
        }
        SoftButton {
            objectName: "emptyAdd"
            icon.name: "plus"
            title: root.isZh ? "手动添加" : "Add manually"
            onClicked: root.sheets.showEditor()
        }
    }
}
