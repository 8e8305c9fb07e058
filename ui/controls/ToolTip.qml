// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Tovarin

// A few words about what the pointer rests on. A screen reader has them from the control itself.
T.ToolTip {
    id: root

    // Whether it is wanted now; it is in sight a moment later.
    required property bool shown

    visible: shown
    delay: 600
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: parent ? parent.height + 6 : 0
    implicitWidth: contentItem.implicitWidth + leftPadding + rightPadding
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    padding: 6
    leftPadding: 9
    rightPadding: 9
    margins: 6
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

    background: MenuGround {
        radius: 7
    }
    contentItem: ThemeText {
        text: root.text
        font.pixelSize: 12
        Accessible.ignored: true
    }
}
