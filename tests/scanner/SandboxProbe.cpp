// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// sandbox_probe MODE [NUMBER]
//
// "inside", "earlier" and "outside" make attempt NUMBER and print what came of it: in the sandbox,
// there in a thread that is older than it, or without it. "abort" calls abort() in the sandbox.
// "orphan" leaves a child in the sandbox, which prints "ready" and would wait for ever.

#include "scanner/Sandbox.h"
#include "tests/scanner/Attempts.h"

#include <cstdlib>
#include <fcntl.h>
#include <future>
#include <iostream>
#include <poll.h>
#include <string_view>
#include <unistd.h>

using namespace tovarin;

namespace {

int attemptOfEarlierThread(const Attempt &attempt) {
    std::promise<void> entered;
    const std::future<void> isEntered = entered.get_future();
    std::future<int> made = std::async(std::launch::async, [&] {
        isEntered.wait();
        return attempt.make();
    });
    if (!enterSandbox())
        std::_Exit(EXIT_FAILURE);
    entered.set_value();
    return made.get();
}

int leaveOrphan() {
    int ready[2];
    if (pipe(ready) != 0)
        return EXIT_FAILURE;
    if (fork() == 0) {
        // The standard streams are all that the sandbox leaves open.
        dup2(ready[1], STDERR_FILENO);
        if (!enterSandbox())
            std::_Exit(EXIT_FAILURE);
        std::cout << "ready" << std::endl;
        std::cerr << '!';
        for (;;)
            poll(nullptr, 0, -1);
    }
    char c = 0;
    return read(ready[0], &c, 1) == 1 ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int argc, char **argv) {
    const std::string_view mode = argc > 1 ? argv[1] : "";
    dup2(STDOUT_FILENO, 100);
    dup2(open("file", O_WRONLY | O_CLOEXEC), STDERR_FILENO);
    if (mode == "orphan")
        return leaveOrphan();
    const Attempt *attempt = argc > 2 ? &attempts().at(std::stoul(argv[2])) : nullptr;
    if (mode == "earlier" && attempt) {
        std::cout << attemptOfEarlierThread(*attempt) << std::flush;
        return EXIT_SUCCESS;
    }
    if (mode != "outside" && !enterSandbox())
        return EXIT_FAILURE;
    if (mode == "abort")
        std::abort();
    if (!attempt)
        return EXIT_FAILURE;
    std::cout << attempt->make() << std::flush;
    return EXIT_SUCCESS;
}
