// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/notifier/Machine.h"

#include <gtest/gtest.h>

#include <utility>

namespace tovarin {

/// What the tests of the notifier have in common.
class MachineTest : public testing::Test {
protected:
    /// What was posted since the last question.
    QStringList posted() { return std::exchange(m.service.posted, {}); }

    Machine m;
    const QStringList nothing{};
    const QStringList a{QStringLiteral("a")};
};

} // namespace tovarin
