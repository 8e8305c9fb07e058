// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace tovarin {

/// A lock that one process at a time holds on a file, at the longest until it dies: the kernel
/// frees it then, however the process ended, so that no crash leaves one behind. The programs that
/// the holder starts do not inherit it.
///
/// The file is made when it is missing, stays empty and is never removed: removing it would let two
/// processes hold a lock each, one on the old file and one on the new.
class FileLock {
public:
    enum class Result {
        taken,
        heldElsewhere, ///< Another process, or another FileLock of this one, holds it.
        impossible,    ///< The file cannot be made, or its file system knows no locks.
    };

    /// The folder of the file must exist when the lock is taken.
    explicit FileLock(QString path);
    ~FileLock();
    FileLock(const FileLock &) = delete;
    FileLock &operator=(const FileLock &) = delete;

    /// Tries once and does not wait. Taking what is already taken here changes nothing.
    Result take();

    /// Gives it back; nothing when it is not taken.
    void release();

private:
    const QString m_path;
    int m_descriptor = -1; ///< Open exactly while the lock is taken.
};

} // namespace tovarin
