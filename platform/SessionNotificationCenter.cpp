// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/SessionNotificationCenter.h"

#include "platform/ProgramFinder.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDeadlineTimer>
#include <QProcess>
#include <QThread>

#include <limits>
#include <malloc.h>
#include <utility>
#include <variant>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

/// So many leave megabytes behind, which the allocator would keep.
constexpr qsizetype manyChanges = 1'000;

/// What the notifier may need to come up before another one is started.
constexpr auto startTime = 5s;
constexpr unsigned long partingInterval = 10; // milliseconds

QDBusMessage call(const QString &method) {
    return QDBusMessage::createMethodCall(NotificationMessages::service,
                                          NotificationMessages::objectPath,
                                          NotificationMessages::interface, method);
}

QDBusMessage changeCall(const NotificationMessages::EncodedChanges &changes) {
    return call(u"Change"_s) << QString::fromUtf8(changes.json);
}

/// The first part of a text that is too long for a notification.
QString shortened(const QString &text) {
    constexpr qsizetype longest = NotificationRequest::longestText;
    if (text.size() <= longest)
        return text;
    // Not in the middle of a surrogate pair.
    return text.left(text[longest - 1].isHighSurrogate() ? longest - 1 : longest);
}

/// The notifier has understood the call and would not do it; another try would change nothing.
bool isRefusal(const QDBusError &error) {
    switch (error.type()) {
    case QDBusError::InvalidArgs:
    case QDBusError::InvalidSignature:
    case QDBusError::UnknownMethod:
    case QDBusError::UnknownInterface:
    case QDBusError::LimitsExceeded:
    case QDBusError::AccessDenied:
        return true;
    default:
        return false;
    }
}

} // namespace

SessionNotificationCenter::SessionNotificationCenter(QString bundleIdentifier,
                                                     const QDBusConnection &bus,
                                                     QString notifierProgram, QObject *parent)
    : QObject(parent)
    , m_bundleIdentifier(std::move(bundleIdentifier))
    , m_bus(bus)
    , m_program(std::move(notifierProgram)) {
    m_starting.setSingleShot(true);
    m_starting.setInterval(startTime);
    connect(&m_starting, &QTimer::timeout, this, &SessionNotificationCenter::flush);
    if (!isUsable())
        return;
    auto *const watcher = new QDBusServiceWatcher(NotificationMessages::service, m_bus,
                                                  QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, [this] {
        m_starting.stop();
        flush();
    });
    connect(watcher, &QDBusServiceWatcher::serviceUnregistered, this, [this] {
        if (!std::exchange(m_mayHavePending, false))
            return;
        m_hasStarted = false;
        startNotifier();
    });
}

SessionNotificationCenter::~SessionNotificationCenter() {
    // Who asked may be gone.
    m_questions.clear();
    if (isUsable() && (!m_sent.isEmpty() || !m_queue.isEmpty()))
        tellBeforeParting();
}

QString SessionNotificationCenter::notifierProgram(const QString &programFolder) {
    return findProgram(u"tovarin-notifier"_s, programFolder,
                       {u"."_s, u"../libexec/tovarin"_s, u"../notifier"_s});
}

void SessionNotificationCenter::requestAuthorization(AuthorizationOptions,
                                                     std::function<void(bool)> answer) {
    QMetaObject::invokeMethod(
        this, [this, answer = std::move(answer)] { answer(isUsable()); }, Qt::QueuedConnection);
}

void SessionNotificationCenter::add(const NotificationRequest &request) {
    NotificationRequest kept = request;
    kept.title = shortened(request.title);
    kept.body = shortened(request.body);
    if (kept.isValid())
        enqueue(kept);
}

void SessionNotificationCenter::removePending(const QStringList &identifiers) {
    if (!identifiers.isEmpty())
        enqueue(NotificationMessages::RemovePending{identifiers});
}

void SessionNotificationCenter::removeAllPending() {
    // What comes before is void.
    m_queue.clear();
    enqueue(NotificationMessages::RemoveAllPending());
}

void SessionNotificationCenter::pending(Question answer) {
    m_questions.append(std::move(answer));
    m_hasStarted = false;
    flushSoon();
}

bool SessionNotificationCenter::isUsable() const {
    return !m_bundleIdentifier.isEmpty() && m_bus.isConnected();
}

void SessionNotificationCenter::enqueue(const Change &change) {
    if (!isUsable())
        return;
    m_queue.append(change);
    m_hasStarted = false;
    flushSoon();
}

void SessionNotificationCenter::flushSoon() {
    if (!std::exchange(m_isToFlush, true))
        QMetaObject::invokeMethod(this, &SessionNotificationCenter::flush, Qt::QueuedConnection);
}

void SessionNotificationCenter::flush() {
    m_isToFlush = false;
    if (!isUsable())
        answerQuestions({});
    else if (m_isCalling || m_starting.isActive())
        return;
    else if (!m_queue.isEmpty())
        send();
    else if (!m_questions.isEmpty())
        ask();
}

void SessionNotificationCenter::send() {
    m_isCalling = true;
    const NotificationMessages::EncodedChanges first = NotificationMessages::encodeChanges(m_queue);
    m_sent = m_queue.first(first.count);
    m_queue.remove(0, first.count);
    // No answer for long means that the notifier is stopped; the message waits for it then.
    auto *const watcher = new QDBusPendingCallWatcher(
        m_bus.asyncCall(changeCall(first), std::numeric_limits<int>::max()), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this](QDBusPendingCallWatcher *finished) {
                finished->deleteLater();
                finish(*finished);
            });
}

void SessionNotificationCenter::finish(const QDBusPendingCallWatcher &call) {
    const QDBusPendingReply<uint> reply = call;
    QList<Change> sent = std::exchange(m_sent, {});
    m_isCalling = false;
    if (sent.size() > manyChanges)
        QTimer::singleShot(0, [] { malloc_trim(0); });
    if (reply.isError() && !isRefusal(reply.error())) {
        const bool isVoid =
            !m_queue.isEmpty() &&
            std::holds_alternative<NotificationMessages::RemoveAllPending>(m_queue.first());
        if (!isVoid)
            m_queue = sent + m_queue;
        startNotifier();
        return;
    }
    if (!reply.isError())
        m_mayHavePending = reply.value() > 0;
    flush();
}

void SessionNotificationCenter::ask() {
    m_isCalling = true;
    auto *const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call(u"Pending"_s)), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this](QDBusPendingCallWatcher *finished) {
                finished->deleteLater();
                m_isCalling = false;
                const QDBusPendingReply<QString> reply = *finished;
                if (reply.isError() && !isRefusal(reply.error())) {
                    startNotifier();
                    return;
                }
                const auto requests =
                    reply.isError() ? std::nullopt
                                    : NotificationMessages::decodeRequests(reply.value().toUtf8());
                answerQuestions(requests.value_or(QList<NotificationRequest>()));
                flush();
            });
}

void SessionNotificationCenter::answerQuestions(const QList<NotificationRequest> &requests) {
    for (const Question &answer : std::exchange(m_questions, {}))
        answer(requests);
}

void SessionNotificationCenter::startNotifier() {
    if (std::exchange(m_hasStarted, true)) {
        answerQuestions({});
        return;
    }
    if (m_program.isEmpty()) {
        // The bus may start another one in the place of one that was just leaving.
        flushSoon();
        return;
    }
    QProcess notifier;
    notifier.setProgram(m_program);
    notifier.setWorkingDirectory(u"/"_s);
    notifier.setStandardInputFile(QProcess::nullDevice());
    notifier.setStandardOutputFile(QProcess::nullDevice());
    notifier.setStandardErrorFile(QProcess::nullDevice());
    if (notifier.startDetached())
        m_starting.start();
    else
        answerQuestions({});
}

void SessionNotificationCenter::tellBeforeParting() {
    QList<Change> changes = m_sent + m_queue;
    const QDeadlineTimer deadline(parting);
    m_hasStarted = m_starting.isActive();
    while (!changes.isEmpty()) {
        const NotificationMessages::EncodedChanges first =
            NotificationMessages::encodeChanges(changes);
        if (!isTaken(changeCall(first), deadline))
            return;
        changes.remove(0, first.count);
    }
}

bool SessionNotificationCenter::isTaken(const QDBusMessage &message,
                                        const QDeadlineTimer &deadline) {
    while (!deadline.hasExpired()) {
        const QDBusMessage answer =
            m_bus.call(message, QDBus::Block, static_cast<int>(deadline.remainingTime()));
        if (answer.type() == QDBusMessage::ReplyMessage || isRefusal(QDBusError(answer)))
            return true;
        if (m_program.isEmpty())
            return false;
        startNotifier();
        QThread::msleep(partingInterval);
    }
    return false;
}

} // namespace tovarin
