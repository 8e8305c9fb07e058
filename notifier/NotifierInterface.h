// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusContext>
#include <QObject>
#include <QString>

#include <functional>

namespace tovarin {

class Notifier;

/// What tovarin-notifier can be asked on the session bus: see platform/NotificationMessages.h. The
/// names are the interface's.
class NotifierInterface final : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "app.tovarin.Tovarin.Notifier")

public:
    /// The notifier must be there when the first call comes, which is told to `called`.
    explicit NotifierInterface(std::function<void()> called, QObject *parent = nullptr);

    void setNotifier(Notifier &notifier) { m_notifier = &notifier; }

public Q_SLOTS:
    Q_SCRIPTABLE uint Change(const QString &changes);
    Q_SCRIPTABLE QString Pending();

private:
    const std::function<void()> m_called;
    Notifier *m_notifier = nullptr;
};

} // namespace tovarin
