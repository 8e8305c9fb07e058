// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>

namespace tovarin {

/// A point in time, UTC, to the millisecond.
using Instant = std::chrono::sys_time<std::chrono::milliseconds>;

/// A day on the wall calendar, apart from any time zone: whole days since 1 January 1970.
/// Two of them subtract to a number of days, which is why no rule ever divides hours by 24.
using CivilDay = std::chrono::local_days;

/// Where the program gets the time from. Nothing else asks the system for it, so that a test can
/// put any moment here.
class Clock {
public:
    virtual ~Clock() = default;

    virtual Instant now() const = 0;

protected:
    Clock() = default;
    Clock(const Clock &) = default;
    Clock &operator=(const Clock &) = default;
};

class SystemClock final : public Clock {
public:
    Instant now() const override;
};

} // namespace tovarin
