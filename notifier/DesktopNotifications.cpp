// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "notifier/DesktopNotifications.h"

#include "platform/BusErrors.h"

#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QVariantMap>

#include <array>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

constexpr auto serviceName = "org.freedesktop.Notifications"_L1;
constexpr auto objectPath = "/org/freedesktop/Notifications"_L1;

constexpr uchar lowUrgency = 0;
constexpr uchar normalUrgency = 1;

/// What may be told of notifications, also of other programs, until an answer comes.
constexpr qsizetype mostEarly = 100;

struct Listener {
    QLatin1StringView signal;
    const char *slot;
};

const std::array listeners = {
    Listener{"ActivationToken"_L1, SLOT(takeToken(uint, QString))},
    Listener{"ActionInvoked"_L1, SLOT(takeAction(uint, QString))},
    Listener{"NotificationClosed"_L1, SLOT(takeClosing(uint))},
};

/// The bus carries no such character, and a name that a file brought may hold one.
QString withoutNul(QString text) {
    return text.replace(QChar(u'\0'), QChar(QChar::ReplacementCharacter));
}

QVariantMap hints(PresentationOptions presentation, const QString &applicationId) {
    const bool pops = presentation.testFlag(PresentationOption::banner);
    QVariantMap hints{
        {u"desktop-entry"_s, applicationId},
        {u"urgency"_s, QVariant::fromValue(pops ? normalUrgency : lowUrgency)},
    };
    if (presentation.testFlag(PresentationOption::sound))
        hints[u"sound-name"_s] = u"message-new-instant"_s;
    else
        hints[u"suppress-sound"_s] = true;
    if (!presentation.testFlag(PresentationOption::list))
        hints[u"transient"_s] = true;
    return hints;
}

bool isAbsence(const QDBusError &error) {
    switch (error.type()) {
    case QDBusError::ServiceUnknown:
    case QDBusError::Disconnected:
        return true;
    default:
        return false;
    }
}

} // namespace

DesktopNotifications::DesktopNotifications(const QDBusConnection &bus, QString applicationId,
                                           QObject *parent)
    : NotificationService(parent), m_bus(bus), m_applicationId(std::move(applicationId)) {
    auto *const watcher =
        new QDBusServiceWatcher(serviceName, m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString &, const QString &before, const QString &now) {
                if (!before.isEmpty())
                    forgetService();
                if (!now.isEmpty())
                    Q_EMIT appeared();
            });
}

void DesktopNotifications::prepare(std::function<void(Presence)> answer) {
    if (m_capabilities) {
        answer(Presence::there);
        return;
    }
    const auto call =
        QDBusMessage::createMethodCall(serviceName, objectPath, serviceName, u"GetCapabilities"_s);
    auto *const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, answer = std::move(answer),
             service = m_services](QDBusPendingCallWatcher *finished) {
                finished->deleteLater();
                const QDBusPendingReply<QStringList> reply = *finished;
                const bool hasGone = service != m_services;
                if (!reply.isError() && !hasGone) {
                    m_capabilities = reply.value();
                    answer(Presence::there);
                    return;
                }
                // A service that has just gone, or could not be started, may be started again; only
                // asking it does that.
                answer(!hasGone && isAbsence(reply.error()) ? Presence::absent : Presence::silent);
            });
}

void DesktopNotifications::post(const NotificationRequest &request,
                                std::function<void(Outcome)> answer) {
    const QStringList can = m_capabilities.value_or(QStringList());
    const QString body = withoutNul(request.body);
    QDBusMessage call =
        QDBusMessage::createMethodCall(serviceName, objectPath, serviceName, u"Notify"_s);
    call << u"Tovarin"_s << 0U << m_applicationId << withoutNul(request.title)
         << (can.contains("body-markup"_L1) ? body.toHtmlEscaped() : body)
         << (can.contains("actions"_L1) ? QStringList{u"default"_s, u"Tovarin"_s} : QStringList())
         << hints(request.presentation, m_applicationId) << -1;
    // Before the answer comes, so may the click.
    listen();
    ++m_posting;
    auto *const watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, answer = std::move(answer),
             service = m_services](QDBusPendingCallWatcher *finished) {
                finished->deleteLater();
                --m_posting;
                const QDBusPendingReply<uint> reply = *finished;
                if (!reply.isError()) {
                    // Qt may tell of the service's end before it tells of its last answer.
                    if (service == m_services)
                        m_shown.insert(reply.value());
                    stopListening();
                    answer(Outcome::shown);
                    hearEarly();
                    return;
                }
                stopListening();
                hearEarly();
                if (isAbsence(reply.error()) || (isSilence(reply.error()) && !m_capabilities))
                    answer(Outcome::absent);
                else
                    answer(isSilence(reply.error()) ? Outcome::shown : Outcome::refused);
            });
}

void DesktopNotifications::takeToken(uint id, const QString &token) {
    if (m_shown.contains(id))
        m_tokens[id] = token;
    else
        keepEarly([this, id, token] { takeToken(id, token); });
}

void DesktopNotifications::takeAction(uint id, const QString &action) {
    if (!m_shown.contains(id)) {
        keepEarly([this, id, action] { takeAction(id, action); });
    } else if (action == u"default") {
        Q_EMIT clicked(m_tokens.value(id));
        forget(id);
    }
}

void DesktopNotifications::takeClosing(uint id) {
    if (m_shown.contains(id))
        forget(id);
    else
        keepEarly([this, id] { takeClosing(id); });
}

void DesktopNotifications::keepEarly(std::function<void()> told) {
    if (m_posting > 0 && m_early.size() < mostEarly)
        m_early.append(std::move(told));
}

void DesktopNotifications::hearEarly() {
    for (const std::function<void()> &told : std::exchange(m_early, {}))
        told();
}

void DesktopNotifications::listen() {
    if (std::exchange(m_listens, true))
        return;
    for (const Listener &listener : listeners)
        m_bus.connect(serviceName, objectPath, serviceName, listener.signal, this, listener.slot);
}

void DesktopNotifications::stopListening() {
    if (!m_listens || !m_shown.isEmpty() || m_posting > 0)
        return;
    m_listens = false;
    for (const Listener &listener : listeners)
        m_bus.disconnect(serviceName, objectPath, serviceName, listener.signal, this,
                         listener.slot);
}

void DesktopNotifications::forget(uint id) {
    m_shown.remove(id);
    m_tokens.remove(id);
    stopListening();
    if (m_shown.isEmpty())
        Q_EMIT shownNothing();
}

void DesktopNotifications::forgetService() {
    ++m_services;
    m_capabilities.reset();
    m_shown.clear();
    m_tokens.clear();
    m_early.clear();
    stopListening();
    Q_EMIT shownNothing();
}

} // namespace tovarin
