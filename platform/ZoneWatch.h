// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/Environment.h"

#include <QObject>
#include <QString>

#include <memory>

class QSocketNotifier;

namespace tovarin {

/// Notices when the system gets another time zone: when "localtime", which is a link, or
/// "timezone" is put in place, written or taken away.
///
/// It watches their folder, because a link that is replaced is another file, and a watch for the
/// old one ends with it. So another file that is made in the folder wakes it too, for an instant;
/// in /etc that is rare. QFileSystemWatcher follows links and would look at the zone's data.
///
/// Where TZ names a zone the files do not count, and nothing is watched. Where the folder cannot
/// be watched it is silent.
class ZoneWatch final : public QObject {
    Q_OBJECT

public:
    ZoneWatch(const Environment &environment, const QString &folder, QObject *parent = nullptr);
    ~ZoneWatch() override;

Q_SIGNALS:
    /// Heard from the event loop, maybe more than once for one change, and maybe without any: the
    /// new zone may be the old one.
    void changed();

private:
    void read();

    int m_descriptor = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace tovarin
