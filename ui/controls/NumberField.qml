// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// A number to type in, as the user's locale writes numbers. What is no number, an emptied field
// included, leaves the number as it was, and the field says so.
TextField {
    property real value: 0

    // The user typed another number; `value` is left to who listens.
    signal edited(real value)

    implicitWidth: 110
    horizontalAlignment: TextInput.AlignRight
    inputMethodHints: Qt.ImhFormattedNumbersOnly
    placeholderText: "0"
    acceptable: UserNumbers.value(text) !== undefined

    Accessible.description: acceptable ? "" : LocalizationManager.isZh ? "不是数字" : "Not a number"

    // What it was when the typing began: a text that is no number stands for it.
    property real valueBefore: 0
    property bool showing: false

    function showValue() {
        valueBefore = value;
        showing = true;
        text = UserNumbers.text(value);
        showing = false;
    }

    Component.onCompleted: showValue()
    onValueChanged: {
        if (!activeFocus)
            showValue();
    }
    onActiveFocusChanged: showValue()
    onAccepted: showValue()
    // By a screen reader, too, which puts a text in without typing it.
    onTextChanged: {
        if (showing)
            return;
        const typed = UserNumbers.value(text);
        edited(typed === undefined ? valueBefore : typed);
    }
}
