// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Tovarin

// A service to be added, with what it costs to be changed.
Item {
    id: root

    required property int index
    required property string name
    required property string icon
    required property string logoID
    required property real amount
    required property string cycleLabel
    required property bool lacksAmount

    readonly property bool isZh: LocalizationManager.isZh
    readonly property alias field: field

    signal edited(real amount)

    implicitHeight: 64

    Accessible.role: Accessible.ListItem
    Accessible.name: name

    Rectangle {
        width: parent.width
        height: 1
        color: Theme.hairline
        opacity: 0.6
        visible: root.index > 0
    }
    RowLayout {
        anchors.fill: parent
        spacing: 14

        ServiceLogoView {
            logoID: root.logoID
            icon: root.icon
            size: 38
            cornerRadius: 10
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 1

            ThemeText {
                Layout.fillWidth: true
                text: root.name
                font.pixelSize: 14
                font.weight: Font.DemiBold
            }
            ThemeText {
                objectName: "hint"
                Layout.fillWidth: true
                visible: root.lacksAmount
                text: root.isZh ? "请填金额" : "Enter amount"
                color: Theme.beakOrange
                font.pixelSize: 12
            }
        }
        NumberField {
            id: field

            objectName: "amount"
            label: root.name
            value: root.amount
            onEdited: typed => root.edited(typed)
        }
        ThemeText {
            Layout.preferredWidth: 60
            text: root.cycleLabel
            color: Theme.textSecondary
            font.pixelSize: 12
        }
    }
}
