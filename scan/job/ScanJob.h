// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Subscription.h"

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QTimer>
#include <QUrl>

#include <chrono>
#include <optional>

class QProcess;

namespace tovarin {

/// Reads the files of bills without touching them: tovarin-scanner decodes them, a process of its
/// own that may do little else, started for a scan and ended with it. So a file made to break a
/// decoder breaks that process, and the memory a scan takes is given back.
///
/// The scanner gets one file at a time. A file gives no draft when the scanner says so, ends, takes
/// too long, or answers with anything but one record; after all but the first, a fresh scanner
/// takes the files that are left. An answer tells what stands on a bill; the id of a draft is
/// always new. A scanner that cannot be started leaves every file without a draft. Nobody is told
/// why.
///
/// One scan at a time, for the main thread only; nothing here blocks. The text language of the
/// drafts is the one chosen when the scan starts.
class ScanJob final : public QObject {
    Q_OBJECT

public:
    static constexpr std::chrono::seconds defaultLimit{20};

    /// In bytes. A scanner that holds more after a file, which is not its habit, is replaced: the
    /// next file finds as much room as the first.
    static constexpr qint64 mostMemoryKept = 256 << 20;

    /// `scanner` is the path of the program; `limit` is the time one file may take, the start of a
    /// scanner included.
    explicit ScanJob(QString scanner, std::chrono::milliseconds limit = defaultLimit,
                     QObject *parent = nullptr);
    ~ScanJob() override;

    /// Begins with these files; all signals come later, from the event loop. Only files of this
    /// machine (`file:` addresses) are read. False, and nothing else, while a scan runs.
    bool start(const QList<QUrl> &files);

    bool isRunning() const { return m_running; }

    /// Ends the scan at once, without a signal.
    void cancel();

Q_SIGNALS:
    /// So many files are through, with a draft or without.
    void progress(int done, int total);

    /// The drafts in the order of the files. The scan no longer runs when this is told.
    void finished(const QList<tovarin::Subscription> &drafts);

private:
    void takeNextFile();
    void settleFile(const std::optional<Subscription> &draft);
    void readAnswer();
    void giveUpScanner();
    void startScanner();
    void retireScanner();

    const QString m_scanner;
    QTimer m_next; ///< Brings the next file, or the end, from the event loop.
    QTimer m_limit;
    QProcess *m_process = nullptr;
    QByteArray m_answer; ///< What has come of it so far.
    QString m_language;  ///< As the scanner's argument.
    QList<QUrl> m_files;
    QList<Subscription> m_drafts;
    qsizetype m_done = 0;
    bool m_running = false;
    bool m_cannotStart = false;
    bool m_isAsked = false; ///< Whether the scanner owes an answer.
};

} // namespace tovarin
