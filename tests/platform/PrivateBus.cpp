// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/platform/PrivateBus.h"

#include <QStringList>

#include <csignal>
#include <sys/prctl.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

PrivateBus::PrivateBus(const QString &address) {
    QStringList arguments{u"--session"_s, u"--print-address"_s, u"--nofork"_s, u"--nopidfile"_s,
                          u"--nosyslog"_s};
    if (!address.isEmpty())
        arguments.append(u"--address="_s + address);
    m_daemon.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    m_daemon.setStandardErrorFile(QProcess::nullDevice());
    m_daemon.start(u"dbus-daemon"_s, arguments);
    while (!m_daemon.canReadLine() && m_daemon.waitForReadyRead()) {
    }
    m_address = m_daemon.readLine().trimmed();
}

PrivateBus::~PrivateBus() {
    m_daemon.kill();
    m_daemon.waitForFinished();
}

} // namespace tovarin
