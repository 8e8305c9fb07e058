// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// What can be done to the text of a field.
Menu {
    id: root

    // A TextField or a TextArea.
    required property var editor

    readonly property bool isZh: LocalizationManager.isZh
    readonly property bool canChange: !editor.readOnly
    readonly property bool canTake: editor.selectedText !== "" && editor.echoMode !== TextInput.Password

    title: isZh ? "编辑" : "Edit"
    onClosed: {
        editor.forceActiveFocus(Qt.PopupFocusReason);
        editor.persistentSelection = false;
    }

    MenuItem {
        text: root.isZh ? "剪切" : "Cut"
        enabled: root.canTake && root.canChange
        onTriggered: root.editor.cut()
    }
    MenuItem {
        text: root.isZh ? "拷贝" : "Copy"
        enabled: root.canTake
        onTriggered: root.editor.copy()
    }
    MenuItem {
        text: root.isZh ? "粘贴" : "Paste"
        enabled: root.canChange && root.editor.canPaste
        onTriggered: root.editor.paste()
    }
    MenuSeparator {}
    MenuItem {
        text: root.isZh ? "全选" : "Select All"
        enabled: root.editor.length > 0
        onTriggered: root.editor.selectAll()
    }
}
