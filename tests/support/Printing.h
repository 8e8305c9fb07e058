// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/SubscriptionJson.h"
#include "platform/Clock.h"

#include <QByteArray>
#include <QRect>
#include <QSize>
#include <QString>
#include <QStringList>

#include <ostream>

/// How GoogleTest writes the values of a failed comparison.

void PrintTo(const QString &text, std::ostream *out);
void PrintTo(const QByteArray &bytes, std::ostream *out);
void PrintTo(const QRect &rect, std::ostream *out);
void PrintTo(const QSize &size, std::ostream *out);

namespace std::chrono {
void PrintTo(const tovarin::CivilDay &day, std::ostream *out);
void PrintTo(const tovarin::Instant &instant, std::ostream *out);
} // namespace std::chrono

namespace tovarin {
void PrintTo(const Subscription &subscription, std::ostream *out);
void PrintTo(const DecodingError &error, std::ostream *out);
} // namespace tovarin
