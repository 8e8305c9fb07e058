// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Clock.h"
#include "platform/NotificationRequest.h"

#include <QList>
#include <QString>

#include <optional>

namespace tovarin {

/// A request that is still to be delivered.
struct PendingEntry {
    quint64 serial = 0; ///< Higher than that of everything added before; never used again.
    NotificationRequest request;
    std::optional<Instant> deadline; ///< When an interval is over; calendar triggers have none.
    bool isDue = false;              ///< Its moment has come; it only has to be posted.

    bool operator==(const PendingEntry &) const = default;
};

/// What the notifier has to remember between its runs. One process at a time uses it.
///
/// The file is "notifications.json" in the folder: an object with "version" 1, "next", the serial
/// that is given next, and "requests", each a request as NotificationRequest::toJson writes it,
/// with its "serial" and, where there is one, its "deadline" in milliseconds since 1970; "due" is
/// true or missing. It is replaced as a whole (DurableFile): a crash leaves the old or the new.
///
/// Beside it, "notifications.posted" has the serials of what was posted since, a line each that a
/// full stop ends: one that a crash cut off names nothing. A line is added, which costs little,
/// just before something is posted, and the file is taken away once its lines are in the other. It
/// is not synced, so it outlives the process but not a power cut, in which the screen loses what
/// stood there, too.
///
/// A file that is damaged, or that a newer version has written, is set aside: it gets the first
/// free name "notifications.json.aside-1", "-2" and so on, and another is begun. If it cannot be
/// renamed it stays, and nothing is written here any more. Nothing of this is reported.
class PendingFile {
public:
    /// Makes the folder if it is missing.
    explicit PendingFile(const QString &folder);

    /// What is there and was not posted. To be called once, before everything else.
    QList<PendingEntry> load();

    /// A serial for another entry.
    quint64 newSerial() { return m_next++; }

    /// Replaces the file. `keepsPosted` leaves the lines of notePosted() as they are, for something
    /// whose posting is still going on. False when the disk has not got it, or when it would be too
    /// long to be loaded again; the old file and the lines stay then.
    bool save(const QList<PendingEntry> &entries, bool keepsPosted);

    /// What has this serial is not loaded again.
    void notePosted(quint64 serial);

private:
    struct Contents {
        quint64 next;
        QList<PendingEntry> entries;
    };

    static std::optional<Contents> decode(const QByteArray &json);
    bool setAside() const;

    const QString m_path;
    const QString m_postedPath;
    quint64 m_next = 1;
    bool m_isLocked = false; ///< A file is there that must not be replaced.
};

} // namespace tovarin
