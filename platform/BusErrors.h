// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDBusError>

namespace tovarin {

/// Whether nobody has answered, which a program that hangs does as well as one that is slow.
inline bool isSilence(const QDBusError &error) {
    switch (error.type()) {
    case QDBusError::NoReply:
    case QDBusError::Timeout:
    case QDBusError::TimedOut:
        return true;
    default:
        return false;
    }
}

} // namespace tovarin
