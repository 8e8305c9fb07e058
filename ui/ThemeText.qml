// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// One line of text as the theme writes it. What users typed is never taken for markup, and what
// does not fit ends in an ellipsis.
Text {
    color: Theme.text
    font.family: Theme.fontFamily
    textFormat: Text.PlainText
    elide: Text.ElideRight
    maximumLineCount: 1

    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
