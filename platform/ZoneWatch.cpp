// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/ZoneWatch.h"

#include <QFile>
#include <QSocketNotifier>

#include <array>
#include <cstring>
#include <string_view>
#include <sys/inotify.h>
#include <unistd.h>

namespace tovarin {

namespace {

constexpr quint32 changes =
    IN_CREATE | IN_MOVED_TO | IN_CLOSE_WRITE | IN_DELETE | IN_MOVED_FROM | IN_ONLYDIR;

/// ":/etc/localtime" is a way to say "the system's zone" that saves the C library some work.
bool namesZone(const QByteArray &tz) {
    return !tz.isEmpty() && tz != ":/etc/localtime";
}

/// What is lost in an overflow may have been about the zone.
bool concernsZone(const inotify_event &event, std::string_view name) {
    return (event.mask & IN_Q_OVERFLOW) != 0 || name == "localtime" || name == "timezone";
}

} // namespace

ZoneWatch::ZoneWatch(const Environment &environment, const QString &folder, QObject *parent)
    : QObject(parent) {
    if (namesZone(environment("TZ")))
        return;
    m_descriptor = inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    if (m_descriptor < 0)
        return;
    inotify_add_watch(m_descriptor, QFile::encodeName(folder).constData(), changes);
    m_notifier = std::make_unique<QSocketNotifier>(m_descriptor, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &ZoneWatch::read);
}

ZoneWatch::~ZoneWatch() {
    // The notifier must not outlive what it looks at.
    m_notifier.reset();
    if (m_descriptor >= 0)
        close(m_descriptor);
}

void ZoneWatch::read() {
    std::array<char, 4096> buffer;
    bool concerned = false;
    for (;;) {
        const ssize_t got = ::read(m_descriptor, buffer.data(), buffer.size());
        if (got <= 0)
            break;
        for (const char *at = buffer.data(); at < buffer.data() + got;) {
            inotify_event event;
            std::memcpy(&event, at, sizeof event);
            at += sizeof event;
            // The name is filled up with zeros.
            if (concernsZone(event, event.len > 0 ? std::string_view(at) : std::string_view()))
                concerned = true;
            at += event.len;
        }
    }
    if (concerned)
        Q_EMIT changed();
}

} // namespace tovarin
