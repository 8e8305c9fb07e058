// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Tovarin

// One of a few things, all in sight. Tab reaches it once; the arrow keys choose in it.
FocusScope {
    id: root

    // What is chosen here, as a screen reader says it.
    required property string label
    // The texts of the segments.
    required property list<string> labels
    // -1 while none is chosen.
    property int currentIndex: -1

    // The user chose a segment; `currentIndex` is left to who listens.
    signal activated(int index)

    implicitWidth: row.widest * segments.count + 6
    implicitHeight: 36
    opacity: enabled ? 1 : 0.45

    Accessible.role: Accessible.Grouping
    Accessible.name: label

    Keys.onLeftPressed: step(-1)
    Keys.onRightPressed: step(1)
    Keys.onUpPressed: step(-1)
    Keys.onDownPressed: step(1)

    // The first one when none was chosen; the ends hold.
    function step(by: int) {
        const next = currentIndex < 0 ? 0 : currentIndex + by;
        if (next < 0 || next >= labels.length)
            return;
        activated(next);
        const segment = segments.itemAt(Math.max(0, currentIndex));
        if (segment)
            segment.forceActiveFocus(Qt.TabFocusReason);
    }

    Rectangle {
        anchors.fill: parent
        radius: 10
        color: Qt.rgba(1, 1, 1, 0.05)
        border.width: 1
        border.color: Theme.hairline
    }
    Row {
        id: row

        // As wide as the widest each, or as the place allows; where that cuts the widest short, each
        // by its text.
        readonly property var widths: {
            const widths = [];
            for (let i = 0; i < segments.count; ++i)
                widths.push(segments.itemAt(i)?.implicitWidth ?? 0);
            return widths;
        }
        readonly property real widest: Math.max(0, ...widths)
        readonly property real total: widths.reduce((sum, width) => sum + width, 0)
        readonly property bool even: width / Math.max(1, segments.count) >= widest - 20

        anchors.fill: parent
        anchors.margins: 3

        Repeater {
            id: segments

            model: root.labels

            T.RadioButton {
                id: segment

                required property int index
                required property string modelData
                readonly property bool chosen: index === root.currentIndex

                implicitWidth: implicitContentWidth + 28
                leftPadding: 4
                rightPadding: 4
                width: row.width * (row.even ? 1 / Math.max(1, segments.count)
                                             : implicitWidth / row.total)
                height: row.height
                hoverEnabled: enabled
                // The one that keeps the keyboard may not be passed by, says Qt.
                focusPolicy: activeFocus || index === Math.max(0, root.currentIndex)
                             ? Qt.StrongFocus : Qt.ClickFocus
                focus: index === Math.max(0, root.currentIndex)
                autoExclusive: false
                checked: chosen
                onClicked: choose()

                Accessible.name: modelData
                Accessible.onPressAction: choose()
                Accessible.onToggleAction: choose()
                Keys.onReturnPressed: choose()
                Keys.onEnterPressed: choose()

                // A press ticks it; whether it is chosen is up to the picker.
                function choose() {
                    if (!enabled)
                        return;
                    root.activated(index);
                    checked = Qt.binding(() => segment.chosen);
                }

                background: Rectangle {
                    radius: 7
                    color: segment.chosen ? (segment.down ? Qt.darker(Theme.accent, 1.2)
                                                          : segment.hovered
                                                            ? Qt.lighter(Theme.accent, 1.06)
                                                            : Theme.accent)
                                          : Qt.rgba(1, 1, 1, segment.down ? 0.14
                                                                          : segment.hovered ? 0.07 : 0)

                    FocusRing {
                        shown: segment.visualFocus
                        around: parent.radius
                    }
                }
                contentItem: ThemeText {
                    text: segment.modelData
                    color: segment.chosen ? Theme.onAccent : Theme.text
                    font.pixelSize: 13
                    font.weight: Font.Medium
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                    Accessible.ignored: true
                }
            }
        }
    }
}
