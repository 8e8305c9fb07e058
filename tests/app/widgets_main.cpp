// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include <QApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// Runs the tests with widgets that nobody sees, and with a home of their own: dialogs remember
/// things.
int main(int argc, char **argv) {
    const QTemporaryDir home;
    for (const char *variable : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME"})
        qputenv(variable, home.path().toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
