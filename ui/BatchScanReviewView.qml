// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tovarin

// The sheet in which the drafts of several bills are looked through.
FocusScope {
    id: root

    required property BatchScanReviewModel review

    readonly property bool isZh: LocalizationManager.isZh
    readonly property string label: isZh ? "批量识别结果" : "Batch scan"
    readonly property bool isEmpty: review.count === 0

    implicitWidth: 560
    // As high as its rows, with room for a warning; it does not change under the user's hands.
    implicitHeight: Math.max(320, Math.min(600, 222 + 60 * review.count))
    focus: true

    Keys.onPressed: event => middle.scroll(event)

    Item {
        id: header

        width: parent.width
        height: 92

        ThemeText {
            anchors.left: parent.left
            anchors.right: counter.left
            anchors.leftMargin: 24
            anchors.rightMargin: 12
            y: 24
            text: root.review.title
            color: Theme.accent
            font.pixelSize: 15
            font.weight: Font.DemiBold
        }
        ThemeText {
            id: counter

            objectName: "counter"
            anchors.right: parent.right
            anchors.rightMargin: 24
            y: 24
            text: root.review.counterText
            font.pixelSize: 15
            font.weight: Font.DemiBold
        }
        ThemeText {
            x: 24
            y: 54
            width: parent.width - 48
            text: root.review.subtitle
            color: Theme.textSecondary
            font.pixelSize: 13
        }
    }
    ThemeText {
        objectName: "empty"
        anchors.top: header.bottom
        anchors.bottom: footer.top
        x: 24
        width: parent.width - 48
        visible: root.isEmpty
        text: root.review.emptyText
        color: Theme.textSecondary
        font.pixelSize: 14
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
    }
    ScrollArea {
        id: middle

        objectName: "middle"
        anchors.top: header.bottom
        anchors.bottom: footer.top
        width: parent.width
        visible: !root.isEmpty

        HUDSurface {
            Layout.fillWidth: true
            implicitHeight: rows.implicitHeight

            Column {
                id: rows

                x: 12
                width: parent.width - 24

                Accessible.role: Accessible.List
                Accessible.name: root.label

                Repeater {
                    model: root.review

                    ScanDraftRow {
                        objectName: "row" + index
                        width: rows.width
                        hasRule: index > 0
                        onIncluded: isIncluded => root.review.setIncluded(index, isIncluded)
                        onNamed: name => root.review.setName(index, name)
                        onPriced: amount => root.review.setAmount(index, amount)
                    }
                }
            }
        }
    }

    SheetFooter {
        id: footer

        Item {
            Layout.fillWidth: true
        }
        SoftButton {
            objectName: "cancel"
            focus: root.isEmpty
            title: root.review.cancelTitle
            onClicked: root.review.cancel()
        }
        SoftButton {
            objectName: "confirm"
            prominent: true
            enabled: root.review.canConfirm
            title: root.review.confirmTitle
            onClicked: root.review.save()
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
