// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "app/TrayHost.h"

#include <QIcon>
#include <QObject>
#include <QPoint>
#include <QRect>
#include <QString>

#include <functional>
#include <memory>

class QSystemTrayIcon;

namespace tovarin {

/// The program's item in the tray: an icon alone, never with a text beside it. Its tooltip belongs
/// to the owner; what a host calls the item in lists and to screen readers is the application's
/// name.
///
/// The item appears as soon as it has an icon and the desktop has a tray, at the start or any time
/// later, and comes back with a tray that was restarted. Without a tray nothing happens.
/// The first tray decides the kind of item for the life of the process, StatusNotifier or XEmbed;
/// where both are there at once, StatusNotifier. Most desktops take both kinds.
///
/// Needs a QApplication.
class StatusItem : public QObject {
    Q_OBJECT

public:
    explicit StatusItem(const QDBusConnection &bus = QDBusConnection::sessionBus(),
                        QObject *parent = nullptr);
    ~StatusItem() override;

    /// Draws the item's icon, in several sizes so that it looks sharp in every tray.
    using Drawing = std::function<QIcon()>;

    /// The drawing is made when there is a tray to show it. Before the first one there is no item.
    void setIcon(Drawing icon);

    void setToolTip(const QString &text);

    /// Where the item is on the desktop; empty if there is none or its host doesn't tell, as those
    /// of the StatusNotifier kind don't.
    QRect geometry() const;

Q_SIGNALS:
    /// The item was pressed, with whichever button or by the host's keyboard: once each time.
    /// `where` is the pointer, as the host's own word on it doesn't come through Qt. Some hosts
    /// keep the right button for a menu of their own, and the item hears nothing of it then.
    void triggered(QPoint where);

private:
    void makeItem();

    TrayHost m_host;
    bool m_hasTray = false;
    Drawing m_icon;
    QString m_toolTip;
    std::unique_ptr<QSystemTrayIcon> m_item;
};

} // namespace tovarin
