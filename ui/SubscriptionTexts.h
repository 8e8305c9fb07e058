// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Store.h"
#include "model/Subscription.h"

#include <QString>

namespace tovarin {

class UserCalendar;

/// What the row of one subscription says, in the language of the moment it was made.
struct SubscriptionTexts {
    QString name;        ///< Never empty: an entry without a name is "Untitled".
    QString tag;         ///< "Paused", else "One-time", else empty.
    QString subtitle;    ///< Category, cycle and next charge, as far as the entry has them.
    QString amountText;  ///< In the entry's own currency, as an expense: "-$9.99".
    QString monthlyText; ///< "≈$9.99/mo"; empty unless the entry is active and recurring.
    bool isActive = true;

    bool operator==(const SubscriptionTexts &) const = default;
};

/// The texts as they read at the instant `now`.
SubscriptionTexts subscriptionTexts(const Subscription &sub, Instant now,
                                    const UserCalendar &calendar);

/// What the row of a charge that is due soon says.
struct UpcomingTexts {
    QString name;       ///< Never empty.
    QString amountText; ///< In the entry's own currency: "$9.99".
    QString dueText;    ///< "Charged today", "in 3 days".
    bool isToday = false;

    bool operator==(const UpcomingTexts &) const = default;
};

UpcomingTexts upcomingTexts(const Store::Upcoming &upcoming);

} // namespace tovarin
