// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Subscription.h"

#include <QList>
#include <QObject>
#include <QUrl>

#include <functional>

namespace tovarin {

class Clock;
class UserCalendar;

/// The user's list of subscriptions, in the order in which they were added, and its file. There is
/// one Store in a process and one process on the file; all of it is for the main thread.
///
/// The file is "subscriptions.json" in the folder "Tovarin" of the application-support folder: the
/// whole list as one JSON array (SubscriptionJson.h).
///
/// Who writes it: save() alone, which every operation but setSubscriptions() calls after its
/// change. Loading never writes.
///
/// In what steps: the list is encoded in memory; a temporary file in the same folder takes the
/// bytes and is synced; it is renamed over the old file; the folder is synced.
///
/// What survives which crash: until the rename, a crash of the program or the machine leaves the
/// old list, and at worst a stray "subscriptions.json.XXXXXX" beside it; from the rename on, the
/// new list. At no moment does the name stand for anything else. When save() has returned, the new
/// list survives a power cut as well.
///
/// What fails quietly: a folder that cannot be made, a file that cannot be read (the list is
/// empty), a file that does not decode (the list is empty, the file stays until the next save
/// replaces it; no copy is kept, which is meant), a list that cannot be encoded or written (the
/// old file stays, the change lives in memory only).
class Store final : public QObject {
    Q_OBJECT

public:
    /// An entry that is due soon.
    struct Upcoming {
        Subscription sub;
        CivilDay date; ///< The day of the charge.
        int days;      ///< From today; 0 is today.

        bool operator==(const Upcoming &) const = default;
    };

    /// Makes the folder and loads the list. `applicationSupport` is the user's application-support
    /// folder; `clock` and `calendar` must outlive the store.
    Store(const QString &applicationSupport, const Clock &clock, const UserCalendar &calendar,
          QObject *parent = nullptr);

    const QList<Subscription> &subscriptions() const { return m_subscriptions; }

    /// Puts another list in the place of the old one. It does not save: call save() afterwards.
    void setSubscriptions(const QList<Subscription> &subscriptions);

    /// Appends, and saves.
    void add(const Subscription &sub);

    /// Appends all in their order, and saves once.
    void addAll(const QList<Subscription> &subs);

    /// Puts `sub` in the place of the first entry with its id, and saves; nothing without one.
    void update(const Subscription &sub);

    /// Turns `isActive` of the first entry with this id around, whatever the passed copy's flag
    /// says, and saves; nothing without one.
    void toggleActive(const Subscription &sub);

    /// Removes every entry with this id, and saves.
    void deleteSubscription(const Subscription &sub);

    /// Writes the file.
    void save() const;

    /// The entries that are active and recurring, in list order.
    QList<Subscription> activeSubscriptions() const;

    /// The cost per month of all entries together, in CNY, added in list order.
    double totalMonthlyCNY() const;

    /// The active entries, one-time ones included, that are charged today or within so many days,
    /// soonest first; those of one day in list order.
    QList<Upcoming> upcoming(int withinDays) const;

    using ListObserver = std::function<void(const QList<Subscription> &)>;

    /// Calls the observer with the list of now, and after every change with the new one, as long as
    /// `context` lives.
    QMetaObject::Connection observe(const QObject *context, ListObserver observer) const;

Q_SIGNALS:
    /// The list is about to change; it still is the old one. Its observers do not change it.
    void subscriptionsWillChange();

    /// The list has changed, and is saved if the operation saves.
    void subscriptionsDidChange();

private:
    QList<Subscription> load() const;

    /// One change from the first announcement to the last.
    void change(const std::function<void()> &mutate);

    qsizetype indexOf(const QUuid &id) const;

    const Clock &m_clock;
    const UserCalendar &m_calendar;
    QUrl m_fileURL;
    QList<Subscription> m_subscriptions;
};

} // namespace tovarin
