// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/TrayHost.h"

#include <QAbstractNativeEventFilter>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QGuiApplication>

#include <cstdlib>
#include <functional>
#include <memory>
#include <string_view>
#include <xcb/xcb.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

const QString watcherName = u"org.kde.StatusNotifierWatcher"_s;
const QString watcherPath = u"/StatusNotifierWatcher"_s;

template <typename T>
using Reply = std::unique_ptr<T, decltype([](T *reply) { std::free(reply); })>;

xcb_atom_t atom(xcb_connection_t *display, std::string_view name) {
    const auto cookie =
        xcb_intern_atom(display, 0, static_cast<uint16_t>(name.size()), name.data());
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(display, cookie, nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

bool hasOwner(xcb_connection_t *display, xcb_atom_t selection) {
    const Reply<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        display, xcb_get_selection_owner(display, selection), nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

} // namespace

/// A tray of the XEmbed kind is the owner of a selection, and tells the root window, from which Qt
/// hears already, when it becomes that.
class TrayHost::XTray final : public QAbstractNativeEventFilter {
public:
    XTray(xcb_connection_t *display, std::function<void()> appeared)
        : m_manager(atom(display, "MANAGER"))
        ,
        // The number is the X screen's; a server of today has but one.
        m_selection(atom(display, "_NET_SYSTEM_TRAY_S0"))
        , m_appeared(std::move(appeared)) {
        qGuiApp->installNativeEventFilter(this);
        if (hasOwner(display, m_selection))
            m_appeared();
    }

    bool nativeEventFilter(const QByteArray &, void *message, qintptr *) override {
        const auto *event = static_cast<const xcb_generic_event_t *>(message);
        if ((event->response_type & 0x7f) == XCB_CLIENT_MESSAGE) {
            const auto *news = static_cast<const xcb_client_message_event_t *>(message);
            if (news->type == m_manager && news->data.data32[1] == m_selection)
                m_appeared();
        }
        return false;
    }

private:
    xcb_atom_t m_manager;
    xcb_atom_t m_selection;
    std::function<void()> m_appeared;
};

TrayHost::TrayHost(const QDBusConnection &bus, QObject *parent) : QObject(parent), m_bus(bus) {
    watchBus();
    // Other platforms of Qt's may have the interface as well, with no display behind it.
    if (QGuiApplication::platformName() == u"xcb"_s)
        m_xTray = std::make_unique<XTray>(
            qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection(), [this] {
                // Qt handles the same event after this filter, and would make the item twice.
                QMetaObject::invokeMethod(this, &TrayHost::appeared, Qt::QueuedConnection);
            });
}

TrayHost::~TrayHost() = default;

void TrayHost::watchBus() {
    auto *watcher = new QDBusServiceWatcher(watcherName, m_bus,
                                            QDBusServiceWatcher::WatchForRegistration, this);
    connect(watcher, &QDBusServiceWatcher::serviceRegistered, this, &TrayHost::askWatcher);
    // Of the watcher and the host, which may be two programs, the watcher comes first.
    m_bus.connect(QString(), watcherPath, watcherName, u"StatusNotifierHostRegistered"_s, this,
                  SLOT(askWatcher()));
    askWatcher();
}

void TrayHost::askWatcher() {
    QDBusMessage question = QDBusMessage::createMethodCall(
        watcherName, watcherPath, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << watcherName << u"IsStatusNotifierHostRegistered"_s;
    question.setAutoStartService(false);
    auto *answer = new QDBusPendingCallWatcher(m_bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<QDBusVariant> reply = *answer;
        if (reply.isValid() && reply.value().variant().toBool())
            Q_EMIT appeared();
    });
}

} // namespace tovarin
