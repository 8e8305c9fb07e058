// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/ContentModel.h"

#include "app/LocalizationManager.h"
#include "model/CurrencyRates.h"
#include "model/Format.h"
#include "model/Store.h"
#include "platform/Clock.h"
#include "platform/UserCalendar.h"

#include <algorithm>

namespace tovarin {

namespace {

constexpr int monthsInYear = 12;
constexpr int dueWithinDays = 7;

/// What decides an entry's place; records are large, so they stay where they are meanwhile.
struct Ranked {
    const Subscription *sub;
    double monthlyCNY;
};

bool comesBefore(const Ranked &a, const Ranked &b) {
    if (a.sub->isActive != b.sub->isActive)
        return a.sub->isActive;
    return a.monthlyCNY > b.monthlyCNY;
}

} // namespace

ContentModel::ContentModel(const Store &store, const Clock &clock, const UserCalendar &calendar,
                           const LocalizationManager &loc, const ServiceLogo &logos,
                           QObject *parent)
    : QObject(parent)
    , m_store(store)
    , m_clock(clock)
    , m_subscriptions(calendar, logos)
    , m_upcoming(logos) {
    update();
    connect(&store, &Store::subscriptionsDidChange, this, &ContentModel::update);
    connect(&loc, &LocalizationManager::langDidChange, this, &ContentModel::update);
}

QList<Subscription> ContentModel::sortedSubs() const {
    QList<Ranked> ranked;
    ranked.reserve(m_store.subscriptions().size());
    for (const Subscription &sub : m_store.subscriptions())
        ranked.append({&sub, sub.monthlyAmountInCurrency() * CurrencyRates::rate(sub.currency)});
    std::ranges::stable_sort(ranked, comesBefore);

    QList<Subscription> sorted;
    sorted.reserve(ranked.size());
    for (const Ranked &entry : ranked)
        sorted.append(*entry.sub);
    return sorted;
}

int ContentModel::rowOf(const QString &id) const {
    const QList<Subscription> sorted = sortedSubs();
    const auto found = std::ranges::find(sorted, QUuid(id), &Subscription::id);
    return found == sorted.end() ? -1 : static_cast<int>(found - sorted.begin());
}

void ContentModel::update() {
    const Instant now = m_clock.now();
    const double monthlyCNY = m_store.totalMonthlyCNY();
    m_monthlySpend = Format::base(monthlyCNY);
    m_yearlySpend = Format::base(monthlyCNY * monthsInYear);
    m_activeCount = static_cast<int>(m_store.activeSubscriptions().size());
    m_subscriptions.show(sortedSubs(), now);
    m_upcoming.show(m_store.upcoming(dueWithinDays));
    Q_EMIT changed();
}

} // namespace tovarin
