// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdlib>

namespace tovarin {

/// What does not hold ends the fuzzer, which keeps the input then.
inline void require(bool holds) {
    if (!holds)
        std::abort();
}

} // namespace tovarin
