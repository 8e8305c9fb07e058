// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "app/FileDialogPanel.h"
#include "app/StatusItem.h"
#include "app/WindowFrame.h"
#include "catalog/ServiceLogo.h"
#include "model/Store.h"
#include "platform/Bundle.h"
#include "platform/Delay.h"
#include "scan/job/ScanJob.h"
#include "ui/BillScanModel.h"
#include "ui/BrandAssets.h"
#include "ui/ContentModel.h"
#include "ui/ContentSheets.h"
#include "ui/MainMenu.h"
#include "ui/MenuBarModel.h"

#include <QElapsedTimer>
#include <QList>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QQmlEngine>
#include <QUrl>

#include <memory>

class QQmlComponent;
class QQuickView;
class QQuickWindow;

namespace tovarin {

class NotificationManager;

/// Runs the program: it has the one Store, opens the main window, and shows the status item, whose
/// click opens a panel. Closing the window does not end the program; quitting does.
/// Lives as long as the program, and needs a QApplication.
class AppDelegate : public QObject {
    Q_OBJECT

public:
    /// What the program is made of; all of it must outlive the delegate.
    struct Surroundings {
        QString applicationSupport; ///< The user's application-support folder.
        QString scanner;            ///< The path of tovarin-scanner.
        const Clock &clock;
        const UserCalendar &calendar;
        const UserMonths &months;
        LocalizationManager &loc;
        UserDefaults &defaults; ///< Settings, and where the window's place is remembered.
        NotificationManager &notifications;
        QDBusConnection bus; ///< Where the desktop's services are.
        Delay delay;         ///< For what comes a little later.
    };

    /// Loads the list. The language of the main menu is decided here, for the life of the program.
    explicit AppDelegate(const Surroundings &surroundings);
    ~AppDelegate() override;

    /// Shows the window and the status item, once everything else is there.
    void applicationDidFinishLaunching();

    /// Makes the main window, or brings the one there is back to the front; closes the panel. The
    /// token, of whoever wants it, allows that where windows may not come to the front by
    /// themselves.
    void showMainWindow(const QString &activationToken = {});

    /// Shows the main window and reads these bills.
    void open(const QList<QUrl> &files, const QString &activationToken = {});

    /// Opens the panel beside the status item, with what is true now, or closes it. `pointer`
    /// stands for the item where nobody knows its place.
    void togglePopover(QPoint pointer);

    /// Takes the windows out of sight; the program goes on.
    void hide();

    /// Another day has begun, or the zone has changed.
    void noticeDay();

    /// Null before the first showMainWindow().
    QQuickWindow *window() const { return m_window.get(); }

    /// Null while the panel is closed.
    QQuickView *popover() const { return m_popover.get(); }

    /// What the pointer reads when it rests on the status item.
    QString statusToolTip() const { return m_statusToolTip; }

    Store &store() { return m_store; }
    const ContentSheets &sheets() const { return m_sheets; }

Q_SIGNALS:
    /// The main window was shown, or shown again: each time, also when it was in sight already.
    void mainWindowDidShow();

private Q_SLOTS:
    void openFromPopover();
    void closePopover();

private:
    void setupStatusItem();
    void updateStatusTitle();
    void makeWindow();
    void windowDidAppear();
    /// Reschedules them soon, once for the window that appears and for the start.
    void planReminders();
    void rescheduleReminders();
    void noticePopoverFocus();

    LocalizationManager &m_loc;
    QQmlEngine m_engine;
    std::unique_ptr<QQmlComponent> m_screens; ///< Until the window is made.
    Bundle m_bundle;
    ServiceLogo m_logos;
    BrandAssets m_brand;
    Store m_store;
    ContentModel m_content;
    ScanJob m_scanJob;
    FileDialogPanel m_openPanel;
    BillScanModel m_bills;
    ContentSheets m_sheets;
    MainMenu m_menu;
    UserDefaults &m_defaults;
    NotificationManager &m_notifications;
    QDBusConnection m_bus;
    Delay m_delay;
    bool m_isToPlan = false; ///< The reminders, in a moment.
    std::unique_ptr<QQuickWindow> m_window;
    std::unique_ptr<WindowFrame> m_frame;
    std::unique_ptr<StatusItem> m_statusItem;
    QString m_statusToolTip;
    std::unique_ptr<QQuickView> m_popover;
    QPointer<MenuBarModel> m_panel;       ///< The panel's.
    QPointer<QQuickView> m_closedPopover; ///< It may not outlive this.
    QElapsedTimer m_sincePopoverOpened;
    QPoint m_pointerAtOpening;
    /// Since the panel closed because it lost the keyboard.
    QElapsedTimer m_sincePopoverLostFocus;
    QPoint m_pointerAtLoss;
};

} // namespace tovarin
