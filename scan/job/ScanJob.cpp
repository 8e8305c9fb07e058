// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/job/ScanJob.h"

#include "app/LocalizationManager.h"
#include "scan/job/ScanMessages.h"

#include <QFile>
#include <QFileInfo>
#include <QProcess>

#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

/// What a scanner may say of a bill, with the rest as every new entry has it: a scanner that a file
/// has taken over could name another entry's id.
Subscription asNew(Subscription draft) {
    draft.id = QUuid::createUuid();
    draft.isActive = true;
    draft.serviceID.reset();
    return draft;
}

/// The memory in bytes that a process holds for itself; 0 when it has ended.
qint64 memoryOf(qint64 process) {
    QFile statm(u"/proc/%1/statm"_s.arg(process));
    if (!statm.open(QFile::ReadOnly))
        return 0;
    const QList<QByteArray> pages = statm.readAll().split(' ');
    return pages.size() < 3
               ? 0
               : (pages[1].toLongLong() - pages[2].toLongLong()) * sysconf(_SC_PAGESIZE);
}

} // namespace

ScanJob::ScanJob(QString scanner, std::chrono::milliseconds limit, QObject *parent)
    : QObject(parent), m_scanner(std::move(scanner)) {
    m_next.setSingleShot(true);
    m_limit.setSingleShot(true);
    m_limit.setInterval(limit);
    connect(&m_next, &QTimer::timeout, this, &ScanJob::takeNextFile);
    connect(&m_limit, &QTimer::timeout, this, &ScanJob::giveUpScanner);
}

ScanJob::~ScanJob() {
    // Also those that cancel() or a bad file left dying: they are children of this object.
    for (QProcess *process : findChildren<QProcess *>()) {
        process->disconnect(this);
        process->kill();
        process->waitForFinished();
    }
}

bool ScanJob::start(const QList<QUrl> &files) {
    if (m_running)
        return false;
    m_running = true;
    m_cannotStart = m_scanner.isEmpty();
    m_language = LocalizationManager::shared().isZh() ? u"zh"_s : u"en"_s;
    m_files = files;
    m_drafts.clear();
    m_done = 0;
    m_next.start(0);
    return true;
}

void ScanJob::cancel() {
    m_running = false;
    m_isAsked = false;
    m_next.stop();
    m_limit.stop();
    retireScanner();
}

void ScanJob::takeNextFile() {
    if (m_done == m_files.size()) {
        cancel();
        Q_EMIT finished(m_drafts);
        return;
    }
    const QUrl &file = m_files.at(m_done);
    if (m_cannotStart || !file.isLocalFile()) {
        settleFile(std::nullopt);
        return;
    }
    m_isAsked = true;
    m_limit.start();
    if (!m_process)
        startScanner();
    // It may have failed at once, and the file with it.
    if (m_isAsked)
        m_process->write(
            ScanMessages::encodeRequest(QFileInfo(file.toLocalFile()).absoluteFilePath()));
}

void ScanJob::settleFile(const std::optional<Subscription> &draft) {
    m_isAsked = false;
    m_limit.stop();
    m_answer.clear();
    if (draft)
        m_drafts.append(asNew(*draft));
    if (m_process && memoryOf(m_process->processId()) > mostMemoryKept)
        retireScanner();
    ++m_done;
    m_next.start(0);
    // Last, since the listener may cancel.
    Q_EMIT progress(static_cast<int>(m_done), static_cast<int>(m_files.size()));
}

void ScanJob::readAnswer() {
    m_answer += m_process->readAllStandardOutput();
    const qsizetype end = m_answer.indexOf('\n');
    if (m_isAsked && end < 0 && m_answer.size() <= ScanMessages::longestAnswer)
        return;
    // Nothing may come unasked or follow the answer: it would be taken for the next file's.
    if (!m_isAsked || end != m_answer.size() - 1) {
        giveUpScanner();
        return;
    }
    const auto answer = ScanMessages::decodeAnswer(m_answer.first(end));
    if (const auto *draft = std::get_if<std::optional<Subscription>>(&answer))
        settleFile(*draft);
    else
        giveUpScanner();
}

void ScanJob::giveUpScanner() {
    retireScanner();
    if (m_isAsked)
        settleFile(std::nullopt);
}

void ScanJob::startScanner() {
    m_process = new QProcess(this);
    m_process->setStandardErrorFile(QProcess::nullDevice());
    connect(m_process, &QProcess::readyReadStandardOutput, this, &ScanJob::readAnswer);
    connect(m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            m_cannotStart = true;
            giveUpScanner();
        }
    });
    connect(m_process, &QProcess::finished, this, &ScanJob::giveUpScanner);
    m_process->start(m_scanner, {m_language});
}

void ScanJob::retireScanner() {
    if (!m_process)
        return;
    m_process->disconnect(this);
    // Its death is awaited by the event loop, not here.
    connect(m_process, &QProcess::finished, m_process, &QObject::deleteLater);
    if (m_process->state() == QProcess::NotRunning)
        m_process->deleteLater();
    m_process->kill();
    m_process = nullptr;
    m_answer.clear();
}

} // namespace tovarin
