// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// tovarin-scanner LANGUAGE: reads the files that its standard input asks for, one a line, and
// answers each on its standard output, in the form of scan/job/ScanMessages.h. LANGUAGE is "zh" or
// "en", for the texts in the drafts. Ends with its input. A file that cannot be survived ends it
// too; whoever started it takes that for an answer.

#include "app/LocalizationManager.h"
#include "platform/Clock.h"
#include "platform/UserCalendar.h"
#include "scan/job/ScanMessages.h"
#include "scan/reading/ReceiptScanner.h"
#include "scanner/RecognizerOnDemand.h"
#include "scanner/Sandbox.h"
#include "scanner/TextModels.h"

#include <QGuiApplication>

#include <cstdlib>
#include <iostream>
#include <malloc.h>
#include <new>
#include <string>

using namespace tovarin;
using namespace Qt::Literals::StringLiterals;

namespace {

/// Nobody reads what Qt complains of: that it has no desktop here, or that a file is broken.
void keepSilent(QtMsgType, const QMessageLogContext &, const QString &) {}

/// Without memory there is no answer that could be trusted.
[[noreturn]] void giveUp() {
    std::_Exit(EXIT_FAILURE);
}

/// Keeps the process from growing from file to file: what is large goes back to the system as soon
/// as it is free, and the threads share two heaps.
void keepHeapSmall() {
    mallopt(M_MMAP_THRESHOLD, 128 * 1024);
    mallopt(M_ARENA_MAX, 2);
}

/// The language that was handed over counts here. There are no settings: the user's are not this
/// process's to read or write.
void speak(const char *language) {
    qputenv("XDG_CONFIG_HOME", "/dev/null");
    LocalizationManager::shared().setLang(
        LocalizationManager::langOf(QString::fromLocal8Bit(language)));
}

void answerRequests(const ReceiptScanner::Services &services) {
    for (std::string line; std::getline(std::cin, line);) {
        const std::optional<QString> path =
            ScanMessages::decodeRequest(QByteArray::fromStdString(line));
        if (!path)
            return;
        const QList<Subscription> drafts =
            ReceiptScanner::scanFiles({QUrl::fromLocalFile(*path)}, services);
        const QByteArray answer = ScanMessages::encodeAnswer(
            drafts.isEmpty() ? std::nullopt : std::optional(drafts.first()));
        std::cout.write(answer.constData(), answer.size()).flush();
    }
}

} // namespace

int main(int argc, char **argv) {
    std::set_new_handler(giveUp);
    qInstallMessageHandler(keepSilent);
    keepHeapSmall();
    if (argc != 2 || !enterSandbox())
        return EXIT_FAILURE;
    // Drawings may hold text, which is drawn with fonts; nothing is shown.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    speak(argv[1]);

    const SystemClock clock;
    const UserCalendar calendar = UserCalendar::current(processEnvironment());
    RecognizerOnDemand recognizer(
        textModelsFolder(QGuiApplication::applicationDirPath()).toStdString());
    answerRequests({.recognizer = recognizer, .clock = clock, .calendar = calendar});
    return EXIT_SUCCESS;
}
