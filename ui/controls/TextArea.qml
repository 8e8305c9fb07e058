// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tovarin

// Several lines to type in, which scroll where they are too many. Tab goes on to the next control.
FocusScope {
    id: root

    // What it is for, as a screen reader says it.
    required property string label
    property alias text: area.text
    property alias placeholderText: area.placeholderText

    implicitWidth: 220
    implicitHeight: 84
    opacity: enabled ? 1 : 0.45

    FieldGround {
        anchors.fill: parent
        hovered: area.hovered
        focused: area.activeFocus
    }
    Flickable {
        id: flickable

        anchors.fill: parent
        anchors.margins: 2
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        Accessible.ignored: true

        ScrollBar.vertical: ScrollBar {}

        T.TextArea.flickable: T.TextArea {
            id: area

            leftPadding: 10
            rightPadding: 12
            topPadding: 7
            bottomPadding: 7
            focus: true
            hoverEnabled: enabled
            wrapMode: TextEdit.Wrap
            textFormat: TextEdit.PlainText
            selectByMouse: true
            color: Theme.text
            placeholderTextColor: Theme.textSecondary
            selectionColor: Theme.accent
            selectedTextColor: Theme.onAccent
            font.family: Theme.fontFamily
            font.pixelSize: 14

            Keys.priority: Keys.BeforeItem
            Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
            Keys.forwardTo: [menuArea]

            Accessible.name: root.label
            Accessible.description: text === "" ? placeholderText : ""

            cursorDelegate: TextCursor {
                editor: area
            }

            ThemeText {
                x: area.leftPadding
                y: area.topPadding
                width: area.width - area.leftPadding - area.rightPadding
                visible: area.length === 0 && area.preeditText === ""
                text: area.placeholderText
                color: area.placeholderTextColor
                font: area.font
                Accessible.ignored: true
            }
            EditMenuArea {
                id: menuArea

                editor: area
            }
        }
    }
}
