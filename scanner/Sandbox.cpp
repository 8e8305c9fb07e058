// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scanner/Sandbox.h"

#include "scanner/SystemCalls.h"

#include <csignal>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#ifdef TOVARIN_ADDRESS_SANITIZER
extern "C" int __lsan_is_turned_off() {
    return 1;
}
#endif

namespace tovarin {

namespace {

#ifdef TOVARIN_ADDRESS_SANITIZER
constexpr bool limitsMemory = false;
#else
constexpr bool limitsMemory = true;
#endif

bool set(__rlimit_resource limit, rlim_t value) {
    const rlimit both{value, value};
    return setrlimit(limit, &both) == 0;
}

/// The address space is not limited: what is reserved and never filled harms nobody.
bool limitResources() {
    // A write beyond the limit is to fail, not to end the process.
    return std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR && set(RLIMIT_CORE, 0) &&
           set(RLIMIT_FSIZE, 0) && (!limitsMemory || set(RLIMIT_DATA, memoryLimit));
}

/// Crash reporters that take core dumps through a pipe do not look at RLIMIT_CORE; they do not get
/// one of a process that is not dumpable.
bool standAlone() {
    return close_range(STDERR_FILENO + 1, ~0U, 0) == 0 && prctl(PR_SET_PDEATHSIG, SIGKILL) == 0 &&
           prctl(PR_SET_DUMPABLE, 0) == 0 && prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0;
}

} // namespace

bool enterSandbox() {
    return standAlone() && limitResources() && limitSystemCalls();
}

} // namespace tovarin
