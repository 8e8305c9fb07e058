// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <array>

namespace tovarin {

/// The two lists of the catalog.
enum class ServiceRegion { china, global };

/// Every value, in the order in which a switch offers them.
inline constexpr std::array allServiceRegions = {ServiceRegion::china, ServiceRegion::global};

/// The text that identifies the value: "china", "global".
QString rawValue(ServiceRegion region);

/// The name shown to the user, in the language of this moment.
QString label(ServiceRegion region);

} // namespace tovarin
