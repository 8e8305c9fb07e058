// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Tovarin

// The menus of a window, along its top.
T.MenuBar {
    id: root

    implicitWidth: contentWidth
    implicitHeight: 32
    leftPadding: Theme.pageMargin - 10

    delegate: T.MenuBarItem {
        id: item

        implicitWidth: implicitContentWidth + leftPadding + rightPadding
        implicitHeight: menuBar ? menuBar.height : 0
        leftPadding: 10
        rightPadding: 10
        font.family: Theme.fontFamily
        font.pixelSize: 13
        hoverEnabled: enabled

        Accessible.name: text
        Accessible.onPressAction: {
            if (menu)
                menu.popup(item, 0, item.height);
        }

        background: Item {
            Rectangle {
                anchors.fill: parent
                anchors.topMargin: 4
                anchors.bottomMargin: 4
                radius: 6
                color: Qt.alpha(Theme.text, item.down || item.highlighted ? 0.14 : 0.07)
                visible: item.hovered || item.down || item.highlighted
            }
        }
        contentItem: ThemeText {
            text: item.text
            color: item.hovered || item.down || item.highlighted ? Theme.text : Theme.textSecondary
            font: item.font
            verticalAlignment: Text.AlignVCenter
            Accessible.ignored: true
        }
    }
    contentItem: Row {
        Repeater {
            model: root.contentModel
        }
    }
}
