// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scanner/SystemCalls.h"

#include <cerrno>
#include <cstdint>
#include <fcntl.h>
#include <initializer_list>
#include <memory>
#include <sched.h>
#include <seccomp.h>
#include <sys/ioctl.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace tovarin {

namespace {

class Filter {
public:
    Filter() : m_context(seccomp_init(SCMP_ACT_ERRNO(EPERM))) {}

    void allow(std::initializer_list<int> calls) {
        for (const int call : calls)
            add(SCMP_ACT_ALLOW, call, {});
    }

    void allow(int call, std::initializer_list<scmp_arg_cmp> conditions) {
        add(SCMP_ACT_ALLOW, call, conditions);
    }

    /// As if the kernel were too old for them.
    void deny(std::initializer_list<int> calls) {
        for (const int call : calls)
            add(SCMP_ACT_ERRNO(ENOSYS), call, {});
    }

    bool load() {
        return m_complete && seccomp_attr_set(m_context.get(), SCMP_FLTATR_CTL_TSYNC, 1) == 0 &&
               seccomp_attr_set(m_context.get(), SCMP_FLTATR_CTL_OPTIMIZE, 2) == 0 &&
               seccomp_load(m_context.get()) == 0;
    }

private:
    void add(std::uint32_t action, int call, std::initializer_list<scmp_arg_cmp> conditions) {
        m_complete = m_complete && m_context &&
                     seccomp_rule_add_array(m_context.get(), action, call,
                                            static_cast<unsigned>(conditions.size()),
                                            conditions.begin()) == 0;
    }

    struct Release {
        void operator()(void *context) const { seccomp_release(context); }
    };
    std::unique_ptr<void, Release> m_context;
    bool m_complete = true;
};

/// Of the bits in `mask`, exactly those in `bits` are set in an argument.
scmp_arg_cmp hasBits(unsigned argument, int mask, int bits) {
    return {argument, SCMP_CMP_MASKED_EQ, static_cast<unsigned>(mask), static_cast<unsigned>(bits)};
}

/// Arguments of type int come in 64 bits, of which the upper half may hold anything.
scmp_arg_cmp isInt(unsigned argument, int value) {
    return {argument, SCMP_CMP_MASKED_EQ, 0xffffffffU, static_cast<unsigned>(value)};
}

scmp_arg_cmp isNull(unsigned argument) {
    return {argument, SCMP_CMP_EQ, 0, 0};
}

void allowMemory(Filter &filter) {
    filter.allow({SCMP_SYS(brk), SCMP_SYS(munmap), SCMP_SYS(mremap), SCMP_SYS(madvise)});
    // What may be written never becomes what may be run: code comes from files only. What is
    // written is private and does not grow by itself, so that the limit counts it.
    constexpr int growsOrIsNoFile = MAP_GROWSDOWN | MAP_ANONYMOUS;
    filter.allow(SCMP_SYS(mmap),
                 {hasBits(2, PROT_EXEC, 0), hasBits(3, MAP_TYPE | MAP_GROWSDOWN, MAP_PRIVATE)});
    filter.allow(SCMP_SYS(mmap),
                 {hasBits(2, PROT_WRITE | PROT_EXEC, 0), hasBits(3, growsOrIsNoFile, 0)});
    filter.allow(SCMP_SYS(mmap),
                 {hasBits(2, PROT_WRITE | PROT_EXEC, PROT_EXEC), hasBits(3, growsOrIsNoFile, 0)});
    filter.allow(SCMP_SYS(mprotect), {hasBits(2, PROT_EXEC, 0)});
}

void allowReading(Filter &filter) {
    constexpr int writing = O_ACCMODE | O_CREAT | O_TRUNC | O_TMPFILE;
    filter.allow(SCMP_SYS(open), {hasBits(1, writing & ~O_DIRECTORY, O_RDONLY)});
    filter.allow(SCMP_SYS(openat), {hasBits(2, writing & ~O_DIRECTORY, O_RDONLY)});
    filter.allow({SCMP_SYS(read),     SCMP_SYS(readv),      SCMP_SYS(pread64),
                  SCMP_SYS(lseek),    SCMP_SYS(close),      SCMP_SYS(stat),
                  SCMP_SYS(lstat),    SCMP_SYS(fstat),      SCMP_SYS(newfstatat),
                  SCMP_SYS(statx),    SCMP_SYS(statfs),     SCMP_SYS(fstatfs),
                  SCMP_SYS(access),   SCMP_SYS(faccessat),  SCMP_SYS(faccessat2),
                  SCMP_SYS(readlink), SCMP_SYS(readlinkat), SCMP_SYS(getdents64),
                  SCMP_SYS(getcwd),   SCMP_SYS(fadvise64),  SCMP_SYS(dup)});
    for (const int command : {F_GETFD, F_SETFD, F_GETFL, F_DUPFD_CLOEXEC})
        filter.allow(SCMP_SYS(fcntl), {isInt(1, command)});
    // Whether a stream is a terminal, and how much waits in it.
    for (const int request : {TCGETS, FIONREAD})
        filter.allow(SCMP_SYS(ioctl), {isInt(1, request)});
}

void allowThreads(Filter &filter) {
    constexpr int ofThreads = CLONE_THREAD | CLONE_VM | CLONE_SIGHAND;
    constexpr int namespaces = CLONE_NEWCGROUP | CLONE_NEWIPC | CLONE_NEWNET | CLONE_NEWNS |
                               CLONE_NEWPID | CLONE_NEWUSER | CLONE_NEWUTS;
    filter.allow(SCMP_SYS(clone), {hasBits(0, ofThreads | namespaces, ofThreads)});
    filter.allow({SCMP_SYS(set_robust_list), SCMP_SYS(rseq), SCMP_SYS(futex), SCMP_SYS(sched_yield),
                  SCMP_SYS(sched_getaffinity), SCMP_SYS(gettid), SCMP_SYS(exit)});
    filter.allow(SCMP_SYS(prctl), {isInt(0, PR_SET_NAME)});
}

/// What every program asks of the kernel, and signals within this process, for abort().
void allowOrdinaries(Filter &filter) {
    filter.allow({SCMP_SYS(write),          SCMP_SYS(writev),
                  SCMP_SYS(poll),           SCMP_SYS(ppoll),
                  SCMP_SYS(eventfd2),       SCMP_SYS(clock_gettime),
                  SCMP_SYS(clock_getres),   SCMP_SYS(clock_nanosleep),
                  SCMP_SYS(nanosleep),      SCMP_SYS(gettimeofday),
                  SCMP_SYS(time),           SCMP_SYS(times),
                  SCMP_SYS(getrusage),      SCMP_SYS(getrandom),
                  SCMP_SYS(getcpu),         SCMP_SYS(uname),
                  SCMP_SYS(sysinfo),        SCMP_SYS(getpid),
                  SCMP_SYS(getppid),        SCMP_SYS(getuid),
                  SCMP_SYS(geteuid),        SCMP_SYS(getgid),
                  SCMP_SYS(getegid),        SCMP_SYS(rt_sigaction),
                  SCMP_SYS(rt_sigprocmask), SCMP_SYS(rt_sigreturn),
                  SCMP_SYS(sigaltstack),    SCMP_SYS(restart_syscall),
                  SCMP_SYS(exit_group)});
    filter.allow(SCMP_SYS(tgkill), {isInt(0, getpid())});
    // Limits are asked for, not changed.
    filter.allow(SCMP_SYS(prlimit64), {isInt(0, 0), isNull(2)});
    filter.allow({SCMP_SYS(getrlimit)});
}

} // namespace

bool limitSystemCalls() {
    Filter filter;
    allowMemory(filter);
    allowReading(filter);
    allowThreads(filter);
    allowOrdinaries(filter);
    // The filter cannot look at the arguments of these, which lie in memory.
    filter.deny({SCMP_SYS(clone3), SCMP_SYS(openat2), SCMP_SYS(io_uring_setup),
                 SCMP_SYS(io_uring_enter), SCMP_SYS(io_uring_register)});
    return filter.load();
}

} // namespace tovarin
