// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Clock.h"

#include <QObject>

#include <memory>

class QSocketNotifier;
class QTimer;

namespace tovarin {

/// Rings when the wall clock reaches a moment, however it gets there: also when the clock is set,
/// and right after the machine has slept past the moment. A QTimer counts the time that the machine
/// is awake and knows of neither.
///
/// Until then it wakes nobody: the kernel holds the one timer (timerfd). Where there is none, and
/// where the kernel's clock is not the one given here, it asks the clock about once an hour, and
/// may ring that much late.
///
/// For a thread with an event loop.
class WallTimer final : public QObject {
    Q_OBJECT

public:
    explicit WallTimer(const Clock &clock, QObject *parent = nullptr);
    ~WallTimer() override;

    /// Rings once at the moment, from the event loop; one that is past rings at once. It takes the
    /// place of the moment before.
    void ringAt(Instant moment);

Q_SIGNALS:
    /// The moment has come, or somebody has set the clock, to whatever time. Ask the clock, and set
    /// the timer anew: it does not ring again by itself.
    void rang();

private:
    bool armKernel();
    void armFallback();
    void kernelWoke();
    void fallbackWoke();

    const Clock &m_clock;
    const int m_descriptor; ///< Negative where the kernel has no timer to give.
    std::unique_ptr<QSocketNotifier> m_notifier;
    QTimer *m_fallback;
    Instant m_moment;
};

} // namespace tovarin
