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

    // Where the keyboard was before F10 took it to the menus; it goes back there when they close.
    property Item before: null

    function leave() {
        for (let i = 0; i < count; ++i) {
            if (menuAt(i).visible)
                return;
        }
        const item = before;
        before = null;
        // It isn't, behind a sheet that opened meanwhile.
        if (item && item.enabled)
            item.forceActiveFocus(Qt.PopupFocusReason);
    }

    // The key that opens the first menu, as on most desktops; the arrow keys go on from there.
    Shortcut {
        sequence: "F10"
        onActivated: {
            const first = root.itemAt(0) as T.MenuBarItem;
            root.before = root.Window.activeFocusItem;
            first.triggered();
            first.menu.currentIndex = 0;
        }
    }

    delegate: T.MenuBarItem {
        id: item

        implicitWidth: implicitContentWidth + leftPadding + rightPadding
        implicitHeight: menuBar ? menuBar.height : 0
        leftPadding: 10
        rightPadding: 10
        font.family: Theme.fontFamily
        font.pixelSize: 13
        hoverEnabled: enabled

        Connections {
            target: item.menu

            // Bound components cannot be made from others in Qt 6.4.
            // qmllint disable unqualified
            // Perhaps for the one beside it.
            function onClosed() {
                Qt.callLater(root.leave);
            }
            // qmllint enable unqualified
        }

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
