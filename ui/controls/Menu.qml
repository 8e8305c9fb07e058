// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Tovarin

// A menu. It closes by Escape, by a click elsewhere, and by what is chosen in it.
T.Menu {
    id: root

    // Instead of lines of its own, a component of MenuLines: they are made when the menu is first
    // opened, since those of a menu bar would cost a start a tenth of its time.
    property Component lines: null

    onAboutToShow: {
        if (!lines)
            return;
        const made = (lines.createObject(root) as MenuLines).lines;
        for (let i = 0; i < made.length; ++i)
            addItem(made[i] as Item);
        lines = null;
    }

    implicitWidth: Math.max(160, contentItem.implicitWidth + leftPadding + rightPadding)
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    padding: 5
    margins: 6
    overlap: 1
    font.family: Theme.fontFamily
    font.pixelSize: 13

    background: MenuGround {}
    contentItem: ListView {
        implicitHeight: contentHeight
        // The widest of the items.
        implicitWidth: {
            let widest = 0;
            for (let i = 0; i < root.count; ++i)
                widest = Math.max(widest, root.itemAt(i).implicitWidth);
            return widest;
        }
        model: root.contentModel
        currentIndex: root.currentIndex
        interactive: Window.window ? contentHeight + 2 * root.padding > Window.window.height : false
        clip: interactive
        boundsBehavior: Flickable.StopAtBounds
        Accessible.role: Accessible.PopupMenu
        Accessible.name: root.title

        ScrollBar.vertical: ScrollBar {}
    }
}
