// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusConnection>
#include <QObject>

#include <memory>

namespace tovarin {

/// Notices when the desktop has a tray for status items: a StatusNotifier host on the session bus,
/// or a tray of the older XEmbed kind on the X display. Such a host may come long after the
/// program, as a panel does that starts late or anew.
///
/// Qt's own answer is of no use for this: QSystemTrayIcon asks the bus once in the life of a
/// process, even for isSystemTrayAvailable(), and stays with what it heard. So it must not be asked
/// before there is a tray.
///
/// It waits for messages and never wakes by itself. It starts no service, and without a session bus
/// or an X display it is silent. Needs a QGuiApplication.
class TrayHost : public QObject {
    Q_OBJECT

public:
    /// Begins to look; `appeared` is heard from the event loop, also when a tray is there already.
    explicit TrayHost(const QDBusConnection &bus, QObject *parent = nullptr);
    ~TrayHost() override;

Q_SIGNALS:
    /// There is a tray. Heard each time that a host comes, and maybe more than once of the same.
    void appeared();

private Q_SLOTS:
    void askWatcher();

private:
    class XTray;

    void watchBus();

    QDBusConnection m_bus;
    std::unique_ptr<XTray> m_xTray;
};

} // namespace tovarin
