// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Tovarin

// One of several things, which a list shows when it is asked for. The model is a list of texts.
T.ComboBox {
    id: root

    // What is chosen here, as a screen reader says it.
    required property string label

    implicitWidth: 160
    implicitHeight: 36
    leftPadding: 12
    rightPadding: 32
    focusPolicy: Qt.StrongFocus
    hoverEnabled: enabled
    opacity: enabled ? 1 : 0.45
    font.family: Theme.fontFamily
    font.pixelSize: 14

    Accessible.name: label
    Accessible.description: displayText
    Accessible.onPressAction: {
        if (enabled)
            popup.open();
    }
    Keys.onReturnPressed: event => openBy(event)
    Keys.onEnterPressed: event => openBy(event)
    Keys.onReleased: event => {
        // The key that opened the list is not the one that chooses in it.
        if (event.key === openingKey && !event.isAutoRepeat) {
            openingKey = 0;
            event.accepted = true;
        }
    }

    property int openingKey: 0

    // While the list is open, the keys are its own.
    function openBy(event: KeyEvent) {
        if (popup.visible) {
            event.accepted = false;
        } else if (!event.isAutoRepeat) {
            openingKey = event.key;
            popup.open();
        }
    }

    background: FieldGround {
        hovered: root.hovered
        pressed: root.down
        focused: root.visualFocus || root.popup.visible
    }
    contentItem: ThemeText {
        text: root.displayText
        font: root.font
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
    indicator: Symbol {
        x: root.width - width - 12
        y: (root.height - height) / 2
        name: "chevron.down"
        size: 12
        color: Theme.textSecondary
    }
    delegate: T.ItemDelegate {
        id: line

        required property int index
        required property string modelData

        width: ListView.view ? ListView.view.width : 0
        implicitWidth: implicitContentWidth + leftPadding + rightPadding
        implicitHeight: 32
        leftPadding: 10
        rightPadding: 10
        hoverEnabled: enabled
        highlighted: root.highlightedIndex === index

        Accessible.role: Accessible.ListItem
        Accessible.name: modelData
        Accessible.onPressAction: clicked()

        background: Rectangle {
            radius: 6
            color: line.down ? Qt.darker(Theme.accent, 1.2) : Theme.accent
            visible: line.highlighted || line.down
        }
        contentItem: RowLayout {
            spacing: 8

            ThemeText {
                Layout.fillWidth: true
                text: line.modelData
                color: line.highlighted ? Theme.onAccent : Theme.text
                font.pixelSize: 13
                Accessible.ignored: true
            }
            Symbol {
                opacity: line.index === root.currentIndex ? 1 : 0
                name: "checkmark"
                size: 12
                color: line.highlighted ? Theme.onAccent : Theme.accent
            }
        }
    }
    popup: T.Popup {
        y: root.height + 4
        width: root.width
        implicitHeight: Math.min(contentItem.implicitHeight + 2 * padding, 320)
        padding: 5
        margins: 6

        background: MenuGround {}
        contentItem: ListView {
            implicitHeight: contentHeight
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            model: root.popup.visible ? root.delegateModel : null
            currentIndex: root.highlightedIndex
            Accessible.role: Accessible.List
            Accessible.name: root.label

            ScrollBar.vertical: ScrollBar {}
        }
    }
}
