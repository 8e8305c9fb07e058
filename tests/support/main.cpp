// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include <QCoreApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// Runs the tests with a home of their own, so that none reads or writes the user's settings.
int main(int argc, char **argv) {
    const QTemporaryDir home;
    for (const char *variable : {"HOME", "XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME"})
        qputenv(variable, home.path().toLocal8Bit());
    for (const char *variable : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LC_TIME", "LANG"})
        qunsetenv(variable);

    testing::InitGoogleTest(&argc, argv);
    const QCoreApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
