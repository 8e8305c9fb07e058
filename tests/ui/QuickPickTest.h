// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Store.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/LanguageTest.h"
#include "tests/support/ManualClock.h"
#include "tests/support/MemoryDefaults.h"
#include "tests/support/Samples.h"
#include "tests/support/ScopedVariable.h"
#include "tests/ui/QuickPickSamples.h"
#include "tests/ui/SheetStage.h"
#include "ui/QuickPickModel.h"

#include <QSignalSpy>
#include <QTemporaryDir>

namespace tovarin {

/// The quick pick's sheet, handled as a user does.
class QuickPickTest : public LanguageTest {
protected:
    void open(QSize size = {640, 720});
    /// Opens it in step 2, with these services.
    void review(const QStringList &ids);

    QQuickItem &item(const char *name) { return stage->item(name); }
    int cellOf(const QString &id) { return tovarin::cellOf(*pick->cells(), id); }
    QQuickItem &cell(int number);
    QQuickItem &row(int number);
    /// A piece of a service's cell: "button", "tiers", "marker".
    QQuickItem &ofCell(const char *service, const char *name);
    /// A piece of a row: "amount", "hint".
    QQuickItem &ofRow(int number, const char *name);
    QString marker(const char *service) {
        return ofCell(service, "marker").property("name").toString();
    }

    QString place() const { return stage->place(); }
    void retype(QQuickItem &field, const QString &text) { stage->retype(field, text); }
    bool isInSight(const QQuickItem &it, const char *area);
    QStringList storedNames() const { return namesOf(store.subscriptions()); }

    // The fields write numbers as the user does.
    ScopedVariable locale{"LC_ALL", "en_US.UTF-8"};
    QTemporaryDir folder;
    LanguageScope language{GetParam()};
    ManualClock clock{instant("2025-06-09T20:00:00Z")};
    UserCalendar calendar = calendarIn("Asia/Shanghai");
    Store store{folder.path(), clock, calendar};
    Bundle bundle{QStringLiteral(":/resources")};
    ServiceLogo logos{bundle};
    MemoryDefaults defaults;
    std::optional<QuickPickModel> pick;
    std::optional<QSignalSpy> dismissed;
    std::optional<SheetStage> stage;
};

} // namespace tovarin
