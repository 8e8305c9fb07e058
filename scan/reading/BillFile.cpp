// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/reading/BillFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tovarin {

BillFile::BillFile(const QString &path) {
    // Without O_NONBLOCK, opening a pipe would wait for its writer.
    const int descriptor =
        open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    struct stat status = {};
    if (fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_size > largestSize ||
        !m_file.open(descriptor, QFile::ReadOnly, QFile::AutoCloseHandle)) {
        close(descriptor);
        return;
    }
    const uchar *const start = m_file.map(0, status.st_size, QFile::MapPrivateOption);
    if (start)
        m_bytes = QByteArray::fromRawData(reinterpret_cast<const char *>(start), status.st_size);
}

} // namespace tovarin
