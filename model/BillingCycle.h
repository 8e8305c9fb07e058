// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/UserCalendar.h"

#include <QString>

#include <array>
#include <optional>

namespace tovarin {

/// How often a recurring entry is charged.
enum class BillingCycle { weekly, monthly, quarterly, yearly };

/// Every value, in the order in which pickers offer them.
inline constexpr std::array allBillingCycles = {BillingCycle::weekly, BillingCycle::monthly,
                                                BillingCycle::quarterly, BillingCycle::yearly};

/// The text that stands for the value in the file: "weekly", "monthly", "quarterly", "yearly".
QString rawValue(BillingCycle cycle);

/// The value that a text stands for; no value for an unknown text. Letter case counts.
std::optional<BillingCycle> billingCycleOf(QStringView rawValue);

/// The name shown to the user, in the language of this moment.
QString label(BillingCycle cycle);

/// How many of these periods a month holds: 52/12 for weekly, 1, 1/3, 1/12. Costs are multiplied by
/// this double, never divided by its inverse, so that sums are the same to the last bit everywhere.
constexpr double monthlyFactor(BillingCycle cycle) {
    switch (cycle) {
    case BillingCycle::weekly:
        return 52.0 / 12.0;
    case BillingCycle::monthly:
        return 1.0;
    case BillingCycle::quarterly:
        return 1.0 / 3.0;
    case BillingCycle::yearly:
        return 1.0 / 12.0;
    }
    return 0.0;
}

/// The way from one charge to the next: 7 days, 1 month, 3 months, 1 year.
constexpr CalendarStep stepOf(BillingCycle cycle) {
    switch (cycle) {
    case BillingCycle::weekly:
        return {7, CalendarStep::Unit::Day};
    case BillingCycle::monthly:
        return {1, CalendarStep::Unit::Month};
    case BillingCycle::quarterly:
        return {3, CalendarStep::Unit::Month};
    case BillingCycle::yearly:
        break;
    }
    return {1, CalendarStep::Unit::Year};
}

} // namespace tovarin
