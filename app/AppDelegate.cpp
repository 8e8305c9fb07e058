// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"

#include "app/LocalizationManager.h"
#include "app/NotificationManager.h"
#include "app/PanelPlace.h"
#include "ui/AppFonts.h"
#include "ui/ImageProviders.h"

#include <QCursor>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickView>
#include <QQuickWindow>
#include <QScreen>
#include <QTimer>

#include <chrono>
#include <utility>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

// The window comes first: of a long list, the reminders take as long to plan as it takes to draw.
constexpr auto planningDelay = 100ms;

// The press that takes the keyboard from the panel may be the one on its own item, which is meant
// to close it and not to open it anew. It is when the item is triggered soon and where the press
// was.
constexpr qint64 sameClick = 400; // milliseconds
constexpr int samePlace = 8;

// A window manager that has just lost another window may take the keyboard from the new panel
// again, while it looks for a window to give it to. Nobody has clicked elsewhere then: the pointer
// is still where it opened the panel.
constexpr auto settling = 500ms;

QUrl mainScreen() {
    return QUrl(u"qrc:/Tovarin/Main.qml"_s);
}

/// What the main window is made of: a thread of the engine loads it while the list is read.
std::unique_ptr<QQmlComponent> startLoading(QQmlEngine &engine) {
    engine.addImportPath(u"qrc:/"_s);
    return std::make_unique<QQmlComponent>(&engine, mainScreen(), QQmlComponent::Asynchronous);
}

/// Puts the layer of sheets and menus behind everything else in the order of the window's items,
/// by which a screen reader decides what is on top. It is drawn on top in any case.
void stackOverlayLast(const QQuickWindow &window) {
    const QList<QQuickItem *> items = window.contentItem()->childItems();
    for (QQuickItem *const item : items) {
        if (item->inherits("QQuickOverlay") && item != items.last())
            item->stackAfter(items.last());
    }
}

/// The sizes in which window managers and panels show it. The mark in its own size would be a
/// megabyte that the display has to be sent.
QIcon windowIcon(const QImage &mark) {
    QIcon icon;
    for (const int size : {32, 64, 128}) {
        if (!mark.isNull())
            icon.addPixmap(QPixmap::fromImage(
                mark.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation)));
    }
    return icon;
}

bool isNear(QPoint one, QPoint other) {
    return (one - other).manhattanLength() <= samePlace;
}

QScreen *screenOf(const QRect &item, QPoint pointer) {
    QScreen *const screen = QGuiApplication::screenAt(item.isEmpty() ? pointer : item.center());
    return screen ? screen : QGuiApplication::primaryScreen();
}

} // namespace

AppDelegate::AppDelegate(const Surroundings &surroundings)
    : m_loc(surroundings.loc)
    , m_screens(startLoading(m_engine))
    , m_bundle(u":/resources"_s)
    , m_logos(m_bundle)
    , m_brand(m_bundle)
    , m_store(surroundings.applicationSupport, surroundings.clock, surroundings.calendar)
    , m_content(m_store, surroundings.clock, surroundings.calendar, surroundings.loc, m_logos)
    , m_scanJob(surroundings.scanner)
    , m_bills(m_scanJob, m_openPanel)
    , m_sheets({m_store, surroundings.clock, surroundings.calendar, surroundings.months,
                surroundings.loc, m_logos, surroundings.defaults, surroundings.delay})
    , m_menu(surroundings.loc.isZh())
    , m_defaults(surroundings.defaults)
    , m_notifications(surroundings.notifications)
    , m_bus(surroundings.bus)
    , m_delay(surroundings.delay) {
    addImageProviders(m_engine, m_bundle, m_brand, m_logos);
    connect(&m_bills, &BillScanModel::draftsFound, &m_sheets, &ContentSheets::take);
    connect(&m_sheets, &ContentSheets::remindDaysBeforeChanged, this,
            &AppDelegate::rescheduleReminders);
    connect(&m_sheets, &ContentSheets::testNotificationRequested, this,
            [this] { m_notifications.sendTest(); });
    connect(this, &AppDelegate::mainWindowDidShow, &m_sheets,
            &ContentSheets::offerQuickPickIfNeeded);
    connect(&m_menu, &MainMenu::hide, this, &AppDelegate::hide);
    connect(&m_menu, &MainMenu::quit, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
}

AppDelegate::~AppDelegate() {
    if (m_isToPlan)
        rescheduleReminders();
    delete m_closedPopover;
}

void AppDelegate::applicationDidFinishLaunching() {
    AppFonts::registerBundledFonts(m_bundle);
    QGuiApplication::setWindowIcon(windowIcon(m_brand.markImage()));
    showMainWindow();
    setupStatusItem();
    m_notifications.requestAuthorization();
    planReminders();
    m_store.observe(this, [this](const QList<Subscription> &) { updateStatusTitle(); });
}

void AppDelegate::showMainWindow(const QString &activationToken) {
    closePopover();
    if (!m_window) {
        makeWindow();
        windowDidAppear();
    }
    if (!m_window->isVisible()) {
        // Some displays forget the place of a window that is closed.
        m_frame.reset();
        m_frame = std::make_unique<WindowFrame>(*m_window, u"TovarinMainWindow"_s, m_defaults);
    }
    if (!activationToken.isEmpty())
        qputenv("XDG_ACTIVATION_TOKEN", activationToken.toUtf8());
    if (m_window->windowStates().testFlag(Qt::WindowMinimized))
        m_window->setWindowStates(m_window->windowStates() & ~Qt::WindowMinimized);
    m_window->setVisible(true);
    m_window->raise();
    m_window->requestActivate();
    Q_EMIT mainWindowDidShow();
}

void AppDelegate::open(const QList<QUrl> &files, const QString &activationToken) {
    showMainWindow(activationToken);
    m_bills.readFiles(files);
}

void AppDelegate::togglePopover(QPoint pointer) {
    if (m_popover) {
        closePopover();
        return;
    }
    if (m_sincePopoverLostFocus.isValid()) {
        const bool isSameClick =
            !m_sincePopoverLostFocus.hasExpired(sameClick) && isNear(pointer, m_pointerAtLoss);
        m_sincePopoverLostFocus.invalidate();
        if (isSameClick)
            return;
    }
    m_popover = std::make_unique<QQuickView>(&m_engine, nullptr);
    m_panel = new MenuBarModel(m_store, m_loc, m_popover.get());
    m_popover->setFlags(Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    m_popover->setTitle(u"Tovarin"_s);
    m_popover->setColor(Qt::black);
    m_popover->setInitialProperties({{u"panel"_s, QVariant::fromValue(m_panel.data())}});
    m_popover->setSource(QUrl(u"qrc:/Tovarin/MenuBarView.qml"_s));
    QQuickItem *const root = m_popover->rootObject();
    connect(root, SIGNAL(open()), this, SLOT(openFromPopover()));
    connect(root, SIGNAL(quit()), qApp, SLOT(quit()), Qt::QueuedConnection);
    connect(root, SIGNAL(dismiss()), this, SLOT(closePopover()));
    connect(m_popover.get(), &QWindow::activeChanged, this, &AppDelegate::noticePopoverFocus);

    const QRect item = m_statusItem ? m_statusItem->geometry() : QRect();
    QScreen *const screen = screenOf(item, pointer);
    m_popover->setScreen(screen);
    m_popover->setPosition(
        panelPlace(item, pointer, screen->availableGeometry(), m_popover->size()));
    m_sincePopoverOpened.start();
    m_pointerAtOpening = QCursor::pos();
    m_popover->show();
    m_popover->raise();
    m_popover->requestActivate();
}

void AppDelegate::hide() {
    // A file panel would stay behind alone.
    if (QGuiApplication::modalWindow())
        return;
    closePopover();
    if (m_window)
        m_window->hide();
}

void AppDelegate::noticeDay() {
    m_content.noticeDay();
    m_sheets.noticeDay();
    if (m_panel)
        m_panel->noticeDay();
}

void AppDelegate::openFromPopover() {
    showMainWindow();
}

void AppDelegate::closePopover() {
    if (!m_popover)
        return;
    // It may be the panel itself that asks for this.
    m_closedPopover = m_popover.release();
    m_closedPopover->disconnect(this);
    m_closedPopover->hide();
    m_closedPopover->deleteLater();
}

void AppDelegate::setupStatusItem() {
    m_statusItem = std::make_unique<StatusItem>(m_bus);
    m_statusItem->setIcon([this] { return m_brand.panelIcon(); });
    connect(m_statusItem.get(), &StatusItem::triggered, this, &AppDelegate::togglePopover);
    updateStatusTitle();
}

void AppDelegate::updateStatusTitle() {
    if (!m_statusItem)
        return;
    m_statusToolTip = m_loc.isZh() ? u"Tovarin · 点击查看订阅支出"_s
                                   : u"Tovarin · Click to view subscription spend"_s;
    m_statusItem->setToolTip(m_statusToolTip);
}

void AppDelegate::makeWindow() {
    // Waits for what is still to be loaded.
    QQmlComponent component(&m_engine, mainScreen());
    m_screens.reset();
    QObject *const object =
        component.createWithInitialProperties({{u"content"_s, QVariant::fromValue(&m_content)},
                                               {u"bills"_s, QVariant::fromValue(&m_bills)},
                                               {u"sheets"_s, QVariant::fromValue(&m_sheets)},
                                               {u"menu"_s, QVariant::fromValue(&m_menu)}});
    m_window.reset(qobject_cast<QQuickWindow *>(object));
    if (!m_window)
        qFatal("The main window is missing: %s", qPrintable(component.errorString()));
    stackOverlayLast(*m_window);
}

void AppDelegate::windowDidAppear() {
    m_notifications.requestAuthorization();
    planReminders();
    connect(&m_store, &Store::subscriptionsDidChange, this, &AppDelegate::rescheduleReminders);
}

void AppDelegate::planReminders() {
    if (std::exchange(m_isToPlan, true))
        return;
    m_delay(planningDelay, this, [this] {
        if (m_isToPlan)
            rescheduleReminders();
    });
}

void AppDelegate::rescheduleReminders() {
    m_isToPlan = false;
    m_notifications.reschedule(m_store.subscriptions(),
                               SettingsModel::storedRemindDaysBefore(m_defaults));
}

void AppDelegate::noticePopoverFocus() {
    if (!m_popover || m_popover->isActive())
        return;
    if (!QGuiApplication::focusWindow() && !m_sincePopoverOpened.hasExpired(settling.count()) &&
        isNear(QCursor::pos(), m_pointerAtOpening)) {
        m_popover->requestActivate();
        // It must not stay if it doesn't get it: nothing would tell of a click elsewhere.
        QTimer::singleShot(settling, m_popover.get(), [this] { noticePopoverFocus(); });
        return;
    }
    m_sincePopoverLostFocus.start();
    m_pointerAtLoss = QCursor::pos();
    closePopover();
}

} // namespace tovarin
