// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/WallTimer.h"

#include <QSocketNotifier>
#include <QTimer>

#include <algorithm>
#include <cerrno>
#include <sys/timerfd.h>
#include <unistd.h>

using namespace std::chrono;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

constexpr milliseconds longestFallback = 1h;

/// The kernel takes no moment before 1970, and its zero means "never".
itimerspec kernelTime(Instant moment) {
    const milliseconds sinceEpoch = std::max(moment.time_since_epoch(), milliseconds(1));
    const auto whole = floor<seconds>(sinceEpoch);
    itimerspec time{};
    time.it_value.tv_sec = whole.count();
    time.it_value.tv_nsec = nanoseconds(sinceEpoch - whole).count();
    return time;
}

} // namespace

WallTimer::WallTimer(const Clock &clock, QObject *parent)
    : QObject(parent)
    , m_clock(clock)
    , m_descriptor(timerfd_create(CLOCK_REALTIME, TFD_NONBLOCK | TFD_CLOEXEC))
    , m_fallback(new QTimer(this)) {
    m_fallback->setSingleShot(true);
    connect(m_fallback, &QTimer::timeout, this, &WallTimer::fallbackWoke);
    if (m_descriptor >= 0) {
        m_notifier = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read);
        connect(m_notifier.get(), &QSocketNotifier::activated, this, &WallTimer::kernelWoke);
    }
}

WallTimer::~WallTimer() {
    // The notifier must not outlive what it looks at.
    m_notifier.reset();
    if (m_descriptor >= 0)
        close(m_descriptor);
}

void WallTimer::ringAt(Instant moment) {
    m_moment = moment;
    m_fallback->stop();
    if (!armKernel())
        armFallback();
}

bool WallTimer::armKernel() {
    const itimerspec time = kernelTime(m_moment);
    constexpr int flags = TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET;
    if (m_descriptor < 0)
        return false;
    if (timerfd_settime(m_descriptor, flags, &time, nullptr) == 0)
        return true;
    if (errno != ECANCELED)
        return false;
    // It runs, but the clock was set just before, and this was the only word of it.
    QMetaObject::invokeMethod(this, &WallTimer::rang, Qt::QueuedConnection);
    return true;
}

void WallTimer::armFallback() {
    const milliseconds missing = m_moment - m_clock.now();
    m_fallback->start(std::clamp(missing, milliseconds(0), longestFallback));
}

void WallTimer::kernelWoke() {
    quint64 expirations = 0;
    const ssize_t got = read(m_descriptor, &expirations, sizeof expirations);
    if (got < 0 && errno == ECANCELED) {
        // The clock was set; the kernel would still ring.
        const itimerspec never{};
        timerfd_settime(m_descriptor, 0, &never, nullptr);
        Q_EMIT rang();
    } else if (got > 0) {
        // To set the kernel's timer again would make it ring at once, for ever.
        if (m_clock.now() < m_moment)
            armFallback();
        else
            Q_EMIT rang();
    }
}

void WallTimer::fallbackWoke() {
    if (m_clock.now() < m_moment)
        ringAt(m_moment);
    else
        Q_EMIT rang();
}

} // namespace tovarin
