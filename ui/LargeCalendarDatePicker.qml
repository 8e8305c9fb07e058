// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tovarin

// A month to choose a day from. Tab reaches the days once; the arrow keys, Page Up and Down, Home
// and End choose among them.
FocusScope {
    id: root

    required property CalendarModel calendar

    readonly property bool isZh: LocalizationManager.isZh
    readonly property real spacing: 6
    readonly property real cellWidth: (width - (calendar.columns - 1) * spacing) / calendar.columns

    implicitWidth: 360
    implicitHeight: content.implicitHeight

    Accessible.role: Accessible.Grouping
    Accessible.name: calendar.monthTitle

    Column {
        id: content

        width: parent.width
        spacing: 8

        RowLayout {
            width: parent.width
            spacing: 4

            ThemeText {
                Layout.fillWidth: true
                Layout.leftMargin: 8
                text: root.calendar.monthTitle
                font.pixelSize: 15
                font.weight: Font.DemiBold
            }
            IconButton {
                icon.name: "chevron.left"
                title: root.isZh ? "上个月" : "Previous month"
                onClicked: root.calendar.moveMonth(-1)
            }
            IconButton {
                icon.name: "chevron.right"
                title: root.isZh ? "下个月" : "Next month"
                onClicked: root.calendar.moveMonth(1)
            }
        }
        Row {
            spacing: root.spacing

            Repeater {
                model: root.calendar.weekdaySymbols

                ThemeText {
                    required property string modelData

                    width: root.cellWidth
                    text: modelData
                    color: Theme.textSecondary
                    font.pixelSize: 11
                    horizontalAlignment: Text.AlignHCenter
                }
            }
        }
        Grid {
            columns: root.calendar.columns
            spacing: root.spacing

            Keys.onPressed: event => {
                switch (event.key) {
                case Qt.Key_Left:
                    root.calendar.moveDay(-1);
                    break;
                case Qt.Key_Right:
                    root.calendar.moveDay(1);
                    break;
                case Qt.Key_Up:
                    root.calendar.moveDay(-root.calendar.columns);
                    break;
                case Qt.Key_Down:
                    root.calendar.moveDay(root.calendar.columns);
                    break;
                case Qt.Key_PageUp:
                    root.calendar.moveDayByMonths(-1);
                    break;
                case Qt.Key_PageDown:
                    root.calendar.moveDayByMonths(1);
                    break;
                case Qt.Key_Home:
                    root.calendar.moveToStartOfWeek();
                    break;
                case Qt.Key_End:
                    root.calendar.moveToEndOfWeek();
                    break;
                default:
                    return;
                }
                event.accepted = true;
                const cell = cells.itemAt(root.calendar.focusRow);
                if (cell)
                    cell.forceActiveFocus(Qt.TabFocusReason);
            }

            Repeater {
                id: cells

                model: root.calendar

                DayButton {
                    required property int index
                    required property string dayNumber
                    required property string fullDate

                    width: root.cellWidth
                    number: dayNumber
                    title: fullDate
                    // The one that keeps the keyboard may not be passed by, says Qt.
                    focusPolicy: activeFocus || index === root.calendar.focusRow ? Qt.StrongFocus
                                                                                 : Qt.ClickFocus
                    onClicked: {
                        const byKeyboard = visualFocus;
                        root.calendar.select(index);
                        const cell = cells.itemAt(root.calendar.focusRow);
                        if (cell)
                            cell.forceActiveFocus(byKeyboard ? Qt.TabFocusReason
                                                             : Qt.MouseFocusReason);
                    }

                    Accessible.description: isToday ? (root.isZh ? "今天" : "Today") : ""
                }
            }
        }
    }
}
