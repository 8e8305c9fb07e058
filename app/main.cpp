// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/FileDialogPanel.h"
#include "app/LocalizationManager.h"
#include "catalog/ServiceLogo.h"
#include "model/Store.h"
#include "platform/ApplicationSupport.h"
#include "platform/Bundle.h"
#include "platform/Clock.h"
#include "platform/UserCalendar.h"
#include "scan/job/ScanJob.h"
#include "scan/job/ScannerProgram.h"
#include "ui/AppFonts.h"
#include "ui/BillScanModel.h"
#include "ui/ContentModel.h"
#include "ui/ImageProviders.h"

#include <QApplication>
#include <QQmlApplicationEngine>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QtPlugin>

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

} // namespace

int main(int argc, char **argv) {
    using namespace tovarin;

    QApplication::setApplicationName(u"Tovarin"_s);
    QApplication::setDesktopFileName(u"app.tovarin.Tovarin"_s);
    chooseRenderer();
    QQuickStyle::setStyle(u"Basic"_s);
    const QApplication application(argc, argv);

    const Bundle bundle(u":/resources"_s);
    AppFonts::registerBundledFonts(bundle);
    const ServiceLogo logos(bundle);

    const SystemClock clock;
    const UserCalendar calendar = UserCalendar::current(processEnvironment());
    const LocalizationManager &loc = LocalizationManager::shared();
    Store store(applicationSupportFolder(processEnvironment()), clock, calendar);
    ContentModel content(store, clock, calendar, loc, logos);
    QObject::connect(&application, &QGuiApplication::applicationStateChanged, &content,
                     &ContentModel::noticeDay);
    ScanJob scanJob(scannerProgram(QApplication::applicationDirPath()));
    FileDialogPanel openPanel;
    BillScanModel bills(scanJob, openPanel, store);

    QQmlApplicationEngine engine;
    engine.addImportPath(u"qrc:/"_s);
    addImageProviders(engine, bundle, logos);
    engine.setInitialProperties(
        {{u"content"_s, QVariant::fromValue(&content)}, {u"bills"_s, QVariant::fromValue(&bills)}});
    engine.load(QUrl(u"qrc:/Tovarin/Main.qml"_s));
    if (engine.rootObjects().isEmpty())
        return EXIT_FAILURE;
    return QApplication::exec();
}
