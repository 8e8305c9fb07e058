// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/BillingCycle.h"
#include "model/BillingType.h"
#include "platform/Clock.h"

#include <QString>
#include <QUuid>

#include <optional>

namespace tovarin {

/// One thing the user pays for: a plain value, found by its id. Two records are equal only if all
/// eleven fields are. It has no defaults; whoever makes a record supplies every field.
struct Subscription {
    QUuid id;          ///< Given once, at random, and never changed.
    QString name;      ///< May be empty.
    double amount = 0; ///< Per billing period, or the one-time price; in `currency`, whole units.
    QString currency;  ///< A code such as "CNY"; see CurrencyRates.
    BillingType billingType = BillingType::recurring;
    BillingCycle cycle = BillingCycle::monthly; ///< Kept, without effect, for one-time entries.
    Instant startDate; ///< First charge or payment; the rules look at its day in the user's zone.
    QString category;  ///< A key such as "AI/工具"; Format::categoryDisplay gives its name.
    QString notes;     ///< Empty when there are none.
    bool isActive = true;             ///< False while the user has paused the entry.
    std::optional<QString> serviceID; ///< The catalog entry it was made from, if any.

    bool operator==(const Subscription &) const = default;

    /// The cost per month in the entry's own currency: amount × monthlyFactor(cycle), 0 for paused
    /// and one-time entries.
    double monthlyAmountInCurrency() const;

    /// The day of the next charge, counted from the day of `reference`; no value when there is
    /// none.
    ///
    /// A one-time or paused entry has one only while its start day is not past. Otherwise each step
    /// is added to the day before it, not to the start: what began on the 31st is charged on the
    /// 28th for good once it has met a February. After 10,000 steps the last day is given even if
    /// it is past. Both are meant so.
    std::optional<CivilDay> nextChargeDate(Instant reference, const UserCalendar &calendar) const;

    /// Whole days from the day of `reference` to the next charge: 0 for today. No value when there
    /// is no next charge.
    std::optional<int> daysUntilNextCharge(Instant reference, const UserCalendar &calendar) const;
};

size_t qHash(const Subscription &subscription, size_t seed = 0) noexcept;

} // namespace tovarin

Q_DECLARE_TYPEINFO(tovarin::Subscription, Q_RELOCATABLE_TYPE);
