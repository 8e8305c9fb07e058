// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "notifier/Notifier.h"
#include "tests/notifier/FakeService.h"
#include "tests/support/ManualClock.h"
#include "tests/support/Samples.h"
#include "tests/support/WaitFor.h"

#include <QTemporaryDir>
#include <QTimeZone>

#include <memory>

namespace tovarin {

/// A computer with a clock, a zone, a disk and a desktop, on which a notifier runs.
class Machine {
public:
    explicit Machine(std::string_view now = "2025-06-01T12:00:00Z") : clock(instant(now)) {
        start();
    }

    QString folder() const { return m_disk.filePath(QStringLiteral("Tovarin")); }
    QString file() const { return folder() + QStringLiteral("/notifications.json"); }

    void start() {
        m_notifier = std::make_unique<Notifier>(clock, zone, folder(), service);
        look();
    }
    /// Nothing is tidied up.
    void kill() {
        m_notifier.reset();
        service.forgetAnswers();
    }
    void restart() {
        kill();
        start();
    }

    Notifier &notifier() { return *m_notifier; }
    void look() {
        m_notifier->look();
        settle();
    }
    void set(Instant now) {
        clock.set(now);
        look();
    }
    void set(std::string_view now) { set(instant(now)); }
    void travel(const char *name) {
        zone = UserZone(QTimeZone(name));
        m_notifier->setZone(zone);
        settle();
    }

    void change(const QList<NotificationMessages::Change> &changes) {
        m_notifier->change(changes);
        settle();
    }
    void removeAll() { change({NotificationMessages::RemoveAllPending()}); }
    void remove(const QStringList &identifiers) {
        change({NotificationMessages::RemovePending{identifiers}});
    }

    /// The identifiers of what is pending.
    QStringList pending() const {
        QStringList identifiers;
        for (const NotificationRequest &request : m_notifier->pending())
            identifiers.append(request.identifier);
        return identifiers;
    }

    ManualClock clock;
    UserZone zone{QTimeZone::utc()};
    FakeService service;

private:
    QTemporaryDir m_disk;
    std::unique_ptr<Notifier> m_notifier;
};

/// A request for ten in the morning of the day, whose body is its identifier unless it is given.
inline NotificationRequest atTen(std::string_view day, const QString &identifier,
                                 const QString &body = {}) {
    return {.identifier = identifier,
            .title = QStringLiteral("title"),
            .body = body.isEmpty() ? identifier : body,
            .presentation = PresentationOption::banner | PresentationOption::sound,
            .trigger = CalendarTrigger{civilDay(day), std::chrono::hours(10)}};
}

inline NotificationRequest after(std::chrono::milliseconds interval, const QString &identifier) {
    NotificationRequest request = atTen("2025-01-01", identifier);
    request.trigger = TimeIntervalTrigger{interval};
    return request;
}

} // namespace tovarin
