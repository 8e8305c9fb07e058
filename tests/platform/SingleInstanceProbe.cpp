// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/SingleInstance.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <iostream>
#include <string>
#include <unistd.h>

// SingleInstanceProbe FILE...: says "ready", waits for a line, claims for the files (an argument
// with "://" is an address of another kind) and says what has come of it. The first goes on until
// its input ends, and says what it is asked for.

using namespace Qt::Literals::StringLiterals;

namespace {

void say(const QString &line) {
    std::cout << line.toStdString() << std::endl;
}

QList<QUrl> arguments() {
    QList<QUrl> files;
    for (const QString &argument : QCoreApplication::arguments().sliced(1))
        files.append(argument.contains("://"_L1) ? QUrl(argument) : QUrl::fromLocalFile(argument));
    return files;
}

} // namespace

int main(int argc, char **argv) {
    using tovarin::SingleInstance;

    const QCoreApplication application(argc, argv);
    SingleInstance instance;
    QObject::connect(&instance, &SingleInstance::activated, &application,
                     [](const QString &token) { say(u"activated "_s + token); });

    say(u"ready"_s);
    std::string line;
    std::getline(std::cin, line);

    switch (instance.claim(arguments())) {
    case SingleInstance::Outcome::handedOver:
        say(u"handed over"_s);
        return 0;
    case SingleInstance::Outcome::refused:
        say(u"refused: "_s + instance.refusal());
        return 0;
    case SingleInstance::Outcome::first:
        break;
    }
    say(u"first"_s);
    instance.start();
    const QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &application, &QCoreApplication::quit);
    return QCoreApplication::exec();
}
