// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/StatusItem.h"

#include <QApplication>
#include <QFile>
#include <QPixmap>
#include <QSocketNotifier>

#include <fcntl.h>
#include <iostream>

using namespace Qt::Literals::StringLiterals;

namespace {

QIcon plainIcon(const QString &colour) {
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64}) {
        QPixmap pixmap(size, size);
        pixmap.fill(QColor(colour));
        icon.addPixmap(pixmap);
    }
    return icon;
}

void obey(tovarin::StatusItem &item, const QString &line) {
    const QString verb = line.section(u' ', 0, 0);
    const QString text = line.section(u' ', 1);
    if (verb == u"icon"_s) {
        item.setIcon([text] { return plainIcon(text); });
    } else if (verb == u"tooltip"_s) {
        item.setToolTip(text);
    } else if (verb == u"geometry"_s) {
        const QRect place = item.geometry();
        std::cout << "geometry " << place.x() << ' ' << place.y() << ' ' << place.width() << ' '
                  << place.height() << std::endl;
    } else {
        QCoreApplication::exit(verb == u"quit"_s ? EXIT_SUCCESS : EXIT_FAILURE);
    }
}

} // namespace

/// A program that is nothing but a status item, for a test that drives it from outside. It says
/// that it runs and where it was triggered, and obeys the lines that are written to the FIFO that
/// its argument names: "icon COLOUR", "tooltip TEXT", "geometry", which it answers, and "quit".
int main(int argc, char **argv) {
    QApplication::setApplicationName(u"Tovarin"_s);
    QApplication::setQuitOnLastWindowClosed(false);
    const QApplication application(argc, argv);

    tovarin::StatusItem item;
    QObject::connect(&item, &tovarin::StatusItem::triggered, [](const QPoint &where) {
        std::cout << "triggered " << where.x() << ' ' << where.y() << std::endl;
    });

    // Its other end opened as well: it stays readable when a writer leaves.
    const int fifo = open(argc > 1 ? argv[1] : "", O_RDWR | O_NONBLOCK | O_CLOEXEC);
    QFile orders;
    if (!orders.open(fifo, QIODevice::ReadOnly | QIODevice::Unbuffered, QFile::AutoCloseHandle))
        return EXIT_FAILURE;
    QSocketNotifier written(fifo, QSocketNotifier::Read);
    QObject::connect(&written, &QSocketNotifier::activated,
                     [&] { obey(item, QString::fromUtf8(orders.readLine().chopped(1))); });
    std::cout << "runs" << std::endl;
    return QApplication::exec();
}
