// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>

// GCC says by a macro that it builds with the address sanitizer, Clang by a feature.
#ifdef __SANITIZE_ADDRESS__
#define TOVARIN_ADDRESS_SANITIZER
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TOVARIN_ADDRESS_SANITIZER
#endif
#endif

namespace tovarin {

/// The memory that the process may fill, mapped files and programs not counted.
inline constexpr std::size_t memoryLimit = std::size_t{1} << 30;

/// Takes from this process, for good, what the decoding of files does not need. To be called before
/// the first file is touched.
///
/// What is left: reading files, memory up to `memoryLimit`, threads, and writing to what is open
/// already. No network, no new processes or programs, no signals to others, no change of any file
/// or folder, no memory that is written and then run, no core dump. The process dies with its
/// parent, and what it inherited beyond the three standard streams is closed.
///
/// The kernel refuses by a list of what is allowed. A list of what is forbidden would have to know
/// every call that a later kernel adds; here those fail like the rest, with EPERM, and the few that
/// have an older way of doing the same with ENOSYS, so that the C library takes that way. Nothing
/// is killed for asking: libraries probe for much that they can do without.
///
/// Built with the address sanitizer there is no limit on memory, since its shadow alone is beyond
/// any, and no search for leaks, which needs a process that may trace this one.
///
/// False when the kernel would not do all of it. No untrusted file may be touched then.
[[nodiscard]] bool enterSandbox();

} // namespace tovarin
