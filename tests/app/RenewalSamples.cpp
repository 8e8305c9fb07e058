// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/app/RenewalSamples.h"

#include "tests/support/Samples.h"

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

const QString musicPlusReminder = u"renew-0FCAFE12-AB34-4CD5-8E6F-0123456789AB"_s;

Subscription musicPlus() {
    Subscription sub = sampleSubscription();
    sub.id = QUuid::fromString(u"0fcafe12-ab34-4cd5-8e6f-0123456789ab"_s);
    sub.startDate = instant("2025-03-12T17:45:00Z");
    return sub;
}

} // namespace tovarin
