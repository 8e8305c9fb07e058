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
    // What of this is in sight: where it begins, and how high it is.
    required property real viewTop
    required property real viewHeight

    readonly property bool isZh: LocalizationManager.isZh

    function takeKeyboard() {
        empty.takeKeyboard();
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
    UpcomingSection {
        width: root.width - 2 * Theme.pageMargin
        visible: root.content.dueCount > 0
        charges: root.content.upcoming
        count: root.content.dueCount
        viewTop: root.viewTop
        viewHeight: root.viewHeight
    }
    SectionHeader {
        width: root.width - 2 * Theme.pageMargin
        height: implicitHeight + 10
        visible: !root.content.isEmpty
        title: root.isZh ? "全部订阅" : "All subscriptions"
        note: root.content.count + (root.isZh ? " 项" : " items")
    }
    EmptyState {
        id: empty

        width: root.width - 2 * Theme.pageMargin
        visible: root.content.isEmpty
        sheets: root.sheets
    }
}
