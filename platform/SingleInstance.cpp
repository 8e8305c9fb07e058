// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/SingleInstance.h"

#include "platform/ApplicationSupport.h"
#include "platform/BusErrors.h"

#include <QDBusAbstractAdaptor>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QThread>
#include <QVariantMap>

#include <algorithm>
#include <functional>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

constexpr auto applicationId = "app.tovarin.Tovarin"_L1;
constexpr auto objectPath = "/app/tovarin/Tovarin"_L1;
constexpr auto interfaceName = "org.freedesktop.Application"_L1;

/// What a holder of the name that has just died may still need until its lock is free as well.
constexpr std::chrono::milliseconds mostLingering{1000};
constexpr unsigned long lockInterval = 5; // milliseconds

/// Empty without one. No bus is started for the purpose: nothing else would be found on it.
QString sessionBusAddress(const Environment &environment) {
    const QByteArray address = environment("DBUS_SESSION_BUS_ADDRESS");
    if (!address.isEmpty())
        return QString::fromLocal8Bit(address);
    const QByteArray socket = environment("XDG_RUNTIME_DIR") + "/bus";
    if (!socket.startsWith('/') || !QFile::exists(QFile::decodeName(socket)))
        return {};
    return u"unix:path="_s + QString::fromLatin1(socket.toPercentEncoding("/", "~"));
}

/// As the running instance can understand it, whose working folder is another.
QString uri(const QUrl &file) {
    const QString path = file.toLocalFile();
    const bool isRelative = !path.isEmpty() && !path.startsWith(u'/');
    const QUrl url = isRelative ? QUrl::fromLocalFile(QDir::currentPath() + u'/' + path) : file;
    return url.toString(QUrl::FullyEncoded);
}

QDBusMessage request(const QString &owner, const QList<QUrl> &files, const QVariantMap &data) {
    const QString method = files.isEmpty() ? u"Activate"_s : u"Open"_s;
    QDBusMessage message = QDBusMessage::createMethodCall(owner, objectPath, interfaceName, method);
    if (!files.isEmpty()) {
        QStringList uris;
        for (const QUrl &file : files.first(std::min(files.size(), ActivationRequest::mostFiles)))
            uris.append(uri(file));
        message << uris;
    }
    message << data;
    return message;
}

/// The interface under which the desktop knows an application. Its names are the interface's own.
class ApplicationInterface final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    using Receiver = std::function<void(const ActivationRequest &)>;

    ApplicationInterface(QObject *parent, Receiver receiver)
        : QDBusAbstractAdaptor(parent), m_receiver(std::move(receiver)) {}

public Q_SLOTS:
    void Activate(const QVariantMap &platform_data) {
        m_receiver(ActivationRequest::toActivate(platform_data));
    }

    void Open(const QStringList &uris, const QVariantMap &platform_data) {
        m_receiver(ActivationRequest::toOpen(uris, platform_data));
    }

    /// The desktop entry announces no actions; an unknown one is answered and does nothing.
    void ActivateAction(const QString &action_name, const QVariantList &parameter,
                        const QVariantMap &platform_data) {
        Q_UNUSED(action_name)
        Q_UNUSED(parameter)
        Q_UNUSED(platform_data)
    }

private:
    const Receiver m_receiver;
};

} // namespace

SingleInstance::SingleInstance(Environment environment, std::chrono::milliseconds patience,
                               QObject *parent)
    : QObject(parent)
    , m_environment(std::move(environment))
    , m_patience(patience)
    , m_lock(applicationSupportFolder(m_environment) + u"/Tovarin.lock"_s) {}

SingleInstance::~SingleInstance() {
    // The lock first: who gets the name next wants it at once.
    m_lock.release();
    leaveBus();
}

SingleInstance::Outcome SingleInstance::claim(const QList<QUrl> &files) {
    const QString withoutBus = u"Tovarin is already running, and without a session bus it cannot "
                               "be brought to the front."_s;
    const QDeadlineTimer deadline(m_patience);
    QDBusConnection bus = joinBus();
    if (!bus.isConnected())
        return lockData(QDeadlineTimer(0), withoutBus);

    do {
        QDBusConnectionInterface *const daemon = bus.interface();
        const auto naming =
            daemon->registerService(applicationId, QDBusConnectionInterface::DontQueueService,
                                    QDBusConnectionInterface::DontAllowReplacement);
        if (!naming.isValid())
            return lockData(QDeadlineTimer(0), withoutBus);
        if (naming.value() == QDBusConnectionInterface::ServiceRegistered)
            return lockData(QDeadlineTimer(std::min(m_patience, mostLingering)),
                            u"Tovarin is already running in another session of yours."_s);

        const QDBusReply<QString> owner = daemon->serviceOwner(applicationId);
        if (!owner.isValid())
            continue;
        // To the owner itself, not to the name, for which the bus would start another one if this
        // one has gone away meanwhile.
        const QDBusMessage answer =
            bus.call(request(owner.value(), files, ActivationRequest::platformData(m_environment)),
                     QDBus::Block, static_cast<int>(deadline.remainingTime()));
        if (answer.type() == QDBusMessage::ReplyMessage) {
            leaveBus();
            return Outcome::handedOver;
        }
        if (daemon->serviceOwner(applicationId).value() == owner.value())
            return refuse(isSilence(QDBusError(answer))
                              ? u"Tovarin is running, but does not answer."_s
                              : u"Tovarin is running, but cannot be brought to the front."_s);
    } while (!deadline.hasExpired());
    return refuse(u"Tovarin is running, but does not answer."_s);
}

void SingleInstance::start() {
    m_started = true;
    QMetaObject::invokeMethod(this, &SingleInstance::tellKept, Qt::QueuedConnection);
}

SingleInstance::Outcome SingleInstance::lockData(const QDeadlineTimer &deadline,
                                                 const QString &refusal) {
    QDir().mkpath(applicationSupportFolder(m_environment));
    FileLock::Result result = m_lock.take();
    while (result == FileLock::Result::heldElsewhere && !deadline.hasExpired()) {
        QThread::msleep(lockInterval);
        result = m_lock.take();
    }
    return result == FileLock::Result::heldElsewhere ? refuse(refusal) : Outcome::first;
}

SingleInstance::Outcome SingleInstance::refuse(const QString &refusal) {
    leaveBus();
    m_refusal = refusal;
    return Outcome::refused;
}

QDBusConnection SingleInstance::joinBus() {
    const QString address = sessionBusAddress(m_environment);
    if (address.isEmpty())
        return QDBusConnection(QString());
    m_connection = applicationId + u'-' + QString::number(reinterpret_cast<quintptr>(this));
    QDBusConnection bus = QDBusConnection::connectToBus(address, m_connection);
    new ApplicationInterface(this, [this](const ActivationRequest &request) { keep(request); });
    // Before the name is asked for: with the name come the calls.
    bus.registerObject(objectPath, this, QDBusConnection::ExportAdaptors);
    return bus;
}

void SingleInstance::leaveBus() {
    if (m_connection.isEmpty())
        return;
    QDBusConnection bus(m_connection);
    // The name first: a start whose call is dropped below must not find it taken. Nothing to wait
    // for: the bus keeps the order.
    QDBusMessage release =
        QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                       u"org.freedesktop.DBus"_s, u"ReleaseName"_s);
    release << QString(applicationId);
    bus.send(release);
    bus.unregisterObject(objectPath);
    QDBusConnection::disconnectFromBus(m_connection);
    m_connection.clear();
}

void SingleInstance::keep(const ActivationRequest &request) {
    m_requests.append(request);
    // Later, so that the caller has its answer even if a receiver shows a dialog and waits for it.
    if (m_started)
        QMetaObject::invokeMethod(this, &SingleInstance::tellKept, Qt::QueuedConnection);
}

void SingleInstance::tellKept() {
    while (!m_requests.isEmpty()) {
        const ActivationRequest request = m_requests.takeFirst();
        if (request.files.isEmpty())
            Q_EMIT activated(request.activationToken);
        else
            Q_EMIT openRequested(request.files, request.activationToken);
    }
}

} // namespace tovarin

#include "SingleInstance.moc"
