// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// Gives what is typed in the menu of the right mouse button, and of the keyboard's menu key if keys
// are forwarded to it.
Item {
    id: root

    // A TextField or a TextArea.
    required property var editor
    property EditMenu menu: null

    anchors.fill: parent
    Accessible.ignored: true

    Keys.onMenuPressed: open(editor.cursorRectangle.x, editor.height)

    // The menu is made when it is first asked for: lists have many fields.
    function open(x: real, y: real) {
        if (!menu)
            menu = component.createObject(root, {editor: editor}) as EditMenu;
        // The selection is what the menu is about; it would go with the keyboard.
        editor.persistentSelection = true;
        menu.popup(root, x, y);
    }

    TapHandler {
        acceptedButtons: Qt.RightButton
        onTapped: eventPoint => {
            root.editor.forceActiveFocus(Qt.MouseFocusReason);
            root.open(eventPoint.position.x, eventPoint.position.y);
        }
    }
    Component {
        id: component

        EditMenu {}
    }
}
