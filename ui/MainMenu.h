// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace tovarin {

/// The main menu: what its items lead to, and its language, which is that of the program's start.
/// It does not change while the program runs, which is meant.
class MainMenu : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The program makes the one there is.")
    Q_PROPERTY(bool isZh READ isZh CONSTANT FINAL)

public:
    explicit MainMenu(bool isZh, QObject *parent = nullptr) : QObject(parent), m_isZh(isZh) {}

    bool isZh() const { return m_isZh; }

Q_SIGNALS:
    /// The user chose "Hide Tovarin".
    void hide();
    /// The user chose "Quit Tovarin".
    void quit();

private:
    bool m_isZh;
};

} // namespace tovarin
