// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QTimer>

#include <chrono>
#include <functional>

namespace tovarin {

/// Has something done once, a little later, on the main thread; never, when the context is gone by
/// then. A test puts its own here, so that nothing waits.
using Delay =
    std::function<void(std::chrono::milliseconds after, QObject *context, std::function<void()>)>;

/// By the event loop's timers, to the millisecond.
inline Delay eventLoopDelay() {
    return [](std::chrono::milliseconds after, QObject *context, std::function<void()> action) {
        QTimer::singleShot(after, Qt::PreciseTimer, context, std::move(action));
    };
}

} // namespace tovarin
