// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Tovarin

HUDSurface {
    id: root

    required property ContentModel content
    required property BillScanModel bills
    required property ContentSheets sheets

    readonly property bool isZh: LocalizationManager.isZh
    readonly property bool isWide: width >= 640

    cornerRadius: 18
    implicitHeight: grid.implicitHeight + 48

    GridLayout {
        id: grid

        anchors.fill: parent
        anchors.margins: 24
        columns: root.isWide ? 2 : 1
        columnSpacing: 32
        rowSpacing: 20

        ColumnLayout {
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            spacing: 6

            ThemeText {
                Layout.fillWidth: true
                text: root.isZh ? "[ 每月订阅支出 ]" : "[ MONTHLY SPEND ]"
                color: Theme.accent
                font.pixelSize: 12
                font.weight: Font.DemiBold
                font.letterSpacing: 1
            }
            ThemeText {
                Layout.fillWidth: true
                text: root.content.monthlySpend
                font.pixelSize: 44
                font.weight: Font.DemiBold
                // Without a width yet, it would try the smallest size.
                fontSizeMode: width > 0 ? Text.HorizontalFit : Text.FixedSize
                minimumPixelSize: 20
            }
            ThemeText {
                Layout.fillWidth: true
                text: root.isZh ? "本地数据 · CNY" : "LOCAL DATA · CNY"
                color: Theme.textSecondary
                font.pixelSize: 11
                font.letterSpacing: 0.5
            }
        }

        RowLayout {
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            spacing: 20

            SummaryFigure {
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                caption: root.isZh ? "每年支出" : "Yearly"
                figure: root.content.yearlySpend
            }
            Rectangle {
                Layout.preferredWidth: 1
                Layout.preferredHeight: 36
                color: Theme.hairline
            }
            SummaryFigure {
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                caption: root.isZh ? "进行中" : "Active"
                figure: root.content.activeCount
            }
            Rectangle {
                Layout.preferredWidth: 1
                Layout.preferredHeight: 36
                color: Theme.hairline
            }
            SummaryFigure {
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                caption: root.isZh ? "近 7 天待扣" : "Due in 7d"
                figure: root.content.dueCount
            }
        }

        RowLayout {
            Layout.columnSpan: root.isWide ? 2 : 1
            Layout.fillWidth: true
            spacing: 10

            SoftButton {
                objectName: "add"
                prominent: true
                icon.name: "plus"
                title: root.isZh ? "添加订阅" : "Add"
                onClicked: root.sheets.showEditor()
            }
            SoftButton {
                objectName: "quickPick"
                icon.name: "square.grid.2x2"
                title: root.isZh ? "快选" : "Quick pick"
                onClicked: root.sheets.showQuickPick()
            }
            SoftButton {
                objectName: "scan"
                icon.name: "text.viewfinder"
                enabled: !root.bills.isScanning
                title: root.bills.isScanning
                       ? (root.isZh ? "识别中 " : "Scanning ") + root.bills.filesDone + "/"
                         + root.bills.filesTotal
                       : root.isZh ? "扫描识别" : "Scan"
                onClicked: root.bills.pressScan()
            }
            // Bound components cannot be made from others in Qt 6.4.
            // qmllint disable unqualified
            Loader {
                Layout.fillWidth: true
                Layout.leftMargin: 4
                visible: active
                active: root.bills.foundNothing
                sourceComponent: ThemeText {
                    text: root.isZh ? "没有识别到有效内容" : "Nothing recognized"
                    color: Theme.textSecondary
                    font.pixelSize: 13
                }
            }
            // qmllint enable unqualified
        }
    }
}
