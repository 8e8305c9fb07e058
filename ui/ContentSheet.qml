// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

import QtQuick
import Tovarin

// The place of the main window's sheets. Each has its line here.
Sheet {
    id: root

    required property ContentSheets sheets

    label: screen.item?.label ?? ""
    preferredWidth: screen.item?.implicitWidth ?? 0
    preferredHeight: screen.item?.implicitHeight ?? 0
    // It is closed, and the next has not yet opened, if one waits.
    signal left

    onClosed: {
        left();
        // Escape, as the other ways to close come from the sheets' models.
        sheets.dismiss();
    }

    // A screen takes its model once: it ends before the model does, and must not see it go.
    function showScreen() {
        switch (sheets.sheet) {
        case ContentSheets.Editor:
            screen.setSource("SubscriptionEditView.qml", {edit: sheets.editor()});
            break;
        case ContentSheets.Detail:
            screen.setSource("SubscriptionDetailView.qml", {detail: sheets.detail()});
            break;
        case ContentSheets.QuickPick:
            screen.setSource("QuickPickView.qml", {quickPick: sheets.quickPick()});
            break;
        case ContentSheets.BatchReview:
            screen.setSource("BatchScanReviewView.qml", {review: sheets.batchReview()});
            break;
        case ContentSheets.Settings:
            screen.setSource("SettingsView.qml", {settings: sheets.settings()});
            break;
        default:
            screen.setSource("");
        }
    }

    Connections {
        target: root.sheets

        function onSheetChanged() {
            root.showScreen();
            if (root.sheets.sheet === ContentSheets.None)
                root.close();
            else
                root.open();
        }
    }
    Loader {
        id: screen

        anchors.fill: parent
        focus: true
        onLoaded: item.focus = true
    }
}
