// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Store.h"
#include "platform/UserMonths.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/LanguageTest.h"
#include "tests/support/ManualClock.h"
#include "tests/support/Samples.h"
#include "tests/ui/SheetStage.h"
#include "ui/SubscriptionEditModel.h"

#include <QSignalSpy>
#include <QTemporaryDir>

namespace tovarin {

/// The editor's sheet, handled as a user does.
class EditorTest : public LanguageTest {
protected:
    void open(SubscriptionEditModel::Source source = {});
    /// Opens the calendar, which then comes into sight as a whole.
    void openCalendar();

    QQuickItem &item(const char *name) { return stage->item(name); }
    /// The cell of a day, by its full name.
    QQuickItem &cell(const QString &fullDate);

    QString selectedDay() const { return form->startDateText(); }

    QTemporaryDir folder;
    LanguageScope language{GetParam()};
    ManualClock clock{instant("2025-06-09T20:00:00Z")};
    UserCalendar calendar = calendarIn("Asia/Shanghai");
    UserMonths months{QStringLiteral("en_US")};
    Store store{folder.path(), clock, calendar};
    std::optional<SubscriptionEditModel> form;
    std::optional<QSignalSpy> dismissed;
    std::optional<SheetStage> stage;
};

} // namespace tovarin
