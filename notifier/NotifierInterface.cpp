// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "notifier/NotifierInterface.h"

#include "notifier/Notifier.h"

#include <QDBusError>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

NotifierInterface::NotifierInterface(std::function<void()> called, QObject *parent)
    : QObject(parent), m_called(std::move(called)) {}

uint NotifierInterface::Change(const QString &changes) {
    m_called();
    const auto decoded = NotificationMessages::decodeChanges(changes.toUtf8());
    if (!decoded) {
        sendErrorReply(QDBusError::InvalidArgs, u"Not a list of changes"_s);
        return 0;
    }
    if (!m_notifier->change(*decoded)) {
        sendErrorReply(QDBusError::LimitsExceeded, u"Too many requests"_s);
        return 0;
    }
    return static_cast<uint>(m_notifier->pending().size());
}

QString NotifierInterface::Pending() {
    m_called();
    return QString::fromUtf8(NotificationMessages::encodeRequests(m_notifier->pending()));
}

} // namespace tovarin
