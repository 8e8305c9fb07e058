// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/ui/MainWindow.h"

#include "tests/support/Printing.h"
#include "tests/support/WaitFor.h"
#include "tests/ui/Complaints.h"
#include "tests/ui/Texts.h"
#include "ui/BrandAssets.h"
#include "ui/ImageProviders.h"

#include <QDir>
#include <QDropEvent>
#include <QFile>
#include <QMimeData>
#include <QTest>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

MainWindow::MainWindow() {
    complaints().clear();
    engine.addImportPath(u"qrc:/"_s);
    addImageProviders(engine, bundle, BrandAssets(bundle), logos);
}

MainWindow::~MainWindow() {
    EXPECT_EQ(complaints(), QStringList());
}

void MainWindow::useFile(const QString &path) {
    ASSERT_TRUE(QDir().mkpath(folder.filePath(u"Tovarin"_s)));
    ASSERT_TRUE(QFile::copy(path, folder.filePath(u"Tovarin/subscriptions.json"_s)));
}

void MainWindow::open() {
    store.emplace(folder.path(), clock, calendar);
    content.emplace(*store, clock, calendar, LocalizationManager::shared(), logos);
    bills.emplace(job, panel);
    sheets.emplace(ContentSheets::Surroundings{*store, clock, calendar, months,
                                               LocalizationManager::shared(), logos, defaults,
                                               delays.delay()});
    QObject::connect(&*bills, &BillScanModel::draftsFound, &*sheets, &ContentSheets::take);
    engine.setInitialProperties({{u"content"_s, QVariant::fromValue(&*content)},
                                 {u"bills"_s, QVariant::fromValue(&*bills)},
                                 {u"sheets"_s, QVariant::fromValue(&*sheets)},
                                 {u"menu"_s, QVariant::fromValue(&menu)},
                                 {u"visible"_s, true}});
    engine.load(QUrl(u"qrc:/Tovarin/Main.qml"_s));
    ASSERT_EQ(engine.rootObjects().size(), 1);
    window = qobject_cast<QQuickWindow *>(engine.rootObjects().first());
    ASSERT_TRUE(window);
    settle();
    ASSERT_TRUE(list().property("originY").isValid());
}

void MainWindow::settle() {
    QCoreApplication::processEvents();
    ASSERT_FALSE(window->grabWindow().isNull());
}

qreal MainWindow::aboveSight() const {
    return list().property("contentY").toReal() - list().property("originY").toReal();
}

qreal MainWindow::belowSight() const {
    return list().property("contentHeight").toReal() - aboveSight() - list().height();
}

QQuickItem &MainWindow::item(const char *name) const {
    auto *const found = window->findChild<QQuickItem *>(QString::fromLatin1(name));
    if (!found)
        qFatal("there is no %s", name);
    return *found;
}

QPoint MainWindow::placeOf(const QString &text) const {
    QList<const QQuickItem *> waiting{window->contentItem()};
    while (!waiting.isEmpty()) {
        const QQuickItem &item = *waiting.takeFirst();
        if (item.isVisible() && item.property("text") == text)
            return item.mapToScene(item.boundingRect().center()).toPoint();
        waiting.append({item.childItems().cbegin(), item.childItems().cend()});
    }
    ADD_FAILURE() << "nothing shows " << text.toStdString();
    return {};
}

QList<QQuickItem *> MainWindow::rowsWith(const char *property) const {
    QList<QQuickItem *> rows;
    QList<QQuickItem *> waiting{window->contentItem()};
    while (!waiting.isEmpty()) {
        QQuickItem *const item = waiting.takeFirst();
        if (item->property(property).isValid())
            rows.append(item);
        waiting.append(item->childItems());
    }
    std::ranges::sort(rows, {}, [](const QQuickItem *row) { return row->mapToScene({}).y(); });
    return rows;
}

void MainWindow::click(const QString &text) {
    QTest::mouseClick(window, Qt::LeftButton, {}, placeOf(text));
    settle();
}

void MainWindow::click(const QQuickItem &item) {
    QTest::mouseClick(window, Qt::LeftButton, {}, middleOf(item));
    settle();
}

QPoint MainWindow::middleOf(const QQuickItem &item) {
    return item.mapToScene(item.boundingRect().center()).toPoint();
}

void MainWindow::doubleClick(QPoint place) {
    QTest::mouseDClick(window, Qt::LeftButton, {}, place);
    settle();
}

void MainWindow::press(Qt::Key key) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QCoreApplication::sendEvent(window, &event);
    }
    settle();
}

void MainWindow::type(const QString &text) {
    for (const QChar character : text) {
        QKeyEvent event(QEvent::KeyPress, 0, Qt::NoModifier, character);
        QCoreApplication::sendEvent(window, &event);
    }
    settle();
}

QString MainWindow::focused() const {
    const QQuickItem *at = window->activeFocusItem();
    while (at && at->objectName().isEmpty() && !at->property("title").isValid())
        at = at->parentItem();
    if (!at)
        return {};
    return at->objectName().isEmpty() ? at->property("title").toString() : at->objectName();
}

Qt::DropAction MainWindow::drop(const QList<QUrl> &urls, const QList<Qt::DropAction> &possible,
                                std::optional<QPoint> place) {
    QMimeData files;
    files.setUrls(urls);
    const QPoint at = place.value_or(QPoint(window->width() / 2, window->height() / 2));
    Qt::DropActions actions;
    for (const Qt::DropAction action : possible)
        actions |= action;
    const auto answerTo = [&](auto &&event) {
        event.setDropAction(possible.first());
        QCoreApplication::sendEvent(window, &event);
        return event.isAccepted() ? event.dropAction() : Qt::IgnoreAction;
    };
    // Some sources believe what they are told before the drop.
    const bool isEntered =
        answerTo(QDragEnterEvent(at, actions, &files, Qt::LeftButton, {})) != Qt::IgnoreAction;
    const Qt::DropAction told =
        isEntered ? answerTo(QDragMoveEvent(at, actions, &files, Qt::LeftButton, {}))
                  : Qt::IgnoreAction;
    EXPECT_EQ(item("dropFrame").isVisible(), told != Qt::IgnoreAction);
    if (told == Qt::IgnoreAction) {
        QDragLeaveEvent leave;
        QCoreApplication::sendEvent(window, &leave);
        return told;
    }
    EXPECT_EQ(answerTo(QDropEvent(at, actions, &files, Qt::LeftButton, {})), told);
    settle();
    return told;
}

void MainWindow::waitForScan() {
    ASSERT_TRUE(waitFor([this] { return !bills->isScanning(); }));
    settle();
}

QStringList MainWindow::texts() const {
    return textsOf(*window->contentItem());
}

} // namespace tovarin
