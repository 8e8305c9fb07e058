// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/NotificationRequest.h"

#include <ostream>

namespace tovarin {

/// How GoogleTest writes a request of a failed comparison.
inline void PrintTo(const NotificationRequest &request, std::ostream *out) {
    *out << request.toJson().toStdString();
}

} // namespace tovarin
