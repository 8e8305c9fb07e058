// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/DurableFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <fcntl.h>
#include <unistd.h>

namespace tovarin::DurableFile {

namespace {

/// QSaveFile syncs the file and not the folder, where the new name stands.
void syncFolder(const QString &folder) {
    const int descriptor =
        open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    close(descriptor);
}

} // namespace

std::optional<QByteArray> read(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    return bytes;
}

bool replace(const QString &path, const QByteArray &bytes) {
    QSaveFile file(path);
    // Without the flush a full disk would go unnoticed: commit() renames even a file whose buffered
    // bytes it failed to write.
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush() ||
        !file.commit())
        return false;
    // The link's target, where QSaveFile has put the file, not the link.
    syncFolder(QFileInfo(QFileInfo(path).canonicalFilePath()).path());
    return true;
}

} // namespace tovarin::DurableFile
