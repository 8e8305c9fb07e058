// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

Window {
    id: root

    required property ContentModel content
    required property BillScanModel bills

    width: 960
    height: 640
    minimumWidth: 640
    minimumHeight: 420
    visible: true
    color: "#0F0F11"
    title: LocalizationManager.isZh ? "Tovarin · 订阅管家" : "Tovarin · Subscription Manager"

    ContentView {
        anchors.fill: parent
        focus: true
        content: root.content
        bills: root.bills
    }
}
