// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// All that stands above the rows of the list, and scrolls with them.
Column {
    id: root

    required property ContentModel content
    required property BillScanModel bills
    required property ContentSheets sheets
    property bool hasEntries: false
    // What of this is in sight: where it begins, and how high it is.
    required property real viewTop
    required property real viewHeight

    readonly property bool isZh: LocalizationManager.isZh

    function takeKeyboard() {
        (empty.item as EmptyState)?.takeKeyboard();
    }

    leftPadding: Theme.pageMargin
    rightPadding: Theme.pageMargin
    spacing: 28

    HeroView {
        width: root.width - 2 * Theme.pageMargin
        content: root.content
        bills: root.bills
        sheets: root.sheets
    }
    // Bound components cannot be made from others in Qt 6.4.
    // qmllint disable unqualified
    Loader {
        width: root.width - 2 * Theme.pageMargin
        visible: active
        active: root.hasEntries && root.content.dueCount > 0
        sourceComponent: UpcomingSection {
            charges: root.content.upcoming
            count: root.content.dueCount
            viewTop: root.viewTop - parent.y
            viewHeight: root.viewHeight
        }
    }
    Loader {
        width: root.width - 2 * Theme.pageMargin
        height: implicitHeight + 10
        visible: active
        active: root.hasEntries && !root.content.isEmpty
        sourceComponent: SectionHeader {
            title: root.isZh ? "全部订阅" : "All subscriptions"
            note: root.content.count + (root.isZh ? " 项" : " items")
        }
    }
    Loader {
        id: empty

        width: root.width - 2 * Theme.pageMargin
        visible: active
        active: root.hasEntries && root.content.isEmpty
        sourceComponent: EmptyState {
            sheets: root.sheets
        }
    }
    // qmllint enable unqualified
}
