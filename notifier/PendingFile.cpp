// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "notifier/PendingFile.h"

#include "platform/DurableFile.h"

#include <QByteArrayList>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <fcntl.h>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono;

namespace tovarin {

namespace {

constexpr int version = 1;
constexpr qint64 longestFile = 256 * 1024 * 1024;
constexpr double largestExact = 9007199254740992.0;  // 2^53
constexpr quint64 farthestSerial = quint64{1} << 52; ///< Nobody gives so many.
constexpr char endMark = '.';

bool isDigit(char character) {
    return character >= '0' && character <= '9';
}

std::optional<qint64> wholeNumber(const QJsonValue &value) {
    const double number = value.toDouble(largestExact);
    if (number != std::trunc(number) || std::abs(number) >= largestExact)
        return std::nullopt;
    return static_cast<qint64>(number);
}

std::optional<quint64> serialOf(const QJsonValue &value) {
    const std::optional<qint64> number = wholeNumber(value);
    if (!number || *number <= 0 || static_cast<quint64>(*number) > farthestSerial)
        return std::nullopt;
    return static_cast<quint64>(*number);
}

/// The request's object with members of its own.
QByteArray encode(const PendingEntry &entry) {
    QByteArray json =
        entry.request.toJson().chopped(1) + ",\"serial\":" + QByteArray::number(entry.serial);
    if (entry.deadline) {
        json += ",\"deadline\":" +
                QByteArray::number(qint64(entry.deadline->time_since_epoch().count()));
    }
    if (entry.isDue)
        json += ",\"due\":true";
    return json + '}';
}

std::optional<PendingEntry> entryOf(const QJsonObject &object) {
    const std::optional<quint64> serial = serialOf(object["serial"_L1]);
    const auto request = NotificationRequest::fromJson(object);
    if (!serial || !request)
        return std::nullopt;
    PendingEntry entry{*serial, *request, std::nullopt, object["due"_L1].toBool()};
    if (std::holds_alternative<TimeIntervalTrigger>(request->trigger)) {
        const std::optional<qint64> deadline = wholeNumber(object["deadline"_L1]);
        if (!deadline)
            return std::nullopt;
        entry.deadline = Instant(milliseconds(*deadline));
    }
    return entry;
}

/// Lines that are anything but digits with the mark behind them were cut off by a crash.
QSet<quint64> postedSerials(const QByteArray &lines) {
    QSet<quint64> serials;
    for (const QByteArray &line : lines.split('\n')) {
        if (!line.endsWith(endMark) || !std::all_of(line.begin(), line.end() - 1, isDigit))
            continue;
        bool isNumber = false;
        const quint64 serial = line.chopped(1).toULongLong(&isNumber);
        if (isNumber && serial < farthestSerial)
            serials.insert(serial);
    }
    return serials;
}

} // namespace

PendingFile::PendingFile(const QString &folder)
    : m_path(folder + u"/notifications.json"_s), m_postedPath(folder + u"/notifications.posted"_s) {
    QDir().mkpath(folder);
}

QList<PendingEntry> PendingFile::load() {
    const QFileInfo file(m_path);
    Contents contents{1, {}};
    if (file.exists() || file.isSymLink()) {
        const bool isReadable = file.isFile() && file.size() <= longestFile;
        const auto bytes = isReadable ? DurableFile::read(m_path) : std::nullopt;
        const std::optional<Contents> decoded = bytes ? decode(*bytes) : std::nullopt;
        if (decoded)
            contents = *decoded;
        else
            m_isLocked = !setAside();
    }
    const QSet<quint64> posted =
        postedSerials(DurableFile::read(m_postedPath).value_or(QByteArray()));
    m_next = contents.next;
    for (const quint64 serial : posted)
        m_next = std::max(m_next, serial + 1);
    contents.entries.removeIf(
        [&](const PendingEntry &entry) { return posted.contains(entry.serial); });
    return contents.entries;
}

bool PendingFile::save(const QList<PendingEntry> &entries, bool keepsPosted) {
    QByteArrayList requests;
    for (const PendingEntry &entry : entries)
        requests.append(encode(entry));
    const QByteArray json = "{\"version\":" + QByteArray::number(version) +
                            ",\"next\":" + QByteArray::number(m_next) + ",\"requests\":[" +
                            requests.join(',') + "]}";
    // What load() would not read must not take the place of what it would.
    if (m_isLocked || json.size() > longestFile || m_next > farthestSerial ||
        !DurableFile::replace(m_path, json))
        return false;
    if (!keepsPosted)
        QFile::remove(m_postedPath);
    return true;
}

void PendingFile::notePosted(quint64 serial) {
    QFile file(m_postedPath);
    // The line before may have been cut off.
    if (file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
        file.write('\n' + QByteArray::number(serial) + endMark + '\n');
}

std::optional<PendingFile::Contents> PendingFile::decode(const QByteArray &json) {
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    const std::optional<quint64> next = serialOf(object["next"_L1]);
    if (object["version"_L1] != version || !next || !object["requests"_L1].isArray())
        return std::nullopt;
    Contents contents{*next, {}};
    QSet<quint64> serials;
    for (const QJsonValue value : object["requests"_L1].toArray()) {
        const std::optional<PendingEntry> entry = entryOf(value.toObject());
        if (!entry || entry->serial >= contents.next || serials.contains(entry->serial))
            return std::nullopt;
        serials.insert(entry->serial);
        contents.entries.append(*entry);
    }
    return contents;
}

bool PendingFile::setAside() const {
    const QByteArray from = QFile::encodeName(m_path);
    for (int number = 1;; ++number) {
        const QByteArray to = QFile::encodeName(m_path + u".aside-"_s + QString::number(number));
        if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
            return true;
        if (errno != EEXIST)
            return false;
    }
}

} // namespace tovarin
