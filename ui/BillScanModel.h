// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Subscription.h"

#include <QList>
#include <QObject>
#include <QUrl>
#include <QtQml/qqmlregistration.h>

namespace tovarin {

class OpenPanel;
class ScanJob;

/// The scan button of the main window and the files that are dropped on it: has bills read, and
/// tells what was found.
class BillScanModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The program makes the one there is.")
    Q_PROPERTY(bool isScanning READ isScanning NOTIFY changed FINAL)
    Q_PROPERTY(int filesDone READ filesDone NOTIFY changed FINAL)
    Q_PROPERTY(int filesTotal READ filesTotal NOTIFY changed FINAL)
    Q_PROPERTY(bool foundNothing READ foundNothing NOTIFY changed FINAL)

public:
    /// Both must outlive the model.
    BillScanModel(ScanJob &job, OpenPanel &panel, QObject *parent = nullptr);

    bool isScanning() const { return m_isScanning; }

    /// How many files of the running scan are read, and how many there are in all.
    int filesDone() const { return m_filesDone; }
    int filesTotal() const { return m_filesTotal; }

    /// Whether the last scan gave no draft.
    bool foundNothing() const { return m_foundNothing; }

    /// Asks the user for files and has them read, after a scan that began meanwhile. Nothing
    /// happens while the user is asked already or a scan is running, or when the user chooses none.
    void scanReceiptImages();

    /// The same from the event loop. A screen reader that presses the button waits for the end of
    /// the press, which must not be that of the panel.
    Q_INVOKABLE void pressScan();

    /// Whether any of these is a local file.
    Q_INVOKABLE bool canRead(const QList<QUrl> &urls) const;

    /// Has dropped files read; what is not a local file does not count. False when none is left or
    /// a scan is running.
    Q_INVOKABLE bool handleDrop(const QList<QUrl> &urls);

    /// More files than that do not wait for the running scan; they are left out.
    static constexpr qsizetype mostWaiting = 10000;

    /// Has files read that were handed to the program: now, or after the running scan.
    void readFiles(const QList<QUrl> &urls);

Q_SIGNALS:
    void changed();

    /// A scan has ended and gave these drafts, at least one, in the order of their files.
    void draftsFound(const QList<tovarin::Subscription> &drafts);

private:
    bool scan(const QList<QUrl> &urls);
    void noticeProgress(int done, int total);
    void take(const QList<Subscription> &drafts);

    ScanJob &m_job;
    OpenPanel &m_panel;
    QList<QUrl> m_waiting;
    bool m_isAsking = false; ///< The panel is open.
    bool m_isScanning = false;
    int m_filesDone = 0;
    int m_filesTotal = 0;
    bool m_foundNothing = false;
};

} // namespace tovarin
