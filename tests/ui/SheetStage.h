// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/ui/Stage.h"

#include <QVariantMap>

namespace tovarin {

/// A stage with a sheet open on it that shows a screen, as the main window does.
class SheetStage : public Stage {
public:
    /// The screen's file without its ending, and the properties it needs. What does not load fails
    /// the test.
    SheetStage(const QString &screen, const QVariantMap &properties, QSize size = {640, 700});

    QQuickItem &screen() { return *m_screen; }
    bool isOpen();

    /// Another size of the window.
    void resize(QSize size);

    /// What has this name and is in sight, which it is.
    QQuickItem &inSight(const QString &name);
    /// A piece of an item, by its name: the "amount" of a row. It has one.
    static QQuickItem &piece(const QQuickItem &of, const QString &name);

    /// Where the keyboard is: "skip", or in a cell or a row "cell3 button", "row0 amount".
    QString place() const;
    /// Presses Tab until the keyboard is there; false if it never is.
    bool tabTo(const QString &name);

    /// Puts another text into a field.
    void retype(QQuickItem &field, const QString &text);

    /// Where an item begins and ends on the window.
    static qreal top(const QQuickItem &item) { return item.mapToScene({0, 0}).y(); }
    static qreal bottom(const QQuickItem &item) { return item.mapToScene({0, item.height()}).y(); }

    /// What a screen reader comes across in the sheet, from its beginning to its end: each with its
    /// role, its name and what can be done to it.
    QStringList told();

private:
    void takeItsSize();

    QQuickItem *m_screen = nullptr;
};

} // namespace tovarin
