// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Subscription.h"
#include "ui/SubscriptionListModel.h"
#include "ui/UpcomingListModel.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace tovarin {

class Clock;
class LocalizationManager;
class Store;
class UserCalendar;

/// What the main window shows: the figures of the summary, the charges due within a week and the
/// whole list. It follows the store's list and the language; for another day it has to be told
/// (noticeDay()).
class ContentModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The program makes the one there is.")
    Q_PROPERTY(QString monthlySpend READ monthlySpend NOTIFY changed FINAL)
    Q_PROPERTY(QString yearlySpend READ yearlySpend NOTIFY changed FINAL)
    Q_PROPERTY(int activeCount READ activeCount NOTIFY changed FINAL)
    Q_PROPERTY(int dueCount READ dueCount NOTIFY changed FINAL)
    Q_PROPERTY(int count READ count NOTIFY changed FINAL)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed FINAL)
    Q_PROPERTY(tovarin::SubscriptionListModel *subscriptions READ subscriptions CONSTANT FINAL)
    Q_PROPERTY(tovarin::UpcomingListModel *upcoming READ upcoming CONSTANT FINAL)

public:
    /// All five must outlive the model.
    ContentModel(const Store &store, const Clock &clock, const UserCalendar &calendar,
                 const LocalizationManager &loc, const ServiceLogo &logos,
                 QObject *parent = nullptr);

    /// In the currency of the language.
    QString monthlySpend() const { return m_monthlySpend; }
    QString yearlySpend() const { return m_yearlySpend; }

    /// How many entries are active and recurring.
    int activeCount() const { return m_activeCount; }

    /// How many charges are due today or within seven days.
    int dueCount() const { return m_upcoming.rowCount(); }

    /// How many entries there are at all.
    int count() const { return m_subscriptions.rowCount(); }
    bool isEmpty() const { return count() == 0; }

    /// The rows of sortedSubs().
    SubscriptionListModel *subscriptions() { return &m_subscriptions; }

    /// The rows of the charges due, soonest first.
    UpcomingListModel *upcoming() { return &m_upcoming; }

    /// The store's list, active entries first, then by monthly cost in CNY from the highest down;
    /// equals keep the order of the list.
    QList<Subscription> sortedSubs() const;

    /// The row of the entry with this id; -1 without one.
    Q_INVOKABLE int rowOf(const QString &id) const;

    /// Brings everything up to date: another day has begun, or the calendar is another.
    void noticeDay() { update(); }

Q_SIGNALS:
    void changed();

private:
    void update();

    const Store &m_store;
    const Clock &m_clock;
    QString m_monthlySpend;
    QString m_yearlySpend;
    int m_activeCount = 0;
    SubscriptionListModel m_subscriptions;
    UpcomingListModel m_upcoming;
};

} // namespace tovarin
