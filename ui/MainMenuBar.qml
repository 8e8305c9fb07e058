// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// The main menu. Its edit menu works on the field that the keyboard is at.
MenuBar {
    id: root

    required property MainMenu menu

    readonly property bool isZh: menu.isZh
    // That field; null while the keyboard is at something else.
    property var editor: null

    // The keyboard itself will be in the menu, and with it would go the selection.
    function remember() {
        editor = Window.activeFocusItem;
        if (editor && editor.selectAll === undefined)
            editor = null;
        if (editor)
            editor.persistentSelection = true;
    }

    function giveBack() {
        if (editor) {
            editor.forceActiveFocus(Qt.PopupFocusReason);
            editor.persistentSelection = false;
        }
        // What was chosen in the menu is still to come.
        Qt.callLater(() => editor = null);
    }

    Menu {
        title: "Tovarin"

        Action {
            text: root.isZh ? "隐藏 Tovarin" : "Hide Tovarin"
            shortcut: "Ctrl+H"
            onTriggered: root.menu.hide()
        }
        MenuSeparator {}
        Action {
            text: root.isZh ? "退出 Tovarin" : "Quit Tovarin"
            shortcut: "Ctrl+Q"
            onTriggered: root.menu.quit()
        }
    }
    Menu {
        title: root.isZh ? "编辑" : "Edit"
        onAboutToShow: root.remember()
        onClosed: root.giveBack()

        Action {
            text: root.isZh ? "剪切" : "Cut"
            shortcut: "Ctrl+X"
            enabled: root.editor !== null
            onTriggered: root.editor.cut()
        }
        Action {
            text: root.isZh ? "拷贝" : "Copy"
            shortcut: "Ctrl+C"
            enabled: root.editor !== null
            onTriggered: root.editor.copy()
        }
        Action {
            text: root.isZh ? "粘贴" : "Paste"
            shortcut: "Ctrl+V"
            enabled: root.editor !== null
            onTriggered: root.editor.paste()
        }
        Action {
            text: root.isZh ? "全选" : "Select All"
            shortcut: "Ctrl+A"
            enabled: root.editor !== null
            onTriggered: root.editor.selectAll()
        }
    }
}
