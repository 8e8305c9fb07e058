// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Store.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/LanguageTest.h"
#include "tests/support/ManualClock.h"
#include "tests/support/Samples.h"
#include "tests/support/ScopedVariable.h"
#include "tests/ui/SheetStage.h"
#include "ui/BatchScanReviewModel.h"

#include <QSignalSpy>
#include <QTemporaryDir>

namespace tovarin {

/// The batch review's sheet, handled as a user does.
class BatchReviewTest : public LanguageTest {
protected:
    /// Opens it with these items, or with what `items` holds.
    void open(const QStringList &names);
    void open();

    QQuickItem &item(const char *name) { return stage->item(name); }
    QQuickItem &row(int number);
    /// A piece of a row: "check", "name", "warning", "amount", "cycle".
    QQuickItem &piece(int number, const QString &name) {
        return SheetStage::piece(row(number), name);
    }

    QString place() const { return stage->place(); }
    void retype(QQuickItem &field, const QString &text) { stage->retype(field, text); }

    QString counter() { return stage->value("counter", "text").toString(); }
    QString confirmTitle() { return stage->value("confirm", "title").toString(); }

    // The fields write numbers as the user does.
    ScopedVariable locale{"LC_ALL", "en_US.UTF-8"};
    QTemporaryDir folder;
    LanguageScope language{GetParam()};
    ManualClock clock{instant("2025-06-09T20:00:00Z")};
    UserCalendar calendar = calendarIn("Asia/Shanghai");
    Store store{folder.path(), clock, calendar};
    QList<ScanDraftItem> items;
    std::optional<BatchScanReviewModel> review;
    std::optional<QSignalSpy> dismissed;
    std::optional<SheetStage> stage;
};

} // namespace tovarin
