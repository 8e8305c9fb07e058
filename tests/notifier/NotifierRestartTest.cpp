// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "notifier/Notifier.h"
#include "tests/notifier/MachineTest.h"
#include "tests/support/Printing.h"

#include <QFile>

#include <csignal>
#include <sys/resource.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

using Outcome = NotificationService::Outcome;

class NotifierRestartTest : public MachineTest {};

/// Lets no file grow beyond a size while it lives: the write fails, as on a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) {
        EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &m_before), 0);
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{bytes, m_before.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    }
    ~FullDisk() {
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &m_before), 0);
        std::signal(SIGXFSZ, m_handler);
    }
    FullDisk(const FullDisk &) = delete;
    FullDisk &operator=(const FullDisk &) = delete;

private:
    rlimit m_before{};
    void (*m_handler)(int) = SIG_DFL;
};

} // namespace

TEST_F(NotifierRestartTest, PostsOnceWhenKilledBeforeTheAnswer) {
    m.service.holdsAnswers = true;
    m.change({atTen("2025-06-01", u"a"_s), atTen("2025-06-01", u"b"_s)});
    EXPECT_EQ(posted(), a);
    m.restart();
    EXPECT_EQ(posted(), QStringList(u"b"_s));
    m.restart();
    m.restart();
    EXPECT_EQ(posted(), nothing);
}

TEST_F(NotifierRestartTest, PostsOnceWhenKilledBeforeSaving) {
    m.service.holdsAnswers = true;
    m.change({atTen("2025-06-01", u"a"_s), atTen("2025-06-01", u"b"_s), atTen("2025-06-01", u"c"_s),
              atTen("2025-06-09", u"d"_s)});
    m.service.answerPost(Outcome::shown);
    settle();
    EXPECT_EQ(posted(), (QStringList{u"a"_s, u"b"_s}));
    // A save in between must not forget what is on its way.
    m.change({atTen("2025-06-10", u"e"_s)});
    m.restart();
    EXPECT_EQ(posted(), QStringList(u"c"_s));
    m.restart();
    EXPECT_EQ(posted(), nothing);
    EXPECT_EQ(m.pending(), (QStringList{u"d"_s, u"e"_s}));
}

TEST_F(NotifierRestartTest, NeverPostsWhatWasNotedAndNotHandedOver) {
    m.service.losesPosts = true;
    m.change({atTen("2025-06-01", u"a"_s)});
    m.kill();
    m.service.losesPosts = false;
    m.start();
    EXPECT_EQ(posted(), nothing);
    EXPECT_TRUE(m.notifier().isIdle());
}

TEST_F(NotifierRestartTest, PostsOnceOnADiskThatTakesOnlyTheNote) {
    m.change({atTen("2025-06-09", u"a"_s), atTen("2025-06-10", u"b"_s)});
    {
        const FullDisk disk(100);
        m.set("2025-06-09T10:00:00Z");
        EXPECT_EQ(posted(), a);
        m.restart();
        EXPECT_EQ(posted(), nothing);
        m.set("2025-06-10T10:00:00Z");
        EXPECT_EQ(posted(), QStringList(u"b"_s));
    }
    m.restart();
    EXPECT_EQ(posted(), nothing);
    EXPECT_EQ(m.pending(), nothing);
}

TEST_F(NotifierRestartTest, PostsOnAFullDisk) {
    m.change({atTen("2025-06-09", u"a"_s)});
    {
        const FullDisk disk(0);
        m.change({atTen("2025-06-09", u"b"_s)});
        m.set("2025-06-09T10:00:00Z");
        EXPECT_EQ(posted(), (QStringList{u"a"_s, u"b"_s}));
        m.look();
        EXPECT_EQ(posted(), nothing);
    }
    // Neither file nor note could be written: this is what remains.
    m.restart();
    EXPECT_EQ(posted(), a);
    m.restart();
    EXPECT_EQ(posted(), nothing);
}

TEST(NotifierWithoutFolder, PostsAllTheSame) {
    const QTemporaryDir disk;
    QFile inTheWay(disk.filePath(u"Tovarin"_s));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    ManualClock clock(instant("2025-06-01T12:00:00Z"));
    FakeService service;
    Notifier notifier(clock, UserZone(QTimeZone::utc()), inTheWay.fileName(), service);
    notifier.change({atTen("2025-06-09", u"a"_s)});
    EXPECT_EQ(notifier.pending().size(), 1);
    clock.set(instant("2025-06-09T10:00:00Z"));
    notifier.look();
    settle();
    EXPECT_EQ(service.posted, QStringList(u"a"_s));
}

} // namespace tovarin
