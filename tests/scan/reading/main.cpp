// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include <QGuiApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// Runs the tests with a home of their own, as the other tests; drawings with text in them need an
/// application with fonts.
int main(int argc, char **argv) {
    const QTemporaryDir home;
    for (const char *variable : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME"})
        qputenv(variable, home.path().toLocal8Bit());
    for (const char *variable : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LC_TIME", "LANG"})
        qunsetenv(variable);

    qputenv("QT_QPA_PLATFORM",
            "offscreen"); // Also while the build asks for the names of the tests.

    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
