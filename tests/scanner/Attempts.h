// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

namespace tovarin {

/// Something that a process may try.
struct Attempt {
    const char *name;

    /// What comes of it in the sandbox: 0 when it works, else the errno.
    int inside;

    /// Tries, and gives 0 or the errno. Runs in a folder of its own with a file "file" and an empty
    /// folder "folder"; before the sandbox, descriptor 100 was opened, and the
    /// file to write as standard error.
    int (*make)();
};

const std::vector<Attempt> &attempts();

} // namespace tovarin
