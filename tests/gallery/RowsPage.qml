// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQuick
import Tovarin

// The rows of the list in each of their states.
Rectangle {
    id: root

    required property SubscriptionListModel subscriptions
    required property UpcomingListModel charges
    required property int dueCount

    implicitWidth: 760
    implicitHeight: rows.implicitHeight + upcoming.implicitHeight + 60
    color: "#0F0F11"

    Column {
        id: rows

        width: root.width

        Repeater {
            model: root.subscriptions

            SubscriptionRow {
                width: root.width
            }
        }
    }
    UpcomingSection {
        id: upcoming

        anchors.top: rows.bottom
        anchors.topMargin: 20
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: Theme.pageMargin
        charges: root.charges
        count: root.dueCount
        viewTop: 0
        viewHeight: root.height
    }
}
