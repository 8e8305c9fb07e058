// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "model/Store.h"

#include "model/CurrencyRates.h"
#include "model/SubscriptionJson.h"
#include "platform/Clock.h"
#include "platform/DurableFile.h"
#include "platform/UserCalendar.h"

#include <QDir>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

Store::Store(const QString &applicationSupport, const Clock &clock, const UserCalendar &calendar,
             QObject *parent)
    : QObject(parent), m_clock(clock), m_calendar(calendar) {
    const QString folder = applicationSupport + u"/Tovarin"_s;
    QDir().mkpath(folder);
    m_fileURL = QUrl::fromLocalFile(folder + u"/subscriptions.json"_s);
    m_subscriptions = load();
}

QList<Subscription> Store::load() const {
    const std::optional<QByteArray> bytes = DurableFile::read(m_fileURL.toLocalFile());
    if (!bytes)
        return {};
    auto decoded = decodeSubscriptions(*bytes);
    auto *const list = std::get_if<QList<Subscription>>(&decoded);
    return list ? std::move(*list) : QList<Subscription>();
}

void Store::save() const {
    if (const std::optional<QByteArray> bytes = encodeSubscriptions(m_subscriptions))
        DurableFile::replace(m_fileURL.toLocalFile(), *bytes);
}

void Store::change(const std::function<void()> &mutate) {
    Q_EMIT subscriptionsWillChange();
    mutate();
    Q_EMIT subscriptionsDidChange();
}

void Store::setSubscriptions(const QList<Subscription> &subscriptions) {
    change([&] { m_subscriptions = subscriptions; });
}

void Store::add(const Subscription &sub) {
    addAll({sub});
}

void Store::addAll(const QList<Subscription> &subs) {
    change([&] {
        m_subscriptions.append(subs);
        save();
    });
}

void Store::update(const Subscription &sub) {
    const qsizetype index = indexOf(sub.id);
    if (index < 0)
        return;
    change([&] {
        m_subscriptions[index] = sub;
        save();
    });
}

void Store::toggleActive(const Subscription &sub) {
    const qsizetype index = indexOf(sub.id);
    if (index < 0)
        return;
    change([&] {
        bool &isActive = m_subscriptions[index].isActive;
        isActive = !isActive;
        save();
    });
}

void Store::deleteSubscription(const Subscription &sub) {
    change([&, id = sub.id] {
        m_subscriptions.removeIf([&](const Subscription &other) { return other.id == id; });
        save();
    });
}

QList<Subscription> Store::activeSubscriptions() const {
    QList<Subscription> active;
    std::ranges::copy_if(m_subscriptions, std::back_inserter(active), [](const Subscription &sub) {
        return sub.isActive && sub.billingType == BillingType::recurring;
    });
    return active;
}

double Store::totalMonthlyCNY() const {
    double total = 0;
    for (const Subscription &sub : m_subscriptions)
        total += sub.monthlyAmountInCurrency() * CurrencyRates::rate(sub.currency);
    return total;
}

QList<Store::Upcoming> Store::upcoming(int withinDays) const {
    QList<Upcoming> due;
    for (const Subscription &sub : m_subscriptions) {
        if (!sub.isActive)
            continue;
        const Instant now = m_clock.now();
        const std::optional<CivilDay> next = sub.nextChargeDate(now, m_calendar);
        if (!next)
            continue;
        const auto days = static_cast<int>((*next - m_calendar.day(now)).count());
        if (days >= 0 && days <= withinDays)
            due.append({sub, *next, days});
    }
    std::ranges::stable_sort(due, {}, &Upcoming::days);
    return due;
}

QMetaObject::Connection Store::observe(const QObject *context, ListObserver observer) const {
    observer(m_subscriptions);
    return connect(this, &Store::subscriptionsDidChange, context,
                   [this, observer = std::move(observer)] { observer(m_subscriptions); });
}

qsizetype Store::indexOf(const QUuid &id) const {
    const auto found = std::ranges::find(m_subscriptions, id, &Subscription::id);
    return found == m_subscriptions.end() ? -1 : std::distance(m_subscriptions.begin(), found);
}

} // namespace tovarin
