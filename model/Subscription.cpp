// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "model/Subscription.h"

namespace tovarin {

namespace {

constexpr int maximumSteps = 10'000;

} // namespace

double Subscription::monthlyAmountInCurrency() const {
    if (!isActive || billingType == BillingType::oneTime)
        return 0;
    return amount * monthlyFactor(cycle);
}

std::optional<CivilDay> Subscription::nextChargeDate(Instant reference,
                                                     const UserCalendar &calendar) const {
    const CivilDay today = calendar.day(reference);
    const CivilDay start = calendar.day(startDate);
    if (start >= today)
        return start;
    if (billingType == BillingType::oneTime || !isActive)
        return std::nullopt;
    return calendar.steppingUntil(today, start, stepOf(cycle), maximumSteps);
}

std::optional<int> Subscription::daysUntilNextCharge(Instant reference,
                                                     const UserCalendar &calendar) const {
    const std::optional<CivilDay> next = nextChargeDate(reference, calendar);
    if (!next)
        return std::nullopt;
    return static_cast<int>((*next - calendar.day(reference)).count());
}

size_t qHash(const Subscription &subscription, size_t seed) noexcept {
    const Subscription &s = subscription;
    return qHashMulti(seed, s.id, s.name, s.amount, s.currency, int(s.billingType), int(s.cycle),
                      s.startDate.time_since_epoch().count(), s.category, s.notes, s.isActive,
                      s.serviceID.has_value(), s.serviceID.value_or(QString()));
}

} // namespace tovarin
