// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/AppDelegate.h"
#include "app/DarkAppearance.h"
#include "app/LocalizationManager.h"
#include "app/NotificationManager.h"
#include "platform/ApplicationSupport.h"
#include "platform/Clock.h"
#include "platform/DayWatch.h"
#include "platform/SessionNotificationCenter.h"
#include "platform/SingleInstance.h"
#include "platform/UserCalendar.h"
#include "platform/UserDefaults.h"
#include "platform/UserMonths.h"
#include "scan/job/ScannerProgram.h"

#include <QApplication>
#include <QDir>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QtPlugin>

#include <cstdio>

Q_IMPORT_PLUGIN(TovarinPlugin)

using namespace Qt::Literals::StringLiterals;

namespace {

/// Draws without a graphics card, unless the user asks for something else in Qt's own variables:
/// a window of this kind is up sooner that way and takes a third of the memory.
void chooseRenderer() {
    if (!qEnvironmentVariableIsSet("QT_QUICK_BACKEND") &&
        !qEnvironmentVariableIsSet("QSG_RHI_BACKEND"))
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
}

/// The files named on the command line.
QList<QUrl> namedFiles() {
    QList<QUrl> files;
    for (const QString &argument : QApplication::arguments().sliced(1))
        files.append(QUrl::fromUserInput(argument, QDir::currentPath(), QUrl::AssumeLocalFile));
    return files;
}

} // namespace

int main(int argc, char **argv) {
    using namespace tovarin;

    QApplication::setApplicationName(u"Tovarin"_s);
    QApplication::setDesktopFileName(u"app.tovarin.Tovarin"_s);
    QApplication::setQuitOnLastWindowClosed(false);
    chooseRenderer();
    QQuickStyle::setStyle(u"Basic"_s);
    QApplication application(argc, argv);

    const QList<QUrl> files = namedFiles();
    SingleInstance instance;
    switch (instance.claim(files)) {
    case SingleInstance::Outcome::first:
        break;
    case SingleInstance::Outcome::handedOver:
        return EXIT_SUCCESS;
    case SingleInstance::Outcome::refused:
        std::fprintf(stderr, "%s\n", qPrintable(instance.refusal()));
        return EXIT_FAILURE;
    }

    const SystemClock clock;
    UserCalendar calendar = UserCalendar::current(processEnvironment());
    const UserMonths months = UserMonths::current(processEnvironment());
    SessionNotificationCenter center(
        QApplication::desktopFileName(), QDBusConnection::sessionBus(),
        SessionNotificationCenter::notifierProgram(QApplication::applicationDirPath()));
    NotificationManager notifications(center, clock, calendar, LocalizationManager::shared());
    AppDelegate delegate({applicationSupportFolder(processEnvironment()),
                          scannerProgram(QApplication::applicationDirPath()), clock, calendar,
                          months, LocalizationManager::shared(), UserDefaults::standard(),
                          notifications, QDBusConnection::sessionBus(), eventLoopDelay()});
    const DayWatch days(clock, calendar);
    useDarkAppearance(application);
    QObject::connect(&days, &DayWatch::changed, &delegate, &AppDelegate::noticeDay);
    QObject::connect(&instance, &SingleInstance::activated, &delegate,
                     &AppDelegate::showMainWindow);
    QObject::connect(&instance, &SingleInstance::openRequested, &delegate, &AppDelegate::open);
    delegate.applicationDidFinishLaunching();
    instance.start();
    if (!files.isEmpty())
        delegate.open(files);
    return QApplication::exec();
}
