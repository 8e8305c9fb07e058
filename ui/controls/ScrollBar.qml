// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import QtQuick.Templates as T
import Tovarin

// How much there is, and where one looks; it can be dragged. There is none where all is in sight.
T.ScrollBar {
    id: root

    implicitWidth: 12
    implicitHeight: 12
    padding: 3
    minimumSize: orientation === Qt.Vertical ? Math.min(1, 36 / Math.max(1, height))
                                             : Math.min(1, 36 / Math.max(1, width))
    hoverEnabled: enabled
    visible: size < 1

    contentItem: Rectangle {
        implicitWidth: 6
        implicitHeight: 6
        radius: 3
        color: root.pressed ? Theme.textSecondary : root.hovered ? Qt.rgba(1, 1, 1, 0.4)
                                                                 : Theme.lineStrong
    }
}
