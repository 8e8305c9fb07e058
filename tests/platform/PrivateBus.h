// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QProcess>

namespace tovarin {

/// A session bus of a test's own, which ends with it, however the test ends.
class PrivateBus {
public:
    /// Listens at an address of its own choice, unless one is given.
    explicit PrivateBus(const QString &address = {});
    ~PrivateBus();
    PrivateBus(const PrivateBus &) = delete;
    PrivateBus &operator=(const PrivateBus &) = delete;

    /// Empty when it could not be started.
    QByteArray address() const { return m_address; }

private:
    QProcess m_daemon;
    QByteArray m_address;
};

} // namespace tovarin
