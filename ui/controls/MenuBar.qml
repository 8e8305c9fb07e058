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

    // Where the keyboard was before it went to the menus; it goes back there when they close.
    property Item before: null
    property bool wasEntered: false
    // Whether the last press on a title closed a menu.
    property bool closedByTitle: false

    readonly property bool isOpen: {
        for (let i = 0; i < count; ++i) {
            if (menuAt(i).visible)
                return true;
        }
        return false;
    }

    function enter() {
        wasEntered = true;
        closedByTitle = false;
        if (!before)
            before = Window.activeFocusItem;
    }

    function leave() {
        if (isOpen || !wasEntered)
            return;
        wasEntered = false;
        // The bar still takes a menu for open that closed while the pointer was on its title: the
        // next press there would do nothing, and the pointer alone would open the one beside it.
        // A press more makes it see.
        for (let i = 0; i < count; ++i) {
            const title = itemAt(i) as T.MenuBarItem;
            if (title.highlighted && !closedByTitle)
                title.triggered();
        }
        const item = before;
        before = null;
        if (item && item.visible && item.enabled)
            item.forceActiveFocus(Qt.PopupFocusReason);
    }

    // Closes the menu that is open, at once.
    function close() {
        for (let i = 0; i < count; ++i)
            menuAt(i).close();
        leave();
    }

    // The key that opens the first menu, as on most desktops, and closes it again; the arrow keys go
    // on from there. A sheet leaves it to the window, which it would not do with a window's shortcut.
    Shortcut {
        sequence: "F10"
        context: Qt.ApplicationShortcut
        autoRepeat: false
        enabled: root.Window.active
        onActivated: {
            if (root.isOpen) {
                root.close();
                return;
            }
            const first = root.itemAt(0) as T.MenuBarItem;
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
            function onAboutToShow() {
                root.enter();
            }
            // Perhaps for the one beside it.
            function onClosed() {
                Qt.callLater(root.leave);
            }
            // qmllint enable unqualified
        }

        // qmllint disable unqualified
        onTriggered: root.closedByTitle = menu.visible
        // qmllint enable unqualified

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
