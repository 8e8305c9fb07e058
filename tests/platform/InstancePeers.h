// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/SingleInstance.h"
#include "tests/support/VariableTable.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusPendingCall>
#include <QDBusVirtualObject>
#include <QProcess>

namespace tovarin {

/// What an instance has told, as lines: "activated TOKEN", "open TOKEN URL URL".
class Listener {
public:
    explicit Listener(SingleInstance &instance);

    QStringList told;
    QList<QUrl> opened; ///< By the last call that opened any.

private:
    QObject m_context;
};

/// Another start of the program, in a process of its own.
class Start {
public:
    Start(const VariableTable &table, const QString &folder, const QStringList &files = {});
    ~Start();
    Start(const Start &) = delete;
    Start &operator=(const Start &) = delete;

    void go();
    /// Empty when the process has ended instead.
    QString line();
    QString outcome() {
        go();
        return line();
    }
    void stop() const;
    void resume() const;
    void kill() const;

private:
    void send(int signal) const;

    QProcess m_process;
};

/// A program that calls an instance, or owns the name in its stead.
class Peer {
public:
    static const QString name;
    static const QString path;
    static const QString interface;

    explicit Peer(const QByteArray &address);
    ~Peer() { leave(); }
    Peer(const Peer &) = delete;
    Peer &operator=(const Peer &) = delete;

    void leave();

    QDBusConnectionInterface::RegisterServiceReply
    take(QDBusConnectionInterface::ServiceQueueOptions option) const;
    bool isOwned() const { return bus.interface()->isServiceRegistered(name).value(); }
    QDBusPendingCall send(const QString &method, const QVariantList &arguments) const;
    /// The name of the error that is the answer; empty for a good one.
    QString call(const QString &method, const QVariantList &arguments) const;

    QDBusConnection bus;
};

/// Owns the name, which it would give away, and has the application's object, and answers with an
/// error or not at all.
class OddOwner final : public QDBusVirtualObject {
public:
    OddOwner(Peer &peer, bool answers);

    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override;

    int calls = 0;
    QVariantList arguments; ///< Of the last call.

private:
    const bool m_answers;
};

} // namespace tovarin
