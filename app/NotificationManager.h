// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Subscription.h"
#include "platform/NotificationRequest.h"

#include <QList>

namespace tovarin {

class LocalizationManager;
class NotificationCenter;

/// The reminders of a list, in its order: for each active recurring subscription one at 10:00, so
/// many calendar days before its next charge. None where that moment is not later than `now`: a
/// reminder is never late, and the charge after the next one is not looked at. Fewer than no days
/// count as none.
///
/// A value of its arguments alone. See UserZone::instantOf for a 10:00 that the clocks skip or show
/// twice. The English says "in 1 days"; that is meant.
QList<NotificationRequest> renewalReminders(const QList<Subscription> &subscriptions,
                                            int daysBefore, Instant now,
                                            const UserCalendar &calendar, bool isZh);

/// Turns the list into notifications that remind of renewals. It keeps nothing itself: each call
/// plans everything anew. Without a bundle identifier it does nothing at all.
///
/// Its notifications come with banner, list and sound, also while Tovarin is in front: each request
/// says so, since Tovarin may not be there to be asked.
///
/// All that it is made of is the caller's and outlives it. For the main thread.
class NotificationManager final {
public:
    static constexpr PresentationOptions presentation{
        PresentationOption::banner | PresentationOption::list | PresentationOption::sound};

    NotificationManager(NotificationCenter &center, const Clock &clock,
                        const UserCalendar &calendar, const LocalizationManager &loc);

    /// Asks for leave to show notifications with sound and a badge. The answer does not matter:
    /// without it they are planned all the same, and the desktop drops them.
    void requestAuthorization();

    /// Puts the reminders of this list in the place of everything that is pending, a test that has
    /// not come yet included. The texts keep the language of this moment.
    void reschedule(const QList<Subscription> &subscriptions, int daysBefore);

    /// Shows a notification in three seconds, which tells that reminders arrive.
    void sendTest();

private:
    bool isInBundle() const;

    NotificationCenter &m_center;
    const Clock &m_clock;
    const UserCalendar &m_calendar;
    const LocalizationManager &m_loc;
};

} // namespace tovarin
