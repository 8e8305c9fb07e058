// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Subscription.h"
#include "platform/NotificationRequest.h"

namespace tovarin {

constexpr PresentationOptions everything{PresentationOption::banner | PresentationOption::list |
                                         PresentationOption::sound};

/// An entry that is charged on the 12th, at any time of day.
Subscription musicPlus();

/// What its reminder is identified by.
extern const QString musicPlusReminder;

} // namespace tovarin
