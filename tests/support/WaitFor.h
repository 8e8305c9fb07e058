// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>

#include <chrono>

namespace tovarin {

/// Runs the event loop until the condition holds; false when that takes longer than any working
/// program needs, on however busy a machine.
template <typename Condition>
bool waitFor(const Condition &condition) {
    const QDeadlineTimer deadline(std::chrono::minutes(1));
    QTimer alarm; // Looks again at least so often.
    alarm.start(std::chrono::milliseconds(20));
    while (!condition()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

/// Runs the event loop until nothing is left to do in it.
inline void settle() {
    while (QCoreApplication::eventDispatcher()->processEvents(QEventLoop::AllEvents)) {
    }
}

} // namespace tovarin
