// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tovarin

// A line to type in.
T.TextField {
    id: root

    // What it is for, as a screen reader says it.
    required property string label
    // False while what is typed cannot be used.
    property bool acceptable: true

    implicitWidth: 220
    implicitHeight: 36
    leftPadding: 12
    rightPadding: 12
    verticalAlignment: TextInput.AlignVCenter
    hoverEnabled: enabled
    opacity: enabled ? 1 : 0.45
    color: Theme.text
    placeholderTextColor: Theme.textSecondary
    selectionColor: Theme.accent
    selectedTextColor: Theme.onAccent
    font.family: Theme.fontFamily
    font.pixelSize: 14

    Accessible.name: label
    Accessible.description: text === "" ? placeholderText : ""
    Keys.forwardTo: [menuArea]

    // Who is not at it sees how the text begins; who comes to it, where he types.
    function showBeginning() {
        if (!activeFocus && horizontalAlignment === TextInput.AlignLeft)
            ensureVisible(0);
    }

    Component.onCompleted: showBeginning()
    onActiveFocusChanged: activeFocus ? ensureVisible(cursorPosition) : showBeginning()
    onTextChanged: showBeginning()
    onWidthChanged: showBeginning()

    background: FieldGround {
        hovered: root.hovered
        focused: root.activeFocus
        acceptable: root.acceptable
    }
    cursorDelegate: TextCursor {
        editor: root
    }

    ThemeText {
        anchors.fill: parent
        anchors.leftMargin: root.leftPadding
        anchors.rightMargin: root.rightPadding
        visible: root.length === 0 && root.preeditText === ""
        text: root.placeholderText
        color: root.placeholderTextColor
        font: root.font
        horizontalAlignment: root.horizontalAlignment
        verticalAlignment: Text.AlignVCenter
        Accessible.ignored: true
    }
    EditMenuArea {
        id: menuArea

        editor: root
    }
}
