// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

namespace tovarin {

/// The bytes of a file that nobody vouches for, mapped instead of read, so that a large one costs
/// no memory. Only a regular file counts: a pipe, a device or a folder is refused without waiting
/// for it. A file that shrinks while it is read ends the process with SIGBUS.
class BillFile {
public:
    /// Larger ones are refused; no bill is, and what reads them has an end.
    static constexpr qint64 largestSize = 256 << 20;

    explicit BillFile(const QString &path);

    /// Empty when the file is empty or refused. Valid for as long as this object lives.
    QByteArray bytes() const { return m_bytes; }

private:
    QFile m_file;
    QByteArray m_bytes;
};

} // namespace tovarin
