// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/Bundle.h"
#include "ui/AppFonts.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

int main(int argc, char **argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    tovarin::AppFonts::registerBundledFonts(tovarin::Bundle(QStringLiteral(":/resources")));
    return RUN_ALL_TESTS();
}
