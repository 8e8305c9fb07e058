// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Store.h"
#include "platform/UserMonths.h"
#include "tests/scan/job/ScanRun.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/LanguageTest.h"
#include "tests/support/ManualClock.h"
#include "tests/support/ManualDelay.h"
#include "tests/support/MemoryDefaults.h"
#include "tests/support/Samples.h"
#include "tests/support/ScriptedPanel.h"
#include "ui/BillScanModel.h"
#include "ui/ContentModel.h"
#include "ui/ContentSheets.h"
#include "ui/MainMenu.h"

#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <optional>

namespace tovarin {

/// The main window as the program loads it, with all that it needs, in both languages. Any message
/// of Qt's of level warning or worse fails the test.
class MainWindow : public LanguageTest {
protected:
    MainWindow();
    ~MainWindow() override;

    /// Copies the file to where the list is loaded from; before open().
    void useFile(const QString &path);

    void open();

    /// Waits until the window has drawn what it has to draw.
    void settle();

    QQuickItem &list() const { return item("list"); }
    qreal aboveSight() const;
    qreal belowSight() const;

    /// The item of this name, which is there.
    QQuickItem &item(const char *name) const;

    /// The place of the first item in sight that shows the text, in the window.
    QPoint placeOf(const QString &text) const;

    /// The rows that were made and have this property, from top to bottom.
    QList<QQuickItem *> rowsWith(const char *property) const;

    void click(const QString &text);
    void click(const QQuickItem &item);
    static QPoint middleOf(const QQuickItem &item);
    void doubleClick(QPoint place);
    void press(Qt::Key key);
    void type(const QString &text);

    /// What the keyboard is at: its title, or its name.
    QString focused() const;

    /// What the window does with files that are dropped there, or on its middle, of which the first
    /// of these actions is proposed: the action that it takes.
    Qt::DropAction drop(const QList<QUrl> &urls,
                        const QList<Qt::DropAction> &possible = {Qt::CopyAction, Qt::MoveAction},
                        std::optional<QPoint> place = {});

    void waitForScan();

    QStringList texts() const;

    QTemporaryDir folder;
    LanguageScope language{GetParam()};
    ManualClock clock{instant("2025-06-10T01:00:00Z")};
    UserCalendar calendar = calendarIn("Asia/Shanghai");
    UserMonths months{QStringLiteral("en_US")};
    Bundle bundle{QStringLiteral(":/resources")};
    ServiceLogo logos{bundle};
    MemoryDefaults defaults;
    ManualDelay delays;
    std::optional<Store> store;
    std::optional<ContentModel> content;
    ScanJob job{standInScanner(), amply};
    ScriptedPanel panel{{}};
    std::optional<BillScanModel> bills;
    std::optional<ContentSheets> sheets;
    MainMenu menu{isZh()};
    QQmlApplicationEngine engine;
    QQuickWindow *window = nullptr;
};

} // namespace tovarin
