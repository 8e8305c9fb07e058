// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// Runs tests that show screens: as the program does, but without a display.

#include "platform/Bundle.h"
#include "tests/ui/Complaints.h"
#include "ui/AppFonts.h"

#include <QGuiApplication>
#include <QQuickStyle>
#include <QQuickWindow>
#include <QTemporaryDir>
#include <QtPlugin>

#include <gtest/gtest.h>

Q_IMPORT_PLUGIN(TovarinPlugin)

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

QStringList &complaints() {
    static QStringList list;
    return list;
}

namespace {

void keepComplaints(QtMsgType type, const QMessageLogContext &, const QString &message) {
    if (type != QtDebugMsg && type != QtInfoMsg)
        complaints().append(message);
}

} // namespace

} // namespace tovarin

int main(int argc, char **argv) {
    const QTemporaryDir home;
    for (const char *variable :
         {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_RUNTIME_DIR"})
        qputenv(variable, home.path().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    for (const char *variable : {"QT_QUICK_BACKEND", "QSG_RHI_BACKEND", "QT_SCALE_FACTOR"})
        qunsetenv(variable);

    qInstallMessageHandler(tovarin::keepComplaints);
    testing::InitGoogleTest(&argc, argv);
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QQuickStyle::setStyle(u"Basic"_s);
    const QGuiApplication application(argc, argv);
    tovarin::AppFonts::registerBundledFonts(tovarin::Bundle(u":/resources"_s));
    return RUN_ALL_TESTS();
}
