// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "fuzz/Require.h"
#include "notifier/PendingFile.h"
#include "platform/DurableFile.h"

#include <QFile>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdint>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

/// The folder of a notifier, in memory, where syncing costs nothing.
class Disk {
public:
    Disk() : m_folder(u"/dev/shm/tovarin-fuzz-XXXXXX"_s) { require(m_folder.isValid()); }

    QString folder() const { return m_folder.path(); }

    std::optional<QByteArray> file() const { return DurableFile::read(path(fileName)); }
    std::optional<QByteArray> notes() const { return DurableFile::read(path(notesName)); }
    std::optional<QByteArray> aside() const { return DurableFile::read(path(asideName)); }

    void setFile(const QByteArray &bytes) const { put(fileName, bytes); }
    void setNotes(const QByteArray &bytes) const { put(notesName, bytes); }

    void clear() const {
        for (const QLatin1StringView name : {fileName, notesName, asideName})
            QFile::remove(path(name));
    }

private:
    static constexpr auto fileName = "notifications.json"_L1;
    static constexpr auto notesName = "notifications.posted"_L1;
    static constexpr auto asideName = "notifications.json.aside-1"_L1;

    QString path(QLatin1StringView name) const { return folder() + u'/' + name; }

    void put(QLatin1StringView name, const QByteArray &bytes) const {
        QFile file(path(name));
        require(file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size());
    }

    QTemporaryDir m_folder;
};

/// No file may hold a serial beyond this; nobody gives so many.
constexpr quint64 farthestSerial = quint64{1} << 52;

void checkEntries(const QList<PendingEntry> &entries, quint64 next) {
    for (const PendingEntry &entry : entries) {
        require(entry.serial > 0 && entry.serial < next);
        require(std::ranges::count(entries, entry.serial, &PendingEntry::serial) == 1);
        require(entry.request.isValid());
        require(std::holds_alternative<TimeIntervalTrigger>(entry.request.trigger) ==
                entry.deadline.has_value());
    }
}

void checkOriginal(const Disk &disk, const QByteArray &json, const QList<PendingEntry> &entries) {
    if (!disk.aside()) {
        require(disk.file().value_or(QByteArray()) == json);
        return;
    }
    require(disk.aside() == json && !disk.file() && entries.isEmpty());
}

void check(const Disk &disk, const QByteArray &json) {
    PendingFile file(disk.folder());
    const QList<PendingEntry> entries = file.load();
    const quint64 next = file.newSerial();
    checkEntries(entries, next);
    checkOriginal(disk, json, entries);
    const bool isSaved = file.save(entries, false);
    require(isSaved == (next < farthestSerial));
    if (!isSaved)
        return;
    require(!disk.notes());

    PendingFile again(disk.folder());
    require(again.load() == entries);
    require(again.newSerial() == next + 1);
    if (entries.isEmpty())
        return;

    again.notePosted(entries.first().serial);
    PendingFile third(disk.folder());
    require(third.load() == entries.sliced(1));
    require(third.newSerial() == next + 1);
}

} // namespace

} // namespace tovarin

/// The bytes up to the first form feed are the file, what follows are the notes of what was posted.
/// Whatever is taken from them is in order, is saved, and comes back the same; what is not taken is
/// kept aside.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    using namespace tovarin;
    static const Disk disk;
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const qsizetype end = bytes.indexOf('\f');
    const QByteArray json = bytes.first(end < 0 ? bytes.size() : end);
    disk.clear();
    if (!json.isEmpty())
        disk.setFile(json);
    if (end >= 0)
        disk.setNotes(bytes.sliced(end + 1));
    check(disk, json);
    return 0;
}
