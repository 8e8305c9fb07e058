// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/ui/Stage.h"

#include "tests/ui/Complaints.h"
#include "tests/ui/Texts.h"
#include "ui/BrandAssets.h"
#include "ui/ImageProviders.h"

#include <QQmlComponent>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

Stage::Stage(const QString &qml, QSize size) {
    complaints().clear();
    m_engine.addImportPath(u"qrc:/"_s);
    addImageProviders(m_engine, m_bundle, BrandAssets(m_bundle), m_logos);
    QQmlComponent component(&m_engine);
    const QString all = u"import QtQuick\nimport Tovarin\nFocusScope {\n%1\n}\n"_s.arg(qml);
    component.setData(all.toUtf8(), QUrl(u"qrc:/Tovarin/Stage.qml"_s));
    m_root.reset(qobject_cast<QQuickItem *>(component.create()));
    if (!m_root)
        qFatal("%s", qPrintable(component.errorString()));
    m_window.resize(size);
    m_window.setColor(QColor(15, 15, 17));
    m_root->setParentItem(m_window.contentItem());
    m_root->setSize(size);
    m_root->setFocus(true);
    m_window.show();
    m_window.requestActivate();
    settle();
}

Stage::~Stage() {
    m_root.reset();
    EXPECT_EQ(complaints(), QStringList());
}

QObject &Stage::object(const char *name) {
    auto *const found = m_root->findChild<QObject *>(QString::fromLatin1(name));
    if (!found)
        qFatal("there is no %s", name);
    return *found;
}

QQuickItem &Stage::item(const char *name) {
    return *qobject_cast<QQuickItem *>(&object(name));
}

QQuickItem *Stage::itemWith(const char *property, const QVariant &value) {
    QList<QQuickItem *> waiting{m_window.contentItem()};
    while (!waiting.isEmpty()) {
        QQuickItem *const item = waiting.takeFirst();
        if (!item->isVisible())
            continue;
        if (item->property(property) == value)
            return item;
        waiting.append(item->childItems());
    }
    return nullptr;
}

QImage Stage::settle() {
    QCoreApplication::processEvents();
    return m_window.grabWindow();
}

QPoint Stage::middleOf(QQuickItem &item) const {
    return item.mapRectToScene(item.boundingRect()).center().toPoint();
}

void Stage::point(QQuickItem &item) {
    QTest::mouseMove(&m_window, middleOf(item));
    settle();
}

void Stage::click(QQuickItem &item, Qt::MouseButton button) {
    QTest::mouseClick(&m_window, button, {}, middleOf(item));
    settle();
}

void Stage::press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(&m_window, key, modifiers);
    settle();
}

void Stage::hold(Qt::Key key) {
    for (int i = 0; i < 5; ++i) {
        if (i > 0) {
            QKeyEvent again(QEvent::KeyRelease, key, Qt::NoModifier, {}, true);
            QCoreApplication::sendEvent(&m_window, &again);
        }
        QKeyEvent down(QEvent::KeyPress, key, Qt::NoModifier, {}, i > 0);
        QCoreApplication::sendEvent(&m_window, &down);
    }
    QKeyEvent up(QEvent::KeyRelease, key, Qt::NoModifier);
    QCoreApplication::sendEvent(&m_window, &up);
    settle();
}

void Stage::type(const QString &text) {
    for (const QChar letter : text) {
        QKeyEvent down(QEvent::KeyPress, 0, Qt::NoModifier, letter);
        QCoreApplication::sendEvent(&m_window, &down);
        QKeyEvent up(QEvent::KeyRelease, 0, Qt::NoModifier, letter);
        QCoreApplication::sendEvent(&m_window, &up);
    }
    settle();
}

QString Stage::focused() const {
    for (const QQuickItem *item = m_window.activeFocusItem(); item; item = item->parentItem())
        if (!item->objectName().isEmpty())
            return item->objectName();
    return {};
}

QAccessibleInterface *Stage::accessible(QQuickItem &item) {
    return QAccessible::queryAccessibleInterface(&item);
}

bool Stage::pressByScreenReader(QQuickItem &item) {
    QAccessibleInterface *const seen = accessible(item);
    if (!seen || !seen->actionInterface())
        return false;
    seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    return true;
}

QStringList Stage::texts() {
    return textsOf(*m_window.contentItem());
}

} // namespace tovarin
