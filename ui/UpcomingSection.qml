// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQuick
import Tovarin

Column {
    id: root

    required property UpcomingListModel charges

    readonly property bool isZh: LocalizationManager.isZh

    spacing: 12

    SectionHeader {
        width: root.width
        title: root.isZh ? "即将扣费" : "Upcoming charges"
        note: root.isZh ? "未来 7 天" : "Next 7 days"
    }

    HUDSurface {
        width: root.width
        height: rows.height + 12

        Accessible.role: Accessible.List
        Accessible.name: root.isZh ? "即将扣费" : "Upcoming charges"

        Column {
            id: rows

            x: 24
            y: 6
            width: parent.width - 48

            Repeater {
                model: root.charges

                UpcomingRow {
                    width: rows.width
                }
            }
        }
    }
}
