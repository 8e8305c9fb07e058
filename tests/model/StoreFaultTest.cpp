// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "model/Store.h"
#include "model/SubscriptionJson.h"
#include "platform/DurableFile.h"
#include "tests/support/ManualClock.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <random>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

/// Gives up root's power over file permissions, as far as there is any, while it lives.
class WithoutRootRights {
public:
    WithoutRootRights() {
        if (m_user == 0) {
            EXPECT_EQ(seteuid(65534), 0);
        }
    }
    ~WithoutRootRights() {
        if (m_user == 0) {
            EXPECT_EQ(seteuid(0), 0);
        }
    }
    WithoutRootRights(const WithoutRootRights &) = delete;
    WithoutRootRights &operator=(const WithoutRootRights &) = delete;

private:
    const uid_t m_user = geteuid();
};

/// Lets no file grow beyond a size while it lives: the write fails, as on a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) {
        EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &m_before), 0);
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{bytes, m_before.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    ~FileSizeLimit() {
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &m_before), 0);
        std::signal(SIGXFSZ, m_handler);
    }
    FileSizeLimit(const FileSizeLimit &) = delete;
    FileSizeLimit &operator=(const FileSizeLimit &) = delete;

private:
    rlimit m_before{};
    void (*m_handler)(int);
};

class StoreFaultTest : public testing::Test {
protected:
    StoreFaultTest() {
        // The tests without root's rights must be able to come here.
        QFile(home.path()).setPermissions(QFile::Permissions(0x7755));
    }

    QString path() const { return home.filePath(u"Tovarin/subscriptions.json"_s); }
    QString folder() const { return home.filePath(u"Tovarin"_s); }
    QStringList filesInFolder() const {
        return QDir(folder()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::Hidden);
    }
    QByteArray bytes() const { return DurableFile::read(path()).value_or("no file"); }

    QTemporaryDir home;
    ManualClock clock{instant("2025-04-01T12:00:00Z")};
    UserCalendar calendar = calendarIn("UTC");
};

QByteArray encoded(const QList<Subscription> &list) {
    return encodeSubscriptions(list).value();
}

} // namespace

TEST_F(StoreFaultTest, LivesWithAFolderThatCannotBeMade) {
    QFile obstacle(home.filePath(u"file"_s));
    ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
    Store store(obstacle.fileName(), clock, calendar);
    store.add(sampleSubscription());
    EXPECT_EQ(store.subscriptions().size(), 1);
    EXPECT_EQ(obstacle.size(), 0);
}

TEST_F(StoreFaultTest, LivesWithAFolderThatIsReadOnly) {
    const Subscription old = sampleSubscription(u"old"_s);
    Store(home.path(), clock, calendar).add(old);
    ASSERT_TRUE(QFile(folder()).setPermissions(QFile::Permissions(0x5555)));
    {
        const WithoutRootRights user;
        Store store(home.path(), clock, calendar);
        EXPECT_EQ(store.subscriptions(), QList{old});
        store.add(sampleSubscription());
        EXPECT_EQ(store.subscriptions().size(), 2);
        EXPECT_EQ(bytes(), encoded({old}));
        EXPECT_EQ(filesInFolder(), QStringList{u"subscriptions.json"_s});
    }
    ASSERT_TRUE(QFile(folder()).setPermissions(QFile::Permissions(0x7755)));
}

TEST_F(StoreFaultTest, StartsEmptyWithAFileItMayNotRead) {
    Store(home.path(), clock, calendar).add(sampleSubscription());
    ASSERT_TRUE(QFile(path()).setPermissions(QFile::Permissions(0)));
    const WithoutRootRights user;
    EXPECT_TRUE(Store(home.path(), clock, calendar).subscriptions().isEmpty());
}

TEST_F(StoreFaultTest, StartsEmptyWithAFolderInTheFilesPlace) {
    ASSERT_TRUE(QDir().mkpath(path()));
    Store store(home.path(), clock, calendar);
    EXPECT_TRUE(store.subscriptions().isEmpty());
    store.add(sampleSubscription());
    EXPECT_EQ(store.subscriptions().size(), 1);
    EXPECT_TRUE(QFileInfo(path()).isDir());
    EXPECT_EQ(filesInFolder(), QStringList{u"subscriptions.json"_s});
}

TEST_F(StoreFaultTest, KeepsTheOldFileWholeWhenTheNewOneDoesNotFit) {
    Store store(home.path(), clock, calendar);
    store.add(sampleSubscription(u"old"_s));
    const QByteArray before = bytes();
    const Subscription added = sampleSubscription(u"new"_s);
    const rlim_t needed = rlim_t(encoded({store.subscriptions().first(), added}).size());
    for (const rlim_t room : {rlim_t(0), rlim_t(1), needed / 2, needed - 1}) {
        const FileSizeLimit limit(room);
        store.setSubscriptions({store.subscriptions().first(), added});
        store.save();
        EXPECT_EQ(bytes(), before) << room;
        EXPECT_EQ(filesInFolder(), QStringList{u"subscriptions.json"_s}) << room;
    }
    EXPECT_EQ(store.subscriptions().size(), 2);
    const FileSizeLimit enough(needed);
    store.save();
    EXPECT_EQ(bytes(), encoded(store.subscriptions()));
}

TEST_F(StoreFaultTest, KeepsTheOldFileWhenTheListHasNoText) {
    Store store(home.path(), clock, calendar);
    store.add(sampleSubscription(u"old"_s));
    const QByteArray before = bytes();
    Subscription endless = sampleSubscription();
    endless.amount = std::numeric_limits<double>::infinity();
    store.add(endless);
    EXPECT_EQ(store.subscriptions().size(), 2);
    EXPECT_EQ(bytes(), before);
    store.deleteSubscription(endless);
    EXPECT_EQ(bytes(), before);
}

TEST_F(StoreFaultTest, WritesThroughALinkAndKeepsTheMode) {
    ASSERT_TRUE(QDir().mkpath(folder()));
    const QString target = home.filePath(u"elsewhere.json"_s);
    ASSERT_TRUE(DurableFile::replace(target, "[]"));
    ASSERT_TRUE(QFile(target).setPermissions(QFile::ReadOwner | QFile::WriteOwner));
    ASSERT_TRUE(QFile::link(target, path()));
    Store store(home.path(), clock, calendar);
    store.add(sampleSubscription());
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
    EXPECT_EQ(DurableFile::read(target), encoded(store.subscriptions()));
    EXPECT_EQ(QFile(target).permissions() & (QFile::ReadGroup | QFile::ReadOther),
              QFile::Permissions());
}

/// A child process saves lists of growing and shrinking size, one after the other, until an alarm
/// at a random moment kills it, again and again. It says in a pipe which save it begins, so that
/// the file must hold that list or the one before.
TEST_F(StoreFaultTest, HoldsTheListBeforeOrAfterWhateverMomentItsProcessIsKilledAt) {
    QList<QList<Subscription>> lists;
    for (int i = 0; i < 7; ++i) {
        QList<Subscription> list;
        for (int n = 0; n <= i * 40; ++n)
            list.append(sampleSubscription(u"%1/%2"_s.arg(i).arg(n)));
        lists.append(list);
    }
    Store(home.path(), clock, calendar).addAll(lists.last());

    constexpr int savesWanted = 1'000;
    std::mt19937 random(3);
    int saves = 0;
    int kills = 0;
    qsizetype known = lists.size() - 1;
    while (saves < savesWanted) {
        int pipeEnds[2];
        ASSERT_EQ(pipe(pipeEnds), 0);
        const itimerval alarm{{}, {0, 1 + static_cast<suseconds_t>(random() % 20'000)}};
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            setitimer(ITIMER_REAL, &alarm, nullptr); // nobody handles it: it kills
            Store store(home.path(), clock, calendar);
            for (qsizetype next = 0;; next = (next + 1) % lists.size()) {
                const char announced = static_cast<char>(next);
                if (write(pipeEnds[1], &announced, 1) != 1)
                    _exit(1);
                store.setSubscriptions(lists[next]);
                store.save();
            }
        }
        close(pipeEnds[1]);
        qsizetype before = known;
        qsizetype begun = known;
        for (char announced = 0; read(pipeEnds[0], &announced, 1) == 1; ++saves) {
            before = begun;
            begun = announced;
        }
        close(pipeEnds[0]);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM);
        ++kills;

        const auto decoded = decodeSubscriptions(bytes());
        ASSERT_TRUE(std::holds_alternative<QList<Subscription>>(decoded)) << bytes().toStdString();
        const auto &list = std::get<QList<Subscription>>(decoded);
        ASSERT_TRUE(list == lists[begun] || list == lists[before]) << begun << ' ' << list.size();
        known = list == lists[begun] ? begun : before;
    }
    EXPECT_GT(kills, 20) << "too few kills to say anything";
    // What a kill leaves behind is small change: never more than one file a kill.
    EXPECT_LE(filesInFolder().size(), 1 + kills);
}

} // namespace tovarin
