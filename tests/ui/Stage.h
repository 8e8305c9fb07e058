// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "catalog/ServiceLogo.h"
#include "platform/Bundle.h"

#include <QAccessible>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

#include <memory>

namespace tovarin {

/// A window on which a test puts a few things of the program's QML module, to handle them as a user
/// does and to see them as a screen reader does.
class Stage {
public:
    /// Shows this QML, which says what to put on the window: "SoftButton { objectName: ... }".
    /// QtQuick and the program's own module are imported. What does not load fails the test.
    explicit Stage(const QString &qml, QSize size = {480, 400});
    ~Stage();

    QQuickWindow &window() { return m_window; }
    const QQuickWindow &window() const { return m_window; }
    QQmlEngine &engine() { return m_engine; }

    /// The object of this name, which is there.
    QObject &object(const char *name);
    QQuickItem &item(const char *name);

    /// The first item in sight whose property has this value; null for none.
    QQuickItem *itemWith(const char *property, const QVariant &value);

    QVariant value(const char *name, const char *property) {
        return object(name).property(property);
    }

    /// Draws the window, so that everything has its place.
    QImage settle();

    QPoint middleOf(QQuickItem &item) const;
    /// Brings the pointer to the middle of the item.
    void point(QQuickItem &item);
    void click(QQuickItem &item, Qt::MouseButton button = Qt::LeftButton);
    /// A key that goes down (again and again, if it is held) and up.
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    void hold(Qt::Key key);
    void type(const QString &text);

    /// The object name of what the keyboard is at, or of what holds that.
    QString focused() const;

    /// What a screen reader finds: null for what it does not.
    static QAccessibleInterface *accessible(QQuickItem &item);
    static bool pressByScreenReader(QQuickItem &item);

    /// The texts in sight below an item.
    QStringList texts();

private:
    QQmlEngine m_engine;
    Bundle m_bundle{QStringLiteral(":/resources")};
    ServiceLogo m_logos{m_bundle};
    QQuickWindow m_window;
    std::unique_ptr<QQuickItem> m_root;
};

} // namespace tovarin
