// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/FileLock.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace tovarin {

FileLock::FileLock(QString path) : m_path(std::move(path)) {}

FileLock::~FileLock() {
    release();
}

FileLock::Result FileLock::take() {
    if (m_descriptor >= 0)
        return Result::taken;
    // Open for writing, since network file systems give an exclusive lock to nothing less.
    const int descriptor =
        open(QFile::encodeName(m_path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (descriptor < 0)
        return Result::impossible;
    if (flock(descriptor, LOCK_EX | LOCK_NB) == 0) {
        m_descriptor = descriptor;
        return Result::taken;
    }
    const bool isHeld = errno == EWOULDBLOCK;
    close(descriptor);
    return isHeld ? Result::heldElsewhere : Result::impossible;
}

void FileLock::release() {
    if (m_descriptor < 0)
        return;
    close(m_descriptor);
    m_descriptor = -1;
}

} // namespace tovarin
