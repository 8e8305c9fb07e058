// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

pragma Singleton

import QtQuick

QtObject {
    id: theme

    readonly property color bg: "#000000"
    readonly property color card: "#09090A"
    readonly property color cardHi: "#111113"
    readonly property color text: "#E8E8E8"
    readonly property color textSecondary: "#8A8A8A"
    readonly property color textTertiary: "#555555"
    readonly property color duckYellow: "#F6C94A"
    readonly property color beakOrange: "#F28A2E"
    readonly property color accent: duckYellow
    // QML takes a value given to a name like this for a signal handler, hence the detour.
    readonly property alias onAccent: theme.inkOnAccent
    readonly property color inkOnAccent: "#151008"
    readonly property color hairline: Qt.rgba(1, 1, 1, 0.14)
    readonly property color lineStrong: Qt.rgba(1, 1, 1, 0.28)
    readonly property color warmHairline: Qt.rgba(246 / 255, 201 / 255, 74 / 255, 0.48)

    // Noto Sans CJK SC stands in for what Poppins lacks: AppFonts.h.
    readonly property string fontFamily: "Poppins"
    // With digits of one width.
    readonly property string tabularFamily: "Poppins Tabular"

    // Between the sides of the window and what it shows.
    readonly property int pageMargin: 28
}
