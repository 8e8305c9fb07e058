// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Layouts
import Tovarin

// The sheet in which one subscription is added, confirmed, changed or deleted.
FocusScope {
    id: root

    required property SubscriptionEditModel edit

    readonly property bool isZh: LocalizationManager.isZh
    readonly property string label: edit.titleText
    readonly property Item focusItem: Window.activeFocusItem

    implicitWidth: 520
    implicitHeight: 620

    Component.onCompleted: {
        edit.populate();
        notes.text = edit.notes;
        notes.filled = true;
    }
    onFocusItemChanged: middle.reveal(focusItem)

    // The default action. A key that is held from before the sheet opened does not count.
    function saveBy(event: KeyEvent) {
        if (edit.isValid && !event.isAutoRepeat)
            edit.save();
    }

    ThemeText {
        id: title

        anchors.top: parent.top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.margins: 24
        text: "[ " + root.edit.titleText + " ]"
        color: Theme.accent
        font.pixelSize: 15
        font.weight: Font.DemiBold
    }

    Flickable {
        id: middle

        anchors.top: title.bottom
        anchors.topMargin: 16
        anchors.bottom: footer.top
        anchors.left: parent.left
        anchors.right: parent.right
        contentHeight: form.height + 24
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        // What is scrolled out of it would otherwise cover the footer, for a screen reader.
        Accessible.role: Accessible.Pane

        ScrollBar.vertical: ScrollBar {}

        // The keyboard does not go where nobody sees it. The first row of a section brings its title
        // into sight, and the last row its end.
        function reveal(item: Item) {
            let above = item;
            while (above && above !== form)
                above = above.parent;
            if (!above)
                return;
            const margin = 44;
            const top = item.mapToItem(form, 0, 0).y + form.y;
            if (top + item.height + margin > contentY + height)
                contentY = Math.min(contentHeight - height, top + item.height + margin - height);
            if (top - margin < contentY)
                contentY = Math.max(0, top - margin);
        }

        ColumnLayout {
            id: form

            x: 24
            width: middle.width - 48
            spacing: 20

            // Whether the calendar opens and has no place yet.
            property bool opening: false

            onHeightChanged: {
                if (opening)
                    placed.start();
                opening = false;
            }

            // Comes when everything has its place.
            Timer {
                id: placed

                interval: 0
                onTriggered: middle.reveal(picker)
            }

            FormSection {
                Layout.fillWidth: true
                title: root.isZh ? "基本信息" : "Basics"

                FormRow {
                    labelWidth: root.edit.labelWidth
                    label: root.isZh ? "名称" : "Name"

                    TextField {
                        objectName: "name"
                        Layout.fillWidth: true
                        focus: true
                        label: root.isZh ? "名称" : "Name"
                        placeholderText: root.isZh ? "如 ChatGPT Plus" : "e.g. ChatGPT Plus"
                        text: root.edit.name
                        onTextChanged: root.edit.name = text
                        Keys.onReturnPressed: event => root.saveBy(event)
                        Keys.onEnterPressed: event => root.saveBy(event)
                    }
                }
                FormRow {
                    labelWidth: root.edit.labelWidth
                    label: root.isZh ? "金额" : "Amount"

                    TextField {
                        objectName: "amount"
                        Layout.fillWidth: true
                        label: root.isZh ? "金额" : "Amount"
                        placeholderText: "0.00"
                        acceptable: text === "" || root.edit.isAmountValid
                        text: root.edit.amountText
                        onTextChanged: root.edit.amountText = text
                        Keys.onReturnPressed: event => root.saveBy(event)
                        Keys.onEnterPressed: event => root.saveBy(event)
                    }
                    Picker {
                        objectName: "currency"
                        Layout.preferredWidth: 110
                        label: root.isZh ? "币种" : "Currency"
                        model: root.edit.currencies
                        currentIndex: root.edit.currencyIndex
                        displayText: root.edit.currency
                        onActivated: index => root.edit.chooseCurrency(index)
                    }
                }
                FormRow {
                    labelWidth: root.edit.labelWidth
                    label: root.isZh ? "分类" : "Category"

                    Picker {
                        objectName: "category"
                        Layout.fillWidth: true
                        label: root.isZh ? "分类" : "Category"
                        model: root.edit.categoryNames
                        currentIndex: root.edit.categoryIndex
                        displayText: root.edit.categoryName
                        onActivated: index => root.edit.chooseCategory(index)
                        // Other names begin at the first of them.
                        onModelChanged: currentIndex = Qt.binding(() => root.edit.categoryIndex)
                    }
                }
            }
            FormSection {
                Layout.fillWidth: true
                title: root.isZh ? "付费方式" : "Billing"

                FormRow {
                    labelWidth: root.edit.labelWidth
                    label: root.isZh ? "类型" : "Type"

                    SegmentedPicker {
                        objectName: "type"
                        Layout.fillWidth: true
                        label: root.isZh ? "类型" : "Type"
                        labels: root.edit.billingTypeNames
                        currentIndex: root.edit.billingTypeIndex
                        onActivated: index => root.edit.chooseBillingType(index)
                    }
                }
                FormRow {
                    labelWidth: root.edit.labelWidth
                    visible: !root.edit.isOneTime
                    label: root.isZh ? "周期" : "Cycle"

                    Picker {
                        objectName: "cycle"
                        Layout.fillWidth: true
                        label: root.isZh ? "周期" : "Cycle"
                        model: root.edit.cycleNames
                        currentIndex: root.edit.cycleIndex
                        onActivated: index => root.edit.chooseCycle(index)
                        onModelChanged: currentIndex = Qt.binding(() => root.edit.cycleIndex)
                    }
                }
                FormRow {
                    labelWidth: root.edit.labelWidth
                    label: dateRow.title

                    FoldButton {
                        id: dateRow

                        objectName: "date"
                        Layout.fillWidth: true
                        title: root.edit.isOneTime ? (root.isZh ? "购买日" : "Purchase date")
                                                   : (root.isZh ? "首次扣费" : "First charge")
                        icon.name: "calendar"
                        value: root.edit.startDateText
                        unfolded: root.edit.dateExpanded
                        onClicked: root.edit.dateExpanded = !root.edit.dateExpanded
                    }
                }
                LargeCalendarDatePicker {
                    id: picker

                    objectName: "calendar"
                    Layout.fillWidth: true
                    visible: root.edit.dateExpanded
                    calendar: root.edit.calendar
                    onVisibleChanged: form.opening = visible
                }
                FormRow {
                    labelWidth: root.edit.labelWidth
                    label: root.isZh ? "仍在使用" : "Still active"

                    Switch {
                        objectName: "active"
                        Layout.preferredHeight: 36
                        label: root.isZh ? "仍在使用" : "Still active"
                        checked: root.edit.isActive
                        onToggled: root.edit.isActive = checked
                    }
                    Item {
                        Layout.fillWidth: true
                    }
                }
            }
            FormSection {
                Layout.fillWidth: true
                title: root.isZh ? "备注" : "Notes"

                TextArea {
                    id: notes

                    // It has other line breaks than a record may have; whoever types nothing here
                    // keeps his own.
                    property bool filled: false

                    objectName: "notes"
                    Layout.fillWidth: true
                    label: root.isZh ? "备注" : "Notes"
                    placeholderText: root.isZh ? "可选备注" : "Optional notes"
                    onTextChanged: {
                        if (filled)
                            root.edit.notes = text;
                    }
                }
            }
        }
    }

    Rectangle {
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.bottom: middle.top
        height: 1
        color: Theme.hairline
        visible: middle.contentY > 0
    }

    SheetFooter {
        id: footer

        SoftButton {
            objectName: "delete"
            visible: root.edit.isExisting
            destructive: true
            title: root.isZh ? "删除" : "Delete"
            onClicked: root.edit.deleteSubscription()
        }
        Item {
            Layout.fillWidth: true
        }
        SoftButton {
            objectName: "cancel"
            title: root.isZh ? "取消" : "Cancel"
            onClicked: root.edit.cancel()
        }
        SoftButton {
            objectName: "save"
            prominent: true
            enabled: root.edit.isValid
            title: root.isZh ? "保存" : "Save"
            onClicked: root.edit.save()
        }
    }
}
