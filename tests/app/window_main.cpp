// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

/// Runs the tests on a display that nobody sees, of two screens side by side.
int main(int argc, char **argv) {
    const QTemporaryDir folder;
    QFile screens(folder.filePath(QStringLiteral("screens.json")));
    if (!screens.open(QIODevice::WriteOnly))
        return EXIT_FAILURE;
    screens.write(R"({"windowFrameMargins": false, "screens": [
        {"name": "one", "x": 0, "y": 0, "width": 1920, "height": 1080,
         "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
        {"name": "two", "x": 1920, "y": 0, "width": 1920, "height": 1080,
         "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})");
    screens.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.fileName().toLocal8Bit());
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
