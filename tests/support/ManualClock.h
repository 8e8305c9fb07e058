// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Clock.h"

namespace tovarin {

/// A clock that stands where the test puts it.
class ManualClock final : public Clock {
public:
    explicit ManualClock(Instant now) : m_now(now) {}

    Instant now() const override {
        ++m_readings;
        return m_now;
    }
    void set(Instant now) { m_now = now; }

    /// How often somebody has asked for the time.
    int readings() const { return m_readings; }

private:
    Instant m_now;
    mutable int m_readings = 0;
};

} // namespace tovarin
