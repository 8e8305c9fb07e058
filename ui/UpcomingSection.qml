// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQuick
import Tovarin

Column {
    id: root

    required property UpcomingListModel charges
    required property int count
    // What of the page is in sight: where it begins, in the coordinates of what holds this section,
    // and how high it is.
    required property real viewTop
    required property real viewHeight

    readonly property bool isZh: LocalizationManager.isZh

    spacing: 12

    SectionHeader {
        width: root.width
        title: root.isZh ? "即将扣费" : "Upcoming charges"
        note: root.isZh ? "未来 7 天" : "Next 7 days"
    }

    HUDSurface {
        id: card

        width: root.width
        height: rows.height + 12

        Item {
            id: rows

            readonly property real rowHeight: 44

            x: 24
            y: 6
            width: parent.width - 48
            height: rowHeight * root.count

            Accessible.role: Accessible.List
            Accessible.name: root.isZh ? "即将扣费" : "Upcoming charges"

            Repeater {
                // Of many charges, only those in sight have a row.
                model: RowWindow {
                    id: inSight

                    source: root.charges
                    wantedFirst: Math.floor((root.viewTop - root.y - card.y - rows.y)
                                            / rows.rowHeight)
                    length: Math.ceil(root.viewHeight / rows.rowHeight) + 1
                }

                UpcomingRow {
                    required property int index

                    y: (inSight.first + index) * rows.rowHeight
                    width: rows.width
                    height: rows.rowHeight
                }
            }
        }
    }
}
