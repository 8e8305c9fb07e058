// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQuick
import Tovarin

// Marks, logos with their stand-ins, letters, surfaces and colours.
Rectangle {
    id: root

    // Every preset: id, icon, and whether there is a logo.
    required property var presets
    required property list<string> symbols

    implicitWidth: 900
    implicitHeight: content.implicitHeight + 48
    color: "#0F0F11"

    Column {
        id: content

        x: 24
        y: 24
        width: parent.width - 48
        spacing: 24

        Row {
            spacing: 20

            Repeater {
                model: [18, 32, 64, 128]

                BrandMark {
                    required property real modelData

                    size: modelData
                }
            }
        }
        Row {
            spacing: 0

            Repeater {
                model: ["#FFFFFF", "#EFF0F1", "#2A2E32", "#000000"]

                Rectangle {
                    required property color modelData

                    width: 120
                    height: 32
                    color: modelData

                    Row {
                        anchors.centerIn: parent
                        spacing: 12

                        Repeater {
                            model: [16, 18, 22, 24]

                            Image {
                                required property int modelData

                                anchors.verticalCenter: parent ? parent.verticalCenter : undefined
                                width: modelData
                                height: modelData
                                sourceSize.width: modelData
                                sourceSize.height: modelData
                                source: "qrc:/resources/Brand/PanelMark.svg"
                            }
                        }
                    }
                }
            }
        }
        Flow {
            width: parent.width
            spacing: 12

            Repeater {
                model: root.presets

                ServiceLogoView {
                    required property var modelData

                    logoID: modelData.logoID
                    icon: modelData.icon
                }
            }
        }
        Flow {
            width: parent.width
            spacing: 12

            Repeater {
                model: root.presets

                ServiceLogoView {
                    required property var modelData

                    logoID: ""
                    icon: modelData.icon
                    selected: true
                }
            }
        }
        Flow {
            width: parent.width
            spacing: 12

            Repeater {
                model: root.symbols

                Symbol {
                    required property string modelData

                    name: modelData
                    size: 24
                }
            }
        }
        Row {
            spacing: 12

            Repeater {
                model: ["A", "Ж", "晨", "•", "W"]

                BrandAvatar {
                    required property string modelData

                    letter: modelData
                }
            }
            BrandAvatar {
                letter: "D"
                dimmed: true
            }
            SubscriptionIconView {
                logoID: "netflix"
                letter: "N"
                dimmed: true
            }
        }
        Row {
            spacing: 16

            Repeater {
                model: [false, true]

                HUDSurface {
                    required property bool modelData

                    width: 200
                    height: 72
                    highlighted: modelData
                }
            }
        }
        Row {
            spacing: 8

            Repeater {
                model: [Theme.bg, Theme.card, Theme.cardHi, Theme.text, Theme.textSecondary,
                    Theme.textTertiary, Theme.duckYellow, Theme.beakOrange, Theme.onAccent,
                    Theme.hairline, Theme.lineStrong, Theme.warmHairline]

                Rectangle {
                    required property color modelData

                    width: 48
                    height: 48
                    color: modelData
                }
            }
        }
    }
}
