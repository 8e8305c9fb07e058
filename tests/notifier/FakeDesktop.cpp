// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/notifier/FakeDesktop.h"

#include <QDBusArgument>
#include <QDBusMessage>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

const QString notifications = u"org.freedesktop.Notifications"_s;
const QString notificationsPath = u"/org/freedesktop/Notifications"_s;

} // namespace

FakeDesktop::FakeDesktop(const QByteArray &address)
    : capabilities{u"actions"_s, u"body"_s, u"body-markup"_s}
    , m_bus(QDBusConnection::connectToBus(QString::fromLatin1(address), u"desktop"_s)) {
    EXPECT_TRUE(m_bus.registerVirtualObject(notificationsPath, this));
    EXPECT_TRUE(m_bus.registerVirtualObject(u"/app/tovarin/Tovarin"_s, this));
}

FakeDesktop::~FakeDesktop() {
    m_bus = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(u"desktop"_s);
}

void FakeDesktop::appear() {
    EXPECT_TRUE(m_bus.registerService(notifications));
}

void FakeDesktop::leave() {
    EXPECT_TRUE(m_bus.unregisterService(notifications));
}

void FakeDesktop::haveTovarin() {
    EXPECT_TRUE(m_bus.registerService(u"app.tovarin.Tovarin"_s));
}

bool FakeDesktop::handleMessage(const QDBusMessage &message, const QDBusConnection &) {
    if (message.member() == u"GetCapabilities") {
        ++questions;
        m_bus.send(error.isEmpty() ? message.createReply(capabilities)
                                   : message.createErrorReply(error, u"No"_s));
    } else if (message.member() == u"Notify") {
        EXPECT_EQ(message.signature(), u"susssasa{sv}i"_s);
        posts.append(message.arguments());
        if (clicksFirst)
            tell(u"ActionInvoked"_s, {static_cast<uint>(posts.size()), u"default"_s});
        if (closesFirst)
            close(static_cast<uint>(posts.size()));
        if (!holdsAnswers)
            m_bus.send(message.createReply(static_cast<uint>(posts.size())));
    } else if (message.member() == u"Activate") {
        EXPECT_EQ(message.interface(), u"org.freedesktop.Application"_s);
        activations.append(qdbus_cast<QVariantMap>(message.arguments().first())
                               .value(u"activation-token"_s)
                               .toString());
        m_bus.send(message.createReply());
    } else {
        ADD_FAILURE() << message.member().toStdString();
    }
    return true;
}

void FakeDesktop::tell(const QString &signal, const QVariantList &arguments) {
    QDBusMessage message = QDBusMessage::createSignal(notificationsPath, notifications, signal);
    message.setArguments(arguments);
    EXPECT_TRUE(m_bus.send(message));
}

void FakeDesktop::close(uint id) {
    tell(u"NotificationClosed"_s, {id, 2U});
}

QStringList FakeDesktop::bodies() const {
    QStringList bodies;
    for (const QVariantList &post : posts)
        bodies.append(post[4].toString());
    return bodies;
}

} // namespace tovarin
