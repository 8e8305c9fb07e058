// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

Rectangle {
    property real cornerRadius: 16
    property bool highlighted: false

    radius: cornerRadius
    color: highlighted ? Theme.cardHi : Theme.card
    border.width: 1
    border.color: highlighted ? Theme.warmHairline : Theme.hairline
}
