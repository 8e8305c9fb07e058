// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Tovarin

// A service to tick, and while it is ticked, its tiers to choose from.
Item {
    id: root

    required property int index
    required property string name
    required property string priceLabel
    required property string icon
    required property string logoID
    required property bool isTicked
    required property bool isInStore
    required property bool canBePicked
    required property list<string> tierLabels
    required property int tierIndex

    // Whether Tab stops at it.
    property bool isCurrent: false

    readonly property bool hasTiers: isTicked && tierLabels.length > 0
    readonly property alias button: button

    signal toggled
    signal tierChosen(int tier)

    implicitHeight: 64 + (hasTiers ? tiers.height + 10 : 0)

    CellButton {
        id: button

        objectName: "button"
        anchors.fill: parent
        bottomPadding: padding + (root.hasTiers ? tiers.height + 10 : 0)
        title: root.name
        ticked: root.isTicked
        enabled: root.canBePicked
        // A click leaves the keyboard where it is: Return then goes on, instead of taking the tick
        // away. The one that keeps the keyboard may not be passed by, says Qt.
        focusPolicy: root.isCurrent || activeFocus ? Qt.TabFocus : Qt.NoFocus
        onClicked: root.toggled()

        // Qt tells no screen reader that a control is disabled.
        Accessible.description: enabled ? root.priceLabel
                                        : LocalizationManager.isZh ? root.priceLabel + "，已添加"
                                                                   : root.priceLabel + ", already added"

        contentItem: RowLayout {
            spacing: 10

            ServiceLogoView {
                logoID: root.logoID
                icon: root.icon
                size: 36
                cornerRadius: 10
                selected: root.isTicked
            }
            ColumnLayout {
                Layout.fillWidth: true
                spacing: 1

                ThemeText {
                    Layout.fillWidth: true
                    text: root.name
                    font.pixelSize: 13
                    font.weight: Font.DemiBold
                    Accessible.ignored: true
                }
                ThemeText {
                    Layout.fillWidth: true
                    text: root.priceLabel
                    color: root.isTicked ? Theme.accent : Theme.textSecondary
                    font.pixelSize: 12
                    Accessible.ignored: true
                }
            }
            Symbol {
                objectName: "marker"
                Layout.alignment: Qt.AlignTop
                name: root.isTicked ? "checkmark.circle.fill"
                                    : root.isInStore ? "minus.circle" : ""
                size: 16
                color: root.isTicked ? Theme.accent : Theme.textSecondary
            }
        }
    }
    Picker {
        id: tiers

        objectName: "tiers"
        x: 10
        y: root.height - height - 10
        width: root.width - 20
        visible: root.hasTiers
        label: root.name
        model: root.tierLabels
        currentIndex: root.tierIndex
        focusPolicy: root.isCurrent || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
        onActivated: index => root.tierChosen(index)
        // Other labels begin at the first of them.
        onModelChanged: currentIndex = Qt.binding(() => root.tierIndex)
    }
}
