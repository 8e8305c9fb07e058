// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Tovarin

// A screen above the window, which is dimmed and out of reach meanwhile, but for its menus. Tab
// stays inside, and Escape closes it. Where the window is small, so is the sheet.
T.Popup {
    id: root

    // What it is, as a screen reader says it.
    required property string label
    property real preferredWidth: 520
    property real preferredHeight: 620
    // The window's, along its top; what is typed in the sheet can be edited from there.
    property MenuBar menuBar: null

    readonly property real top: menuBar?.height ?? 0
    // Where the keyboard was, and whether the user had brought it there by keys.
    property Item before: null
    property bool byKeyboard: false
    // What of the window is out of reach meanwhile, for a screen reader too.
    property var behind: []

    parent: T.Overlay.overlay
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? Math.round((top + parent.height - height) / 2) : 0
    width: parent ? Math.min(preferredWidth, parent.width - 32) : preferredWidth
    height: parent ? Math.min(preferredHeight, parent.height - top - 32) : preferredHeight
    modal: true
    focus: true
    closePolicy: T.Popup.NoAutoClose

    onAboutToShow: {
        menuBar?.close();
        before = parent.Window.activeFocusItem;
        byKeyboard = before?.visualFocus ?? false;
        const items = parent.Window.contentItem.children;
        behind = [];
        for (let i = 0; i < items.length; ++i) {
            if (items[i] !== parent && items[i] !== menuBar && items[i].enabled)
                behind.push(items[i]);
        }
        behind.forEach(item => item.enabled = false);
    }
    onClosed: {
        behind.forEach(item => item.enabled = true);
        behind = [];
        if (before)
            before.forceActiveFocus(byKeyboard ? Qt.TabFocusReason : Qt.PopupFocusReason);
        before = null;
    }

    // It is given the size of the window; where it isn't, the mouse goes to what is below.
    T.Overlay.modal: Rectangle {
        // Bound components cannot be made from others in Qt 6.4.
        // qmllint disable unqualified
        y: root.top
        // qmllint enable unqualified
        color: Qt.rgba(0, 0, 0, 0.6)
    }
    background: Rectangle {
        radius: 18
        color: Theme.bg
        border.width: 1
        border.color: Theme.hairline
    }
    contentItem: FocusScope {
        focus: true
        Accessible.role: Accessible.Dialog
        Accessible.name: root.label
        // A key that is held closes one sheet, not those that wait behind it.
        Keys.onEscapePressed: event => {
            if (!event.isAutoRepeat)
                root.close();
        }
    }
}
