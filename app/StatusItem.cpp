// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/StatusItem.h"

#include <QCursor>
#include <QSystemTrayIcon>

namespace tovarin {

StatusItem::StatusItem(const QDBusConnection &bus, QObject *parent) : QObject(parent), m_host(bus) {
    connect(&m_host, &TrayHost::appeared, this, [this] {
        m_hasTray = true;
        makeItem();
    });
}

StatusItem::~StatusItem() = default;

void StatusItem::setIcon(Drawing icon) {
    m_icon = std::move(icon);
    if (m_item)
        m_item->setIcon(m_icon());
    else
        makeItem();
}

void StatusItem::setToolTip(const QString &text) {
    m_toolTip = text;
    if (m_item)
        m_item->setToolTip(m_toolTip);
}

QRect StatusItem::geometry() const {
    return m_item ? m_item->geometry() : QRect();
}

void StatusItem::makeItem() {
    if (m_item || !m_hasTray || !m_icon)
        return;
    const QIcon icon = m_icon();
    if (icon.isNull())
        return;
    m_item = std::make_unique<QSystemTrayIcon>(icon);
    m_item->setToolTip(m_toolTip);
    // Whatever the reason: a second press within the time of a double click is a press of its own.
    connect(m_item.get(), &QSystemTrayIcon::activated, this,
            [this] { Q_EMIT triggered(QCursor::pos()); });
    m_item->show();
}

} // namespace tovarin
