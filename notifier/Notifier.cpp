// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "notifier/Notifier.h"

#include <QSet>

#include <algorithm>
#include <tuple>
#include <utility>
#include <variant>
#include <vector>

using namespace std::chrono;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

constexpr milliseconds retryInterval = 5min;

/// A service that has died of a notification so often in a row gets its next chance after the
/// interval, even if the bus or its supervisor starts it at once.
constexpr int mostDeaths = 2;

/// A service that refuses so many in a row takes nothing now.
constexpr int mostRefusals = 3;

/// How long a plan may be on its way.
constexpr milliseconds planTime = 1min;

/// Whichever way the clock was set meanwhile.
bool isWithinPlanTime(Instant collected, Instant now) {
    return abs(now - collected) <= planTime;
}

} // namespace

Notifier::Notifier(const Clock &clock, const UserZone &zone, const QString &folder,
                   NotificationService &service, QObject *parent)
    : QObject(parent)
    , m_clock(clock)
    , m_zone(zone)
    , m_file(folder)
    , m_service(service)
    , m_timer(clock) {
    for (const PendingEntry &entry : m_file.load()) {
        if (entry.isDue) {
            m_due.append(entry);
            continue;
        }
        keep(entry);
    }
    connect(&m_timer, &WallTimer::rang, this, &Notifier::look);
    connect(&m_service, &NotificationService::appeared, this, [this] {
        m_hasAppeared = true;
        if (m_deaths < mostDeaths)
            m_retryAt.reset();
        deliver();
    });
    connect(&m_service, &NotificationService::shownNothing, this, &Notifier::tellIfIdle);
}

bool Notifier::change(const QList<NotificationMessages::Change> &changes) {
    if (!fits(changes))
        return false;
    const Instant now = m_clock.now();
    collectDue(now);
    for (const NotificationMessages::Change &change : changes) {
        if (const auto *const request = std::get_if<NotificationRequest>(&change)) {
            add(*request, now);
        } else if (const auto *removal =
                       std::get_if<NotificationMessages::RemovePending>(&change)) {
            for (const QString &identifier : removal->identifiers)
                remove(identifier);
        } else {
            m_pending.clear();
            m_serials.clear();
        }
    }
    collectDue(now);
    save();
    deliver();
    arm();
    tellIfIdle();
    return true;
}

QList<NotificationRequest> Notifier::pending() const {
    QList<NotificationRequest> requests;
    for (const Pending &pending : m_pending)
        requests.append(pending.entry.request);
    return requests;
}

void Notifier::setZone(const UserZone &zone) {
    m_zone = zone;
    for (Pending &pending : m_pending)
        pending.moment = momentOf(pending.entry);
    look();
}

void Notifier::look() {
    const Instant now = m_clock.now();
    const bool isShortened = shortenIntervals(now);
    if (collectDue(now) || isShortened)
        save();
    deliver();
    arm();
    tellIfIdle();
}

bool Notifier::isIdle() const {
    return m_pending.isEmpty() && m_due.isEmpty() && m_held.isEmpty() && !m_service.isShowing();
}

bool Notifier::fits(const QList<NotificationMessages::Change> &changes) const {
    qsizetype count = m_pending.size();
    return std::ranges::all_of(changes, [&](const NotificationMessages::Change &change) {
        if (std::holds_alternative<NotificationMessages::RemoveAllPending>(change))
            count = 0;
        else if (std::holds_alternative<NotificationRequest>(change))
            ++count;
        return count <= mostPending;
    });
}

std::optional<Instant> Notifier::momentOf(const PendingEntry &entry) const {
    if (entry.deadline)
        return entry.deadline;
    const auto &trigger = std::get<CalendarTrigger>(entry.request.trigger);
    return m_zone.instantOf(trigger.day, trigger.time);
}

void Notifier::add(const NotificationRequest &request, Instant now) {
    if (isCollected(request, now)) {
        remove(request.identifier);
        return;
    }
    PendingEntry entry{m_file.newSerial(), request, std::nullopt, false};
    if (const auto *const trigger = std::get_if<TimeIntervalTrigger>(&request.trigger))
        entry.deadline = now + trigger->interval;
    keep(entry);
}

void Notifier::keep(const PendingEntry &entry) {
    remove(entry.request.identifier);
    m_serials[entry.request.identifier] = entry.serial;
    m_pending[entry.serial] = {entry, momentOf(entry)};
}

void Notifier::remove(const QString &identifier) {
    const auto found = m_serials.constFind(identifier);
    if (found == m_serials.cend())
        return;
    m_pending.remove(*found);
    m_serials.erase(found);
}

bool Notifier::collectDue(Instant now) {
    std::vector<Pending> due;
    for (const Pending &pending : std::as_const(m_pending)) {
        if (pending.moment && *pending.moment <= now)
            due.push_back(pending);
    }
    std::ranges::sort(due, {}, [](const Pending &pending) {
        return std::tuple(*pending.moment, pending.entry.serial);
    });
    if (!due.empty())
        forgetCollected(now);
    QSet<QString> identifiers;
    for (const Pending &pending : due)
        identifiers.insert(pending.entry.request.identifier);
    const auto isReplaced = [&](const PendingEntry &other) {
        return identifiers.contains(other.request.identifier);
    };
    const auto waiting = m_due.begin() + (m_isPosting ? 1 : 0);
    m_due.erase(std::remove_if(waiting, m_due.end(), isReplaced), m_due.end());
    m_held.removeIf(isReplaced);
    for (Pending &pending : due) {
        remove(pending.entry.request.identifier);
        if (const auto *const trigger =
                std::get_if<CalendarTrigger>(&pending.entry.request.trigger))
            m_collected[pending.entry.request.identifier] = {now, *trigger};
        pending.entry.isDue = true;
        m_due.append(pending.entry);
    }
    return !due.empty();
}

bool Notifier::isCollected(const NotificationRequest &request, Instant now) const {
    const auto *const trigger = std::get_if<CalendarTrigger>(&request.trigger);
    const auto found = m_collected.constFind(request.identifier);
    return trigger && found != m_collected.cend() && found->trigger == *trigger &&
           isWithinPlanTime(found->at, now);
}

void Notifier::forgetCollected(Instant now) {
    m_collected.removeIf([now](const QHash<QString, Collected>::iterator &other) {
        return !isWithinPlanTime(other->at, now);
    });
}

bool Notifier::shortenIntervals(Instant now) {
    bool isShortened = false;
    for (Pending &pending : m_pending) {
        const auto *const trigger =
            std::get_if<TimeIntervalTrigger>(&pending.entry.request.trigger);
        if (trigger && *pending.entry.deadline - now > trigger->interval) {
            pending.moment = pending.entry.deadline = now + trigger->interval;
            isShortened = true;
        }
    }
    if (m_retryAt && *m_retryAt - now > retryInterval)
        m_retryAt = now + retryInterval;
    return isShortened;
}

void Notifier::save() {
    QList<PendingEntry> entries = m_held + m_due;
    for (const Pending &pending : std::as_const(m_pending))
        entries.append(pending.entry);
    m_file.save(entries, m_isPosting);
}

void Notifier::arm() {
    Instant next = Instant::max();
    // What is to be tried again waits for the one that is on its way, however long that takes.
    if (m_retryAt && !m_isDelivering)
        next = *m_retryAt;
    for (const Pending &pending : std::as_const(m_pending))
        next = std::min(next, pending.moment.value_or(Instant::max()));
    if (next != Instant::max())
        m_timer.ringAt(next);
}

void Notifier::deliver() {
    if (m_isDelivering)
        return;
    if (!m_retryAt || m_clock.now() >= *m_retryAt) {
        m_retryAt.reset();
        m_refusals = 0;
        m_due = std::exchange(m_held, {}) + m_due;
    }
    if (m_due.isEmpty())
        return;
    m_isDelivering = true;
    m_hasAppeared = false;
    m_service.prepare([this](NotificationService::Presence presence) {
        using enum NotificationService::Presence;
        if (presence == there) {
            post();
            return;
        }
        if (m_hasAppeared && (presence == absent || ++m_deaths < mostDeaths))
            tryAgain();
        else if (presence == silent)
            hold(m_due.size(), Tried::no);
        endDelivery();
    });
}

void Notifier::post() {
    m_isPosting = true;
    // That it appeared when it was asked for says nothing of what happens to this one.
    m_hasAppeared = false;
    m_file.notePosted(m_due.first().serial);
    m_service.post(m_due.first().request,
                   [this](NotificationService::Outcome outcome) { finish(outcome); });
}

void Notifier::finish(NotificationService::Outcome outcome) {
    m_isPosting = false;
    if (outcome == NotificationService::Outcome::shown) {
        m_deaths = m_refusals = 0;
        m_due.removeFirst();
        if (m_due.isEmpty())
            save();
    } else {
        keepUnshown(outcome);
    }
    endDelivery();
    tryAgain();
    tellIfIdle();
}

void Notifier::keepUnshown(NotificationService::Outcome outcome) {
    const QString &identifier = m_due.first().request.identifier;
    const bool isReplaced =
        std::any_of(m_due.begin() + 1, m_due.end(), [&](const PendingEntry &other) {
            return other.request.identifier == identifier;
        });
    // Under its old serial it counts as posted.
    m_due.first().serial = m_file.newSerial();
    const bool isRefused = outcome == NotificationService::Outcome::refused;
    const bool takesNothing = isRefused ? ++m_refusals >= mostRefusals : ++m_deaths >= mostDeaths;
    if (isReplaced)
        m_due.removeFirst();
    else if (isRefused || takesNothing || !m_hasAppeared)
        hold(1, Tried::yes);
    if (takesNothing)
        hold(m_due.size(), Tried::no);
    save();
}

void Notifier::hold(qsizetype count, Tried tried) {
    // A service has come for what was held before.
    if (!m_retryAt)
        m_due += std::exchange(m_held, {});
    const QList<PendingEntry> held = m_due.first(count);
    m_due.remove(0, count);
    // What was tried comes last, so that everything gets its turn.
    m_held = tried == Tried::yes ? m_held + held : held + m_held;
    if (!m_retryAt)
        m_retryAt = m_clock.now() + retryInterval;
}

void Notifier::endDelivery() {
    m_isDelivering = false;
    if (m_retryAt)
        arm();
}

void Notifier::tryAgain() {
    QMetaObject::invokeMethod(this, &Notifier::deliver, Qt::QueuedConnection);
}

void Notifier::tellIfIdle() {
    if (isIdle())
        Q_EMIT becameIdle();
}

} // namespace tovarin
