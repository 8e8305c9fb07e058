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
    function remember(item: var) {
        editor = item && item.selectAll !== undefined ? item : null;
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

    onBeforeChanged: {
        if (before)
            remember(before);
        else
            giveBack();
    }

    // Bound components cannot be made from others in Qt 6.4.
    // qmllint disable unqualified
    Menu {
        title: "Tovarin"
        lines: Component {
            MenuLines {
                MenuItem {
                    text: root.isZh ? "隐藏 Tovarin" : "Hide Tovarin"
                    keys: hide.sequence
                    onTriggered: root.menu.hide()
                }
                MenuSeparator {}
                MenuItem {
                    text: root.isZh ? "退出 Tovarin" : "Quit Tovarin"
                    keys: quit.sequence
                    onTriggered: root.menu.quit()
                }
            }
        }
    }
    // The fields know these keys themselves.
    Menu {
        title: root.isZh ? "编辑" : "Edit"
        lines: Component {
            MenuLines {
                MenuItem {
                    text: root.isZh ? "剪切" : "Cut"
                    keys: "Ctrl+X"
                    enabled: root.editor !== null
                    onTriggered: root.editor.cut()
                }
                MenuItem {
                    text: root.isZh ? "拷贝" : "Copy"
                    keys: "Ctrl+C"
                    enabled: root.editor !== null
                    onTriggered: root.editor.copy()
                }
                MenuItem {
                    text: root.isZh ? "粘贴" : "Paste"
                    keys: "Ctrl+V"
                    enabled: root.editor !== null
                    onTriggered: root.editor.paste()
                }
                MenuItem {
                    text: root.isZh ? "全选" : "Select All"
                    keys: "Ctrl+A"
                    enabled: root.editor !== null
                    onTriggered: root.editor.selectAll()
                }
            }
        }
    }
    // qmllint enable unqualified
    // They work above a sheet and in the panel, too.
    Shortcut {
        id: hide

        sequence: "Ctrl+H"
        context: Qt.ApplicationShortcut
        onActivated: root.menu.hide()
    }
    Shortcut {
        id: quit

        sequence: "Ctrl+Q"
        context: Qt.ApplicationShortcut
        onActivated: root.menu.quit()
    }
}
