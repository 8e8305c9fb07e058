// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Store.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/LanguageTest.h"
#include "tests/support/ManualClock.h"
#include "tests/support/MemoryDefaults.h"
#include "tests/support/Samples.h"
#include "tests/ui/QuickPickSamples.h"
#include "ui/QuickPickModel.h"

#include <QSignalSpy>
#include <QTemporaryDir>

namespace tovarin {

/// What the tests of the quick pick's rules have in common.
class QuickPickModelTest : public LanguageTest {
protected:
    void addToStore(const QString &name) { store.add(sampleSubscription(name)); }

    int cellOf(const QString &id) const { return tovarin::cellOf(*pick.cells(), id); }
    const QuickPickCells::Cell &cell(const QString &id) const {
        return pick.cells()->cells()[cellOf(id)];
    }
    QString price(const QString &id) const { return pick.cardPriceLabel(preset(id)); }
    QVariant row(int row, int role) const { return pick.rows()->index(row).data(role); }

    QStringList storedNames() const { return namesOf(store.subscriptions()); }

    QTemporaryDir folder;
    LanguageScope language{GetParam()};
    ManualClock clock{instant("2025-06-09T20:00:00Z")};
    UserCalendar calendar = calendarIn("Pacific/Kiritimati");
    Store store{folder.path(), clock, calendar};
    Bundle bundle{QStringLiteral(":/resources")};
    ServiceLogo logos{bundle};
    MemoryDefaults defaults;
    int completions = 0;
    mutable QuickPickModel pick{store, clock,    LocalizationManager::shared(),
                                logos, defaults, [this] { ++completions; }};
    QSignalSpy dismissed{&pick, &QuickPickModel::dismissed};
    const QMap<QString, QString> done{
        {QStringLiteral("didCompleteQuickPick"), QStringLiteral("true")}};
};

} // namespace tovarin
