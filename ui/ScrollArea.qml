// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Layouts
import Tovarin

// The middle of a sheet, between what stays: it scrolls where there is more than fits, and brings
// into sight what the keyboard is at.
Flickable {
    id: root

    default property alias content: column.data
    property alias spacing: column.spacing

    // Between its sides and what is in it.
    readonly property real margin: 24
    readonly property real end: Math.max(0, contentHeight - height)
    readonly property Item focusItem: Window.activeFocusItem

    implicitHeight: contentHeight
    contentHeight: column.y + column.implicitHeight + margin
    clip: true
    boundsBehavior: Flickable.StopAtBounds
    // What is scrolled out of it would otherwise cover the header, for a screen reader.
    Accessible.role: Accessible.Pane

    ScrollBar.vertical: ScrollBar {}

    onFocusItemChanged: reveal(focusItem)

    function reveal(item: Item) {
        let above = item;
        while (above && above !== column)
            above = above.parent;
        if (!above)
            return;
        const around = 12;
        const top = column.y + item.mapToItem(column, 0, 0).y;
        if (top + item.height + around > contentY + height)
            contentY = Math.min(end, top + item.height + around - height);
        if (top - around < contentY)
            contentY = Math.max(0, top - around);
    }

    // Takes the keys that scroll.
    function scroll(event: KeyEvent) {
        const line = 48;
        let to = contentY;
        switch (event.key) {
        case Qt.Key_Up:
            to -= line;
            break;
        case Qt.Key_Down:
            to += line;
            break;
        case Qt.Key_PageUp:
            to -= height - line;
            break;
        case Qt.Key_PageDown:
            to += height - line;
            break;
        case Qt.Key_Home:
            to = 0;
            break;
        case Qt.Key_End:
            to = end;
            break;
        default:
            return;
        }
        contentY = Math.max(0, Math.min(end, to));
        event.accepted = true;
    }

    ColumnLayout {
        id: column

        // A little below the edge, which would cut off a focus ring.
        x: root.margin
        y: 6
        width: root.width - 2 * root.margin
    }
}
