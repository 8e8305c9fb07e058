// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tovarin

// The services to tick. Tab reaches the cells once; the arrow keys, Home and End walk among those
// that can be ticked.
FocusScope {
    id: root

    required property QuickPickModel quickPick

    // A cell has made room for its tiers.
    signal grown(Item cell)

    readonly property real spacing: 10
    readonly property real minimumCellWidth: 220
    readonly property int columns: Math.max(1, Math.floor((width + spacing)
                                                          / (minimumCellWidth + spacing)))

    // Where the keyboard was last, and where it is or would be now; -1 where nothing can be ticked.
    property int wanted: 0
    property int current: 0

    implicitHeight: grid.implicitHeight

    readonly property Item focusItem: Window.activeFocusItem

    onCurrentChanged: keepKeyboard()
    onFocusItemChanged: {
        if (focusItem === root)
            soon.start();
    }

    Keys.onPressed: event => {
        switch (event.key) {
        case Qt.Key_Left:
            walk(-1);
            break;
        case Qt.Key_Right:
            walk(1);
            break;
        case Qt.Key_Up:
            walk(-columns);
            break;
        case Qt.Key_Down:
            walk(columns);
            break;
        case Qt.Key_Home:
            goTo(next(0, 1));
            break;
        case Qt.Key_End:
            goTo(next(cells.count - 1, -1));
            break;
        case Qt.Key_Tab:
            if (!rest.activeFocus || current < 0)
                return;
            focusCurrent();
            break;
        default:
            return;
        }
        event.accepted = true;
    }

    function canBePicked(index: int): bool {
        const cell = cells.itemAt(index) as QuickPickCell;
        return cell !== null && cell.canBePicked;
    }

    // The first cell from there on that can be ticked; -1 for none.
    function next(from: int, by: int): int {
        for (let i = from; i >= 0 && i < cells.count; i += by) {
            if (canBePicked(i))
                return i;
        }
        return -1;
    }

    // A key that comes from elsewhere only goes to where it would go on.
    function walk(by: int) {
        const cell = cells.itemAt(current) as QuickPickCell;
        goTo(cell && cell.button.activeFocus ? next(current + by, by) : current);
    }

    function goTo(index: int) {
        if (index < 0)
            return;
        wanted = index;
        findCurrent();
        focusCurrent();
    }

    function focusCurrent() {
        const cell = cells.itemAt(current) as QuickPickCell;
        if (cell)
            cell.button.forceActiveFocus(Qt.TabFocusReason);
        else
            rest.forceActiveFocus();
    }

    // The cell that had it cannot be pressed any longer.
    function keepKeyboard() {
        if (focusItem === root)
            focusCurrent();
    }

    // No cell has it until a key goes to one.
    function takeKeyboard() {
        rest.forceActiveFocus();
    }

    function findCurrent() {
        current = canBePicked(wanted) ? wanted : next(0, 1);
    }

    // The keyboard does not move while it is on its way.
    Timer {
        id: soon

        interval: 0
        onTriggered: root.keepKeyboard()
    }
    // Has the keyboard when no cell has it.
    Item {
        id: rest

        focus: true
    }
    GridLayout {
        id: grid

        width: parent.width
        columns: root.columns
        columnSpacing: root.spacing
        rowSpacing: root.spacing

        Repeater {
            id: cells

            model: root.quickPick.cells
            onItemAdded: (index, item) => {
                // A list comes as a whole, and is walked from its beginning.
                if (index === 0)
                    root.wanted = 0;
                if (index === root.quickPick.cells.rowCount() - 1)
                    root.findCurrent();
            }

            QuickPickCell {
                id: cell

                objectName: "cell" + index
                Layout.fillWidth: true
                Layout.preferredWidth: 1
                Layout.alignment: Qt.AlignTop
                Layout.preferredHeight: implicitHeight
                isCurrent: index === root.current
                onCanBePickedChanged: root.findCurrent()
                onHeightChanged: {
                    if (hasTiers)
                        root.grown(cell);
                }
                onToggled: {
                    if (!button.activeFocus) {
                        root.wanted = index;
                        rest.forceActiveFocus();
                    }
                    root.quickPick.toggleCell(index);
                    root.findCurrent();
                }
                onTierChosen: tier => root.quickPick.chooseTier(index, tier)
            }
        }
    }
}
