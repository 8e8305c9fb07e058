// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/UserNumbers.h"

#include <QObject>
#include <QQmlEngine>
#include <QVariant>
#include <QtQml/qqmlregistration.h>

namespace tovarin {

/// UserNumbers for the number fields, by the locale that the engine found at its start.
class NumbersForQml : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(UserNumbers)
    QML_SINGLETON

public:
    explicit NumbersForQml(UserNumbers numbers) : m_numbers(std::move(numbers)) {}

    static NumbersForQml *create(QQmlEngine *, QJSEngine *) {
        return new NumbersForQml(UserNumbers::current(processEnvironment()));
    }

    Q_INVOKABLE QString text(double number) const { return m_numbers.text(number); }

    /// The number, or undefined for a text that is none.
    Q_INVOKABLE QVariant value(const QString &text) const {
        const std::optional<double> number = m_numbers.number(text);
        return number ? QVariant(*number) : QVariant();
    }

private:
    UserNumbers m_numbers;
};

} // namespace tovarin
