// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// A small figure of the summary under its caption.
Column {
    id: root

    required property string caption
    required property string figure

    spacing: 4

    ThemeText {
        width: root.width
        text: root.caption
        color: Theme.textSecondary
        font.pixelSize: 12
    }
    ThemeText {
        width: root.width
        height: 30
        verticalAlignment: Text.AlignVCenter
        text: root.figure
        font.pixelSize: 20
        font.weight: Font.DemiBold
        // Without a width yet, it would try the smallest size.
        fontSizeMode: width > 0 ? Text.HorizontalFit : Text.FixedSize
        minimumPixelSize: 11
    }
}
