// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/scanner/Attempts.h"

#include "scanner/Sandbox.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <sched.h>
#include <sys/inotify.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/shm.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <thread>
#include <unistd.h>

namespace tovarin {

namespace {

/// The errno of a call that gives −1 when it fails.
int result(long value) {
    return value < 0 ? errno : 0;
}

int opened(int flags, const char *path = "file") {
    return result(open(path, flags, 0600));
}

int socketOf(int family) {
    return result(socket(family, SOCK_STREAM, 0));
}

int forkOnce() {
    const pid_t child = fork();
    if (child == 0)
        _exit(0);
    return result(child);
}

int mapMemory(int protection) {
    void *memory = mmap(nullptr, 4096, protection, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return memory == MAP_FAILED ? errno : 0;
}

int mapSharedMemory() {
    void *memory = mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    return memory == MAP_FAILED ? errno : 0;
}

int growMemory() {
    void *memory = mmap(nullptr, 4096, PROT_READ | PROT_WRITE,
                        MAP_PRIVATE | MAP_ANONYMOUS | MAP_GROWSDOWN, -1, 0);
    return memory == MAP_FAILED ? errno : 0;
}

int makeMemoryRun() {
    void *memory = mmap(nullptr, 4096, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    return memory == MAP_FAILED ? errno : result(mprotect(memory, 4096, PROT_READ | PROT_EXEC));
}

int setLimit(int limit) {
    rlimit now{};
    const auto which = static_cast<__rlimit_resource>(limit);
    return result(getrlimit(which, &now)) != 0 ? errno : result(setrlimit(which, &now));
}

int readOwnMemory() {
    char from = 1;
    char to = 0;
    const iovec source{&from, 1};
    const iovec target{&to, 1};
    return result(process_vm_readv(getpid(), &target, 1, &source, 1, 0));
}

int socketPair() {
    int ends[2];
    return result(socketpair(AF_UNIX, SOCK_STREAM, 0, ends));
}

int sendSignalsToParent() {
    return result(fcntl(STDOUT_FILENO, F_SETOWN, getppid()));
}

int readFile() {
    const int file = open("file", O_RDONLY | O_CLOEXEC);
    char c = 0;
    const bool isRead = file >= 0 && read(file, &c, 1) == 1 && c == 'x';
    void *mapped = mmap(nullptr, 1, PROT_READ, MAP_PRIVATE, file, 0);
    if (!isRead || mapped == MAP_FAILED)
        return errno;
    return result(close(file));
}

int listFolder() {
    DIR *folder = opendir(".");
    return folder ? result(closedir(folder)) : errno;
}

int startThread() {
    bool ran = false;
    std::thread([&ran] { ran = true; }).join();
    return ran ? 0 : ECANCELED;
}

int shareMemory() {
    const int memory = shmget(IPC_PRIVATE, 4096, IPC_CREAT | 0600);
    return memory < 0 ? errno : result(shmctl(memory, IPC_RMID, nullptr));
}

int takeMemory(std::size_t size) {
    void *memory = malloc(size);
    const int failed = memory ? 0 : ENOMEM;
    free(memory);
    return failed;
}

} // namespace

const std::vector<Attempt> &attempts() {
    static const std::vector<Attempt> all = {
        {"read a file", 0, readFile},
        {"list a folder", 0, listFolder},
        {"start a thread", 0, startThread},
        {"take a little memory", 0, [] { return takeMemory(std::size_t{64} << 20); }},
#ifndef TOVARIN_ADDRESS_SANITIZER
        {"take too much memory", ENOMEM, [] { return takeMemory(memoryLimit); }},
#endif
        {"read a stream that was open", EBADF, [] { return result(fcntl(100, F_GETFD)); }},

        {"write to a file that was open", EFBIG,
         [] { return result(write(STDERR_FILENO, "y", 1)); }},

        {"socket inet", EPERM, [] { return socketOf(AF_INET); }},
        {"socket inet6", EPERM, [] { return socketOf(AF_INET6); }},
        {"socket unix", EPERM, [] { return socketOf(AF_UNIX); }},
        {"socket netlink", EPERM, [] { return result(socket(AF_NETLINK, SOCK_RAW, 0)); }},
        {"socketpair", EPERM, socketPair},

        {"open to write", EPERM, [] { return opened(O_WRONLY); }},
        {"open to read and write", EPERM, [] { return opened(O_RDWR); }},
        {"open to append", EPERM, [] { return opened(O_WRONLY | O_APPEND); }},
        {"open to truncate", EPERM, [] { return opened(O_RDONLY | O_TRUNC); }},
        {"open to create", EPERM, [] { return opened(O_RDONLY | O_CREAT, "new"); }},
        {"open a temporary file", EPERM, [] { return opened(O_RDWR | O_TMPFILE, "."); }},
        {"creat", EPERM, [] { return result(creat("new", 0600)); }},
        {"unlink", EPERM, [] { return result(unlink("file")); }},
        {"rmdir", EPERM, [] { return result(rmdir("folder")); }},
        {"rename", EPERM, [] { return result(rename("file", "new")); }},
        {"renameat2", EPERM,
         [] { return result(renameat2(AT_FDCWD, "file", AT_FDCWD, "new", 0)); }},
        {"mkdir", EPERM, [] { return result(mkdir("new", 0700)); }},
        {"link", EPERM, [] { return result(link("file", "new")); }},
        {"symlink", EPERM, [] { return result(symlink("file", "new")); }},
        {"mkfifo", EPERM, [] { return result(mkfifo("new", 0600)); }},
        {"chmod", EPERM, [] { return result(chmod("file", 0600)); }},
        {"chown", EPERM, [] { return result(chown("file", getuid(), getgid())); }},
        {"truncate", EPERM, [] { return result(truncate("file", 0)); }},
        {"utimensat", EPERM, [] { return result(utimensat(AT_FDCWD, "file", nullptr, 0)); }},
        {"chdir", EPERM, [] { return result(chdir("folder")); }},
        {"memfd_create", EPERM, [] { return result(memfd_create("memory", 0)); }},
        {"inotify_init", EPERM, [] { return result(inotify_init1(0)); }},

        {"fork", EPERM, forkOnce},
        {"clone without a thread", EPERM,
         [] {
             const long child = syscall(SYS_clone, SIGCHLD, nullptr, nullptr, nullptr, nullptr);
             if (child == 0)
                 _exit(0);
             return result(child);
         }},
        {"execve", EPERM, [] { return result(execl("/absent", "absent", nullptr)); }},
        {"kill the parent", EPERM, [] { return result(kill(getppid(), 0)); }},
        {"kill everybody", EPERM, [] { return result(kill(-1, 0)); }},
        {"tgkill the parent", EPERM,
         [] { return result(syscall(SYS_tgkill, getppid(), getppid(), 0)); }},
        {"ptrace", EPERM, [] { return result(ptrace(PTRACE_TRACEME, 0, nullptr, nullptr)); }},
        {"pidfd_open", EPERM, [] { return result(syscall(SYS_pidfd_open, getpid(), 0)); }},
        {"process_vm_readv", EPERM, readOwnMemory},
        {"leave the process group", EPERM, [] { return result(setpgid(0, 0)); }},
        {"unshare", EPERM, [] { return result(unshare(CLONE_FS)); }},

        {"map memory to share", EPERM, mapSharedMemory},
        {"map memory that grows", EPERM, growMemory},
        {"map memory to write and run", EPERM,
         [] { return mapMemory(PROT_READ | PROT_WRITE | PROT_EXEC); }},
        {"make memory run", EPERM, makeMemoryRun},
        {"shmget", EPERM, shareMemory},
        {"change a limit", EPERM, [] { return setLimit(RLIMIT_DATA); }},
        {"become dumpable", EPERM, [] { return result(prctl(PR_SET_DUMPABLE, 1)); }},
        {"outlive the parent", EPERM, [] { return result(prctl(PR_SET_PDEATHSIG, 0)); }},
        {"have signals sent to the parent", EPERM, sendSignalsToParent},

        {"clone3", ENOSYS, [] { return result(syscall(SYS_clone3, nullptr, 0)); }},
        {"openat2", ENOSYS,
         [] { return result(syscall(SYS_openat2, AT_FDCWD, "file", nullptr, 0)); }},
        {"io_uring_setup", ENOSYS, [] { return result(syscall(SYS_io_uring_setup, 1, nullptr)); }},
    };
    return all;
}

} // namespace tovarin
