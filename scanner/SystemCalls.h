// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

namespace tovarin {

/// Limits this process and all its threads to the system calls that decoding needs. False when the
/// kernel would not.
[[nodiscard]] bool limitSystemCalls();

} // namespace tovarin
