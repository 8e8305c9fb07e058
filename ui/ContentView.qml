// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

FocusScope {
    id: root

    required property ContentModel content
    required property BillScanModel bills
    required property ContentSheets sheets
    property MenuBar menuBar: null
    // The entries come a frame after what stands above them, which is in sight so much the sooner.
    property bool hasEntries: true

    readonly property bool isZh: LocalizationManager.isZh

    onHasEntriesChanged: showEntries()
    Component.onCompleted: showEntries()

    // What stands above the rows takes its room first. They are made in the order in which a screen
    // reader reads them then, and none is made that is out of sight at once.
    function showEntries() {
        if (!hasEntries)
            return;
        const header = list.headerItem as ContentHeader;
        header.hasEntries = true;
        header.forceLayout();
        list.delegate = row;
    }

    Item {
        id: topBar

        anchors.left: parent.left
        anchors.right: parent.right
        height: 60

        BrandMark {
            id: mark

            anchors.left: parent.left
            anchors.leftMargin: Theme.pageMargin
            anchors.verticalCenter: parent.verticalCenter
            size: 30
        }
        ThemeText {
            anchors.left: mark.right
            anchors.leftMargin: 10
            anchors.verticalCenter: parent.verticalCenter
            text: "Tovarin"
            font.pixelSize: 18
            font.weight: Font.Bold
        }
        IconButton {
            objectName: "settings"
            anchors.right: parent.right
            anchors.rightMargin: Theme.pageMargin - 8
            anchors.verticalCenter: parent.verticalCenter
            icon.name: "gearshape.fill"
            symbolSize: 18
            title: root.isZh ? "设置" : "Settings"
            onClicked: root.sheets.showSettings()
        }
        Rectangle {
            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            height: 1
            color: Theme.hairline
            visible: !list.isAtTop
        }
    }

    ListView {
        id: list

        objectName: "list"
        anchors.top: topBar.bottom
        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        clip: true
        focus: true
        keyNavigationEnabled: false
        currentIndex: -1
        // Rows are cheap; those made ahead of time, out of sight, would take part in Tab's order,
        // and Qt 6.4 complains when the list shrinks while one is being made.
        cacheBuffer: 0
        reuseItems: true
        boundsBehavior: Flickable.StopAtBounds
        model: root.content.subscriptions

        // What stands above the rows grows and shrinks; whoever looks at its beginning goes on doing
        // so.
        property bool isAtTop: true
        onContentYChanged: isAtTop = contentY <= originY
        onOriginYChanged: {
            if (isAtTop)
                contentY = originY;
        }

        readonly property Item focusItem: Window.activeFocusItem

        // The keyboard does not go where nobody sees it.
        onFocusItemChanged: {
            let above = focusItem?.visualFocus ? focusItem : null;
            while (above && above !== contentItem)
                above = above.parent;
            if (!above)
                return;
            const top = focusItem.mapToItem(contentItem, 0, 0).y;
            if (top < contentY || top + focusItem.height > contentY + height)
                contentY = Math.max(originY, Math.min(originY + contentHeight - height,
                                                      top + focusItem.height / 2 - height / 2));
        }

        // The entry that was shown last.
        property string shownID

        // The keyboard stays with the entry, wherever the list has it by now, and near it when it
        // is gone.
        function returnToEntry() {
            if (count === 0) {
                (headerItem as ContentHeader).takeKeyboard();
                return;
            }
            const row = root.content.rowOf(shownID);
            reach(row >= 0 ? row : Math.min(Math.max(0, currentIndex), count - 1));
        }

        // Takes the keyboard to a row; false when there is none.
        function reach(row: int): bool {
            if (row < 0 || row >= count)
                return false;
            positionViewAtIndex(row, ListView.Contain);
            itemAtIndex(row).forceActiveFocus(Qt.TabFocusReason);
            return true;
        }

        Accessible.role: Accessible.List
        Accessible.name: root.isZh ? "全部订阅" : "All subscriptions"

        Keys.onUpPressed: scrollBar.decrease()
        Keys.onDownPressed: scrollBar.increase()
        Keys.onPressed: event => {
            switch (event.key) {
            case Qt.Key_PageUp:
                contentY = Math.max(originY, contentY - height);
                break;
            case Qt.Key_PageDown:
                contentY = Math.max(originY, Math.min(originY + contentHeight - height,
                                                      contentY + height));
                break;
            case Qt.Key_Home:
                positionViewAtBeginning();
                break;
            case Qt.Key_End:
                positionViewAtEnd();
                break;
            default:
                return;
            }
            event.accepted = true;
        }

        ScrollBar.vertical: ScrollBar {
            id: scrollBar
        }

        // In Qt 6.4 a header cannot be made while this file binds its components to their context,
        // which is what qmllint asks for.
        // qmllint disable unqualified
        header: ContentHeader {
            width: list.width
            content: root.content
            bills: root.bills
            sheets: root.sheets
            viewTop: list.contentY - y
            viewHeight: list.height
        }

        // Becomes the delegate; a model that comes later would take the keyboard to its first row.
        Component {
            id: row

            SubscriptionRow {
                required property string subscriptionID

                width: list.width
                pressable: true
                onClicked: {
                    list.shownID = subscriptionID;
                    root.sheets.showDetail(subscriptionID);
                }
                // Tab reaches the rows once, where the keyboard was last; the arrow keys walk them.
                activeFocusOnTab: index === Math.max(0, list.currentIndex)
                onActiveFocusChanged: {
                    if (activeFocus)
                        list.currentIndex = index;
                }
                Keys.onUpPressed: event => event.accepted = list.reach(index - 1)
                Keys.onDownPressed: event => event.accepted = list.reach(index + 1)
            }
        }
        // qmllint enable unqualified
        footer: Item {
            implicitHeight: 20
        }
    }

    // The whole window, with its menus.
    DropArea {
        anchors.fill: parent
        anchors.topMargin: -(root.menuBar?.height ?? 0)
        keys: ["text/uri-list"]
        enabled: !root.bills.isScanning
        // A copy or nothing: the source of a move would delete its files. It is told while they are
        // still in the air, since some sources believe that and not what comes after the drop.
        onEntered: drag => {
            if (!root.bills.canRead(drag.urls))
                drag.accepted = false;
        }
        onPositionChanged: drag => {
            isTaken = (drag.supportedActions & Qt.CopyAction) !== 0;
            if (isTaken)
                drag.accept(Qt.CopyAction);
            else
                drag.accepted = false;
        }
        onDropped: drop => {
            if ((drop.supportedActions & Qt.CopyAction) && root.bills.handleDrop(drop.urls))
                drop.accept(Qt.CopyAction);
            else
                drop.accepted = false;
        }

        property bool isTaken: false

        Rectangle {
            objectName: "dropFrame"
            anchors.fill: parent
            anchors.margins: 6
            visible: parent.containsDrag && parent.isTaken
            radius: 14
            color: "transparent"
            border.width: 2
            border.color: Theme.accent
        }
    }

    ContentSheet {
        sheets: root.sheets
        menuBar: root.menuBar
        onAboutToShow: cameFromList = before?.subscriptionID !== undefined || !before
        onLeft: {
            if (cameFromList && byKeyboard)
                list.returnToEntry();
        }

        property bool cameFromList: false
    }
}
