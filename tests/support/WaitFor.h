// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QElapsedTimer>

namespace tovarin {

/// Runs the event loop until the condition holds, for ten seconds at the longest; whether it holds.
template <typename Condition>
bool waitFor(const Condition &condition) {
    QElapsedTimer time;
    time.start();
    while (!condition() && !time.hasExpired(10000))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 50);
    return condition();
}

/// Runs the event loop until nothing is left to do in it.
inline void settle() {
    while (QCoreApplication::eventDispatcher()->processEvents(QEventLoop::AllEvents)) {
    }
}

} // namespace tovarin
