// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QMetaType>
#include <QString>

#include <array>
#include <optional>

namespace tovarin {

/// Whether an entry is paid again and again or was paid once.
enum class BillingType { recurring, oneTime };

/// Every value, in the order in which pickers offer them.
inline constexpr std::array allBillingTypes = {BillingType::recurring, BillingType::oneTime};

/// The text that stands for the value in the file: "recurring", "oneTime".
QString rawValue(BillingType type);

/// The value that a text stands for; no value for an unknown text. Letter case counts.
std::optional<BillingType> billingTypeOf(QStringView rawValue);

/// The name shown to the user, in the language of this moment.
QString label(BillingType type);

} // namespace tovarin
