// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "notifier/NotificationService.h"
#include "notifier/PendingFile.h"
#include "platform/NotificationMessages.h"
#include "platform/UserZone.h"
#include "platform/WallTimer.h"

#include <QHash>
#include <QList>
#include <QMap>
#include <QObject>

#include <optional>

namespace tovarin {

/// Keeps the pending notifications and delivers each when its moment comes, once.
///
/// A request is pending until its moment; what has come due then is posted as soon as there is a
/// service to post it to, in the order of the moments. It is not pending any more: neither removing
/// it nor setting the clock back calls it back. A request of the same identifier that comes due
/// later, while nobody can show either, takes its place, so that a desktop without a service
/// gathers one notification for each identifier at the most. What the service refuses or dies of is
/// tried again five minutes later, and everything when the service does not say what it can; all
/// that is tried at once when a service appears, unless services keep dying of it. It holds up no
/// other, but three refusals, or two deaths, in a row hold up all.
///
/// The moment of a calendar trigger is taken in the zone of now (UserZone::instantOf); a change of
/// zone moves it. An interval counts from when the request is added, over restarts too, by the wall
/// clock; one that, because the clock was set back, would take longer than the whole interval from
/// now on takes just that. What came due while nobody ran is posted at the start.
///
/// A plan that was made just before a moment may arrive just after it, and bring a request again
/// that has come due meanwhile. One with the identifier and the calendar trigger of what was found
/// due within a minute, by the clock as it is now, is therefore taken for the same and not kept. (A
/// notifier that was killed in that minute does not know of it, and posts it *twice*.)
///
/// Once, also when the process is killed. The serial of a request is noted on disk just before it
/// is handed to the session bus, and what is noted is never posted again:
/// - killed before the note: it is posted at the next start.
/// - killed between the note and the handing over, which follows at once: it is *never* posted.
///   Nothing can be asked afterwards that would tell this from the next case.
/// - killed after the handing over, before or after the answer, before or after the file is saved:
///   it was posted, and is not again.
/// - a power cut, or a crash of the system, may lose the note but not the request: it is posted
///   *twice* if it happens in the second or so until the file is saved. The screen has lost the
///   first one.
/// - on a disk that takes neither file nor note, it is posted, and *twice* if the process starts
///   again before the disk recovers.
/// A service that does not answer counts as one that has shown it: it may have. One that is gone
/// before it answers does not: it would have taken the notification with it.
///
/// All that it is made of is the caller's and outlives it. For a thread with an event loop; nothing
/// blocks but the disk, and nothing wakes it until a moment comes, the clock is set or somebody
/// calls.
class Notifier final : public QObject {
    Q_OBJECT

public:
    /// Loads what is pending in the folder. Nothing is posted before the first look().
    Notifier(const Clock &clock, const UserZone &zone, const QString &folder,
             NotificationService &service, QObject *parent = nullptr);

    /// So many are kept at the most; a person has some hundreds.
    static constexpr qsizetype mostPending = 100'000;

    /// Does the changes in their order. They are on the disk afterwards, if it takes them. False,
    /// and nothing is done, when more than `mostPending` might be pending on the way.
    bool change(const QList<NotificationMessages::Change> &changes);

    /// In the order in which they were added, without what has come due.
    QList<NotificationRequest> pending() const;

    /// The user has gone to another zone, or its rules have changed.
    void setZone(const UserZone &zone);

    /// Asks the clock now. Needed at the start, and by one who knows better than the kernel that
    /// the time has changed, as a test does.
    void look();

    /// Nothing is pending, nothing is to be posted, and nothing is shown whose click would have to
    /// be answered. (Some desktops also take a notification away when its sender leaves.)
    bool isIdle() const;

Q_SIGNALS:
    void becameIdle();

private:
    struct Pending {
        PendingEntry entry;
        std::optional<Instant> moment; ///< None for a day that no clock reaches.
    };

    enum class Tried { no, yes };

    struct Collected {
        Instant at; ///< When it was found to be due.
        CalendarTrigger trigger;
    };

    bool fits(const QList<NotificationMessages::Change> &changes) const;
    std::optional<Instant> momentOf(const PendingEntry &entry) const;
    void add(const NotificationRequest &request, Instant now);
    void keep(const PendingEntry &entry);
    void remove(const QString &identifier);
    bool collectDue(Instant now);
    bool isCollected(const NotificationRequest &request, Instant now) const;
    void forgetCollected(Instant now);
    bool shortenIntervals(Instant now);
    void save();
    void arm();
    void deliver();
    void post();
    void finish(NotificationService::Outcome outcome);
    void keepUnshown(NotificationService::Outcome outcome);
    void hold(qsizetype count, Tried tried);
    void endDelivery();
    void tryAgain();
    void tellIfIdle();

    const Clock &m_clock;
    UserZone m_zone;
    PendingFile m_file;
    NotificationService &m_service;
    WallTimer m_timer;
    QMap<quint64, Pending> m_pending;  ///< By serial.
    QHash<QString, quint64> m_serials; ///< Of the pending, by identifier.
    QList<PendingEntry> m_due;         ///< The first is posted next, or just now.
    QList<PendingEntry> m_held;        ///< Due, too, and not tried again before m_retryAt.
    std::optional<Instant> m_retryAt;
    QHash<QString, Collected> m_collected; ///< What has come due lately, by identifier.
    bool m_isDelivering = false;
    bool m_isPosting = false;   ///< The first of those due is on its way.
    bool m_hasAppeared = false; ///< The service has, since it was asked for.
    int m_deaths = 0;           ///< Of services that were to show something, in a row.
    int m_refusals = 0;         ///< In a row.
};

} // namespace tovarin
