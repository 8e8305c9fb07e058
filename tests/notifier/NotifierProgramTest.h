// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/NotificationMessages.h"
#include "platform/SessionNotificationCenter.h"
#include "tests/notifier/FakeDesktop.h"
#include "tests/platform/PrivateBus.h"
#include "tests/support/ScopedVariable.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

namespace tovarin {

/// A reminder that comes after a while.
NotificationRequest after(std::chrono::milliseconds interval, const QString &identifier,
                          const QString &body);

/// The notifier as a process of its own, with Tovarin's end of it and a desktop.
class NotifierProgramTest : public testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    void open();

    bool isRunning() const;
    bool waitForEnd() const;
    pid_t pid() const;
    /// The center would start another one; as if Tovarin had quit, it is taken away first.
    void kill();
    bool waitForPosts(qsizetype count) const;
    QStringList pending() const;
    /// Whether the bus is to tell the notifier of this signal.
    bool listensTo(const QString &signal) const;

    /// Calls the notifier. The name of the error that is the answer; empty for a good one.
    QString call(const QString &method, const QVariantList &arguments) const;

    QTemporaryDir state;
    ScopedVariable stateHome{"XDG_STATE_HOME", QFile::encodeName(state.path())};
    PrivateBus bus;
    ScopedVariable busAddress{"DBUS_SESSION_BUS_ADDRESS", bus.address()};
    std::unique_ptr<QDBusConnection> connection;
    std::unique_ptr<FakeDesktop> desktop;
    std::unique_ptr<SessionNotificationCenter> center;
};

} // namespace tovarin
