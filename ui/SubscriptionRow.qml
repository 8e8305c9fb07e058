// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Tovarin

// A subscription in the list. It can be pressed where something opens by it.
T.AbstractButton {
    id: root

    required property int index
    required property string name
    required property string tag
    required property string subtitle
    required property string amountText
    required property string monthlyText
    required property bool isActive
    required property string logoID
    required property string avatarLetter

    property bool pressable: false

    implicitHeight: 68
    leftPadding: Theme.pageMargin
    rightPadding: Theme.pageMargin
    focusPolicy: pressable ? Qt.StrongFocus : Qt.NoFocus
    hoverEnabled: pressable

    Accessible.role: Accessible.ListItem
    Accessible.name: name
    Accessible.onPressAction: {
        if (pressable)
            clicked();
    }
    Keys.onReturnPressed: event => press(event)
    Keys.onEnterPressed: event => press(event)

    // Once for a key that is held.
    function press(event: KeyEvent) {
        if (pressable && !event.isAutoRepeat)
            clicked();
    }

    background: Item {
        Rectangle {
            x: Theme.pageMargin
            width: parent.width - 2 * Theme.pageMargin
            height: 1
            color: Theme.hairline
            opacity: 0.6
            visible: root.index > 0
        }
        Rectangle {
            anchors.fill: parent
            anchors.leftMargin: Theme.pageMargin - 12
            anchors.rightMargin: Theme.pageMargin - 12
            anchors.topMargin: 3
            anchors.bottomMargin: 2
            visible: root.pressable && (root.hovered || root.down || root.visualFocus)
            radius: 12
            color: Qt.alpha(Theme.text, root.down ? 0.1 : root.hovered ? 0.05 : 0)
            border.width: root.visualFocus ? 2 : 0
            border.color: Theme.accent
        }
    }
    contentItem: RowLayout {
        spacing: 14

        SubscriptionIconView {
            logoID: root.logoID
            letter: root.avatarLetter
            size: 42
            dimmed: !root.isActive
        }
        ColumnLayout {
            Layout.fillWidth: true
            spacing: 3

            RowLayout {
                spacing: 8

                ThemeText {
                    Layout.fillWidth: true
                    Layout.maximumWidth: Math.ceil(implicitWidth)
                    text: root.name
                    color: root.isActive ? Theme.text : Theme.textSecondary
                    font.pixelSize: 15
                    font.weight: Font.DemiBold
                }
                Tag {
                    visible: word !== ""
                    word: root.tag
                    tint: root.isActive ? Theme.accent : Theme.textTertiary
                }
                Item {
                    Layout.fillWidth: true
                }
            }
            ThemeText {
                Layout.fillWidth: true
                text: root.subtitle
                color: Theme.textSecondary
                font.pixelSize: 12
            }
        }
        ColumnLayout {
            Layout.maximumWidth: root.width / 2
            spacing: 3

            ThemeText {
                Layout.maximumWidth: root.width / 2
                Layout.alignment: Qt.AlignRight
                text: root.amountText
                color: Theme.accent
                font.family: Theme.tabularFamily
                font.pixelSize: 15
                font.weight: Font.DemiBold
            }
            ThemeText {
                Layout.alignment: Qt.AlignRight
                visible: text !== ""
                text: root.monthlyText
                color: Theme.textTertiary
                font.pixelSize: 11
            }
        }
        Symbol {
            name: "chevron.right"
            size: 13
            color: Theme.textTertiary
        }
    }
}
