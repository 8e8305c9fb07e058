// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// The main window. Its title is in the language of the program's start, which is meant; the rest
// follows the language.
Window {
    id: root

    required property ContentModel content
    required property BillScanModel bills
    required property ContentSheets sheets
    required property MainMenu menu

    property bool wasDrawn: false

    width: 960
    height: 640
    minimumWidth: 640
    minimumHeight: 420
    color: "#0F0F11"
    title: menu.isZh ? "Tovarin · 订阅管家" : "Tovarin · Subscription Manager"

    Connections {
        enabled: !root.wasDrawn
        target: root

        function onFrameSwapped() {
            root.wasDrawn = true;
        }
    }
    MainMenuBar {
        id: menus

        anchors.left: parent.left
        anchors.right: parent.right
        menu: root.menu
    }
    ContentView {
        anchors.top: menus.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: parent.bottom
        focus: true
        content: root.content
        bills: root.bills
        sheets: root.sheets
        menuBar: menus
        hasEntries: root.wasDrawn
    }
}
