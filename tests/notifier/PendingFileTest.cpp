// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "notifier/PendingFile.h"

#include "platform/DurableFile.h"
#include "tests/notifier/Machine.h"
#include "tests/support/NotificationPrinting.h"
#include "tests/support/Printing.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

class PendingFileTest : public testing::Test {
protected:
    QString folder() const { return m_disk.filePath(u"Tovarin"_s); }
    QString path(const QString &name) const { return folder() + u'/' + name; }
    QStringList files() const {
        return QDir(folder()).entryList(QDir::Files | QDir::Dirs | QDir::System |
                                        QDir::NoDotAndDotDot);
    }

    void write(const QString &name, const QByteArray &bytes) const {
        ASSERT_TRUE(QDir().mkpath(folder()));
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    QByteArray read(const QString &name) const {
        return DurableFile::read(path(name)).value_or("no file");
    }

    QList<PendingEntry> load() const {
        PendingFile file(folder());
        return file.load();
    }

    /// Two entries under the serials 1 and 2, saved.
    QList<PendingEntry> saved() const {
        PendingFile file(folder());
        EXPECT_EQ(file.load(), QList<PendingEntry>());
        QList<PendingEntry> entries{
            {file.newSerial(), atTen("2025-06-09", u"a"_s), std::nullopt, false},
            {file.newSerial(), after(3s, u"b"_s), instant("2025-06-01T12:00:03Z"), true}};
        EXPECT_TRUE(file.save(entries, false));
        return entries;
    }

private:
    QTemporaryDir m_disk;
};

} // namespace

TEST_F(PendingFileTest, KeepsItsEntries) {
    const QList<PendingEntry> entries = saved();
    EXPECT_EQ(load(), entries);
    EXPECT_EQ(QJsonDocument::fromJson(read(u"notifications.json"_s)),
              QJsonDocument::fromJson(R"({"version":1,"next":3,"requests":[
        {"identifier":"a","title":"title","body":"a","presentation":["sound","banner"],
         "calendar":{"year":2025,"month":6,"day":9,"hour":10,"minute":0},"serial":1},
        {"identifier":"b","title":"title","body":"b","presentation":["sound","banner"],
         "milliseconds":3000,"deadline":1748779203000,"serial":2,"due":true}]})"));
    EXPECT_EQ(files(), QStringList(u"notifications.json"_s));
}

TEST_F(PendingFileTest, KeepsTheEndOfTheLongestInterval) {
    const Instant end = instant("9999-12-31T23:59:59Z") + NotificationRequest::longestInterval;
    const QList<PendingEntry> entries{
        {1, after(NotificationRequest::longestInterval, u"a"_s), end, false}};
    PendingFile file(folder());
    file.load();
    EXPECT_EQ(file.newSerial(), 1U);
    EXPECT_TRUE(file.save(entries, false));
    EXPECT_EQ(load(), entries);
}

TEST_F(PendingFileTest, BeginsEmpty) {
    EXPECT_EQ(load(), QList<PendingEntry>());
    EXPECT_EQ(files(), QStringList());
}

TEST_F(PendingFileTest, ForgetsWhatWasPosted) {
    const QList<PendingEntry> entries = saved();
    {
        PendingFile file(folder());
        file.load();
        file.notePosted(1);
    }
    EXPECT_EQ(load(), QList{entries[1]});
    {
        PendingFile file(folder());
        EXPECT_TRUE(file.save(file.load(), true));
    }
    EXPECT_TRUE(files().contains(u"notifications.posted"_s));
    {
        PendingFile file(folder());
        EXPECT_TRUE(file.save(file.load(), false));
    }
    EXPECT_EQ(files(), QStringList(u"notifications.json"_s));
    EXPECT_EQ(load(), QList{entries[1]});
}

TEST_F(PendingFileTest, UsesNoSerialAgain) {
    saved();
    PendingFile second(folder());
    second.load();
    EXPECT_EQ(second.newSerial(), 3U);
    // Given, posted, and never saved.
    second.notePosted(7);
    PendingFile third(folder());
    third.load();
    EXPECT_EQ(third.newSerial(), 8U);
}

TEST_F(PendingFileTest, ReadsOnlyWholeNotes) {
    const QList<PendingEntry> entries = saved();
    // Cut off, too: "1" may have been the beginning of "12.".
    for (const QByteArray notes : {"\n2x.\n", "x", "\n-1.\n", "\n+1.\n", "\n1.0.\n", "\0\0\0\0",
                                   "\n 1.\n", "\n1", "\n1\n", "\n.\n", "\n12.\n", "\n1.\r\n",
                                   "\n18446744073709551617.\n", "\n18446744073709551615.\n", ""}) {
        write(u"notifications.posted"_s, notes);
        EXPECT_EQ(load(), entries) << notes.toStdString();
    }
    // The line before was cut off.
    write(u"notifications.posted"_s, "\n1");
    PendingFile file(folder());
    file.load();
    file.notePosted(2);
    EXPECT_EQ(read(u"notifications.posted"_s), "\n1\n2.\n");
    EXPECT_EQ(load(), QList{entries[0]});
    write(u"notifications.posted"_s, "\n1.\n\n2.");
    EXPECT_EQ(load(), QList<PendingEntry>());
}

TEST_F(PendingFileTest, WritesNothingThatItWouldNotRead) {
    const quint64 farthest = quint64{1} << 52;
    const QByteArray json =
        "{\"version\":1,\"next\":" + QByteArray::number(farthest) + ",\"requests\":[]}";
    write(u"notifications.json"_s, json);
    PendingFile file(folder());
    EXPECT_EQ(file.load(), QList<PendingEntry>());
    EXPECT_TRUE(file.save({}, false));
    EXPECT_EQ(file.newSerial(), farthest);
    EXPECT_FALSE(file.save({}, false));
    EXPECT_EQ(read(u"notifications.json"_s), json);
}

TEST_F(PendingFileTest, SetsADamagedFileAside) {
    saved();
    const QByteArray good = read(u"notifications.json"_s);
    const QJsonObject object = QJsonDocument::fromJson(good).object();
    const auto changed = [&](const QString &key, const QJsonValue &value) {
        QJsonObject copy = object;
        copy[key] = value;
        return QJsonDocument(copy).toJson();
    };
    const auto changedEntry = [&](int index, const QString &key, const QJsonValue &value) {
        QJsonArray requests = object[u"requests"_s].toArray();
        QJsonObject entry = requests[index].toObject();
        if (value.isUndefined())
            entry.remove(key);
        else
            entry[key] = value;
        requests[index] = entry;
        return changed(u"requests"_s, requests);
    };
    const QList<QByteArray> damages = {
        "",
        "{}",
        "[]",
        "null",
        QByteArray(good.size(), '\0'),
        good.first(good.size() / 2),
        good + "x",
        changed(u"version"_s, 2),
        changed(u"version"_s, u"1"_s),
        changed(u"version"_s, QJsonValue()),
        changed(u"next"_s, 2),
        changed(u"next"_s, 0),
        changed(u"next"_s, 1.5),
        changed(u"next"_s, 1e300),
        changed(u"next"_s, 4503599627370497.0),
        changed(u"requests"_s, QJsonObject()),
        changed(u"requests"_s, QJsonArray{1}),
        changedEntry(0, u"serial"_s, 0),
        changedEntry(0, u"serial"_s, 2),
        changedEntry(0, u"serial"_s, u"1"_s),
        changedEntry(0, u"serial"_s, QJsonValue::Undefined),
        changedEntry(0, u"body"_s, QJsonValue::Undefined),
        changedEntry(1, u"deadline"_s, QJsonValue::Undefined),
        changedEntry(1, u"deadline"_s, 0.5),
    };
    int number = 0;
    for (const QByteArray &damage : damages) {
        write(u"notifications.json"_s, damage);
        EXPECT_EQ(load(), QList<PendingEntry>()) << damage.toStdString();
        const QString aside = u"notifications.json.aside-"_s + QString::number(++number);
        EXPECT_EQ(read(aside), damage);
        EXPECT_EQ(read(u"notifications.json"_s), "no file") << damage.toStdString();
    }
    write(u"notifications.json"_s, good);
    EXPECT_EQ(load().size(), 2);
}

TEST_F(PendingFileTest, BeginsAnotherFileBesideTheDamagedOne) {
    write(u"notifications.json"_s, "damaged");
    PendingFile file(folder());
    EXPECT_EQ(file.load(), QList<PendingEntry>());
    const QList<PendingEntry> entries{
        {file.newSerial(), atTen("2025-06-09", u"a"_s), std::nullopt, false}};
    EXPECT_TRUE(file.save(entries, false));
    EXPECT_EQ(load(), entries);
    EXPECT_EQ(read(u"notifications.json.aside-1"_s), "damaged");
}

TEST_F(PendingFileTest, SetsAsideWhatIsNoFile) {
    ASSERT_TRUE(QDir().mkpath(path(u"notifications.json"_s)));
    EXPECT_EQ(load(), QList<PendingEntry>());
    EXPECT_EQ(files(), QStringList(u"notifications.json.aside-1"_s));
}

TEST_F(PendingFileTest, NeverReplacesWhatCouldNotBeSetAside) {
    write(u"notifications.json"_s, "damaged");
    const uid_t user = geteuid();
    // Root may rename in any folder.
    ASSERT_EQ(chmod(QFile::encodeName(QFileInfo(folder()).path()).constData(), 0755), 0);
    ASSERT_EQ(chmod(QFile::encodeName(folder()).constData(), 0555), 0);
    if (user == 0) {
        ASSERT_EQ(seteuid(65534), 0);
    }
    PendingFile file(folder());
    EXPECT_EQ(file.load(), QList<PendingEntry>());
    if (user == 0) {
        ASSERT_EQ(seteuid(0), 0);
    }
    ASSERT_EQ(chmod(QFile::encodeName(folder()).constData(), 0755), 0);
    EXPECT_FALSE(file.save({}, false));
    EXPECT_EQ(files(), QStringList(u"notifications.json"_s));
    EXPECT_EQ(read(u"notifications.json"_s), "damaged");
}

} // namespace tovarin
