// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/BillScanModel.h"

#include "platform/OpenPanel.h"
#include "scan/job/FileURLsFromPanel.h"
#include "scan/job/ScanJob.h"

#include <algorithm>
#include <utility>

namespace tovarin {

namespace {

QList<QUrl> localFiles(const QList<QUrl> &urls) {
    QList<QUrl> files;
    std::ranges::copy_if(urls, std::back_inserter(files), &QUrl::isLocalFile);
    return files;
}

} // namespace

BillScanModel::BillScanModel(ScanJob &job, OpenPanel &panel, QObject *parent)
    : QObject(parent), m_job(job), m_panel(panel) {
    connect(&job, &ScanJob::progress, this, &BillScanModel::noticeProgress);
    connect(&job, &ScanJob::finished, this, &BillScanModel::take);
}

void BillScanModel::scanReceiptImages() {
    if (m_isScanning || m_isAsking)
        return;
    m_isAsking = true;
    const QList<QUrl> urls = ReceiptScanner::fileURLsFromPanel(m_panel, true);
    m_isAsking = false;
    readFiles(urls);
}

void BillScanModel::pressScan() {
    QMetaObject::invokeMethod(this, &BillScanModel::scanReceiptImages, Qt::QueuedConnection);
}

bool BillScanModel::canRead(const QList<QUrl> &urls) const {
    return std::ranges::any_of(urls, &QUrl::isLocalFile);
}

bool BillScanModel::handleDrop(const QList<QUrl> &urls) {
    const QList<QUrl> files = localFiles(urls);
    return !files.isEmpty() && scan(files);
}

void BillScanModel::readFiles(const QList<QUrl> &urls) {
    if (!m_isScanning) {
        handleDrop(urls);
        return;
    }
    const QList<QUrl> files = localFiles(urls);
    m_waiting += files.first(std::min(files.size(), mostWaiting - m_waiting.size()));
}

bool BillScanModel::scan(const QList<QUrl> &urls) {
    // The state is told before the job can finish.
    if (m_isScanning)
        return false;
    m_isScanning = true;
    m_foundNothing = false;
    m_filesDone = 0;
    m_filesTotal = static_cast<int>(urls.size());
    Q_EMIT changed();
    if (m_job.start(urls))
        return true;
    m_isScanning = false;
    Q_EMIT changed();
    return false;
}

void BillScanModel::noticeProgress(int done, int total) {
    m_filesDone = done;
    m_filesTotal = total;
    Q_EMIT changed();
}

void BillScanModel::take(const QList<Subscription> &drafts) {
    m_isScanning = false;
    m_foundNothing = drafts.isEmpty();
    Q_EMIT changed();
    if (!drafts.isEmpty())
        Q_EMIT draftsFound(drafts);
    if (!m_waiting.isEmpty())
        handleDrop(std::exchange(m_waiting, {}));
}

} // namespace tovarin
