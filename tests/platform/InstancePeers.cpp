// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/platform/InstancePeers.h"

#include "tests/support/WaitFor.h"

#include <QDBusMessage>

#include <gtest/gtest.h>

#include <csignal>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

Listener::Listener(SingleInstance &instance) {
    QObject::connect(&instance, &SingleInstance::activated, &m_context,
                     [this](const QString &token) { told += u"activated "_s + token; });
    QObject::connect(&instance, &SingleInstance::openRequested, &m_context,
                     [this](const QList<QUrl> &files, const QString &token) {
                         opened = files;
                         told += u"open "_s + token;
                         for (const QUrl &file : files)
                             told.last() += u' ' + file.toString(QUrl::FullyEncoded);
                     });
}

Start::Start(const VariableTable &table, const QString &folder, const QStringList &files) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const auto *variable : {"DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR",
                                 "XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"})
        environment.remove(QString::fromLatin1(variable));
    environment.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
    for (const auto &[variable, value] : table.asKeyValueRange())
        environment.insert(QString::fromLatin1(variable), QString::fromUtf8(value));
    m_process.setProcessEnvironment(environment);
    m_process.setWorkingDirectory(folder);
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QString::fromUtf8(SINGLE_INSTANCE_PROBE), files);
    EXPECT_EQ(line(), u"ready"_s);
}

Start::~Start() {
    m_process.closeWriteChannel();
    EXPECT_TRUE(waitFor([this] { return m_process.state() == QProcess::NotRunning; }));
}

void Start::go() {
    EXPECT_EQ(m_process.write("\n"), 1);
}

QString Start::line() {
    EXPECT_TRUE(waitFor(
        [this] { return m_process.canReadLine() || m_process.state() == QProcess::NotRunning; }));
    QString line = QString::fromUtf8(m_process.readLine());
    line.chop(1);
    return line;
}

void Start::send(int signal) const {
    EXPECT_EQ(::kill(static_cast<pid_t>(m_process.processId()), signal), 0);
}

void Start::stop() const {
    send(SIGSTOP);
}

void Start::resume() const {
    send(SIGCONT);
}

void Start::kill() const {
    send(SIGKILL);
}

const QString Peer::name = u"app.tovarin.Tovarin"_s;
const QString Peer::path = u"/app/tovarin/Tovarin"_s;
const QString Peer::interface = u"org.freedesktop.Application"_s;

Peer::Peer(const QByteArray &address)
    : bus(QDBusConnection::connectToBus(QString::fromLatin1(address), u"peer"_s)) {
    EXPECT_TRUE(bus.isConnected());
}

void Peer::leave() {
    bus = QDBusConnection(QString());
    QDBusConnection::disconnectFromBus(u"peer"_s);
}

QDBusConnectionInterface::RegisterServiceReply
Peer::take(QDBusConnectionInterface::ServiceQueueOptions option) const {
    return bus.interface()
        ->registerService(name, option, QDBusConnectionInterface::AllowReplacement)
        .value();
}

QDBusPendingCall Peer::send(const QString &method, const QVariantList &arguments) const {
    QDBusMessage call = QDBusMessage::createMethodCall(name, path, interface, method);
    call.setArguments(arguments);
    return bus.asyncCall(call);
}

QString Peer::call(const QString &method, const QVariantList &arguments) const {
    const QDBusPendingCall call = send(method, arguments);
    EXPECT_TRUE(waitFor([&] { return call.isFinished(); }));
    return call.error().name();
}

OddOwner::OddOwner(Peer &peer, bool answers) : m_answers(answers) {
    EXPECT_TRUE(peer.bus.registerVirtualObject(Peer::path, this));
    EXPECT_EQ(peer.take(QDBusConnectionInterface::DontQueueService),
              QDBusConnectionInterface::ServiceRegistered);
}

bool OddOwner::handleMessage(const QDBusMessage &message, const QDBusConnection &bus) {
    ++calls;
    arguments = message.arguments();
    if (m_answers)
        bus.send(message.createErrorReply(u"app.tovarin.Tovarin.Odd"_s, u"No"_s));
    return true;
}

} // namespace tovarin
