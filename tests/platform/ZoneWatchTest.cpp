// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/ZoneWatch.h"

#include "tests/support/VariableTable.h"
#include "tests/support/WaitFor.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

class ZoneWatchTest : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(m_folder.isValid());
        link(u"Etc/UTC"_s, u"localtime"_s);
        write(u"timezone"_s);
        write(u"passwd"_s);
    }

    QByteArray path(const QString &name) const {
        return QFile::encodeName(m_folder.filePath(name));
    }

    /// The zone need not exist: the watch does not follow the link.
    void link(const QString &zone, const QString &name) const {
        EXPECT_TRUE(QFile::link(u"/usr/share/zoneinfo/"_s + zone, m_folder.filePath(name)));
    }

    void write(const QString &name) const {
        QFile file(m_folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_GT(file.write("Etc/UTC\n"), 0);
    }

    void remove(const QString &name) const { EXPECT_EQ(std::remove(path(name).constData()), 0); }

    void rename(const QString &from, const QString &to) const {
        EXPECT_EQ(std::rename(path(from).constData(), path(to).constData()), 0);
    }

    std::unique_ptr<ZoneWatch> watch(const QMap<QByteArray, QByteArray> &environment = {}) {
        auto watch = std::make_unique<ZoneWatch>(variables(environment), m_folder.path());
        QObject::connect(watch.get(), &ZoneWatch::changed, [this] { ++m_changes; });
        return watch;
    }

    bool noticed() {
        const bool found = waitFor([this] { return m_changes > 0; });
        settle();
        m_changes = 0;
        return found;
    }

    QTemporaryDir m_folder;
    int m_changes = 0;
};

} // namespace

TEST_F(ZoneWatchTest, NoticesEachLinkThatTakesThePlaceOfTheOld) {
    const auto watched = watch();
    for (const char *zone : {"Asia/Shanghai", "America/Sao_Paulo", "Not/A_Zone", "Not/A_Zone"}) {
        link(QString::fromLatin1(zone), u"localtime.new"_s);
        rename(u"localtime.new"_s, u"localtime"_s);
        EXPECT_TRUE(noticed()) << zone;
    }
}

TEST_F(ZoneWatchTest, NoticesALinkThatIsTakenAwayAndMadeAnew) {
    const auto watched = watch();
    remove(u"localtime"_s);
    EXPECT_TRUE(noticed());
    link(u"Asia/Shanghai"_s, u"localtime"_s);
    EXPECT_TRUE(noticed());
    rename(u"localtime"_s, u"localtime.old"_s);
    EXPECT_TRUE(noticed());
}

TEST_F(ZoneWatchTest, NoticesTheNameOfTheZone) {
    const auto watched = watch();
    write(u"timezone"_s);
    EXPECT_TRUE(noticed());
    write(u"timezone.new"_s);
    rename(u"timezone.new"_s, u"timezone"_s);
    EXPECT_TRUE(noticed());
    remove(u"timezone"_s);
    EXPECT_TRUE(noticed());
}

TEST_F(ZoneWatchTest, TellsOnceOfWhatHappensAtOnce) {
    const auto watched = watch();
    link(u"Asia/Shanghai"_s, u"localtime.new"_s);
    rename(u"localtime.new"_s, u"localtime"_s);
    write(u"timezone"_s);
    EXPECT_TRUE(waitFor([this] { return m_changes > 0; }));
    settle();
    EXPECT_EQ(m_changes, 1);
}

TEST_F(ZoneWatchTest, IsNotConcernedWithOtherFiles) {
    const auto watched = watch();
    write(u"passwd"_s);
    write(u"localtimes"_s);
    write(u"timezone.dpkg-new"_s);
    rename(u"passwd"_s, u"passwd-"_s);
    remove(u"localtimes"_s);
    QFile timezone(m_folder.filePath(u"timezone"_s));
    EXPECT_TRUE(timezone.open(QIODevice::ReadOnly));
    timezone.close();
    settle();
    EXPECT_EQ(m_changes, 0);
    remove(u"localtime"_s);
    EXPECT_TRUE(noticed());
}

TEST_F(ZoneWatchTest, BearsMoreThanOneReadingOfNews) {
    const auto watched = watch();
    for (int i = 0; i < 500; ++i)
        write(u"a file with a long name, so that the news of it takes room %1"_s.arg(i));
    remove(u"localtime"_s);
    EXPECT_TRUE(waitFor([this] { return m_changes > 0; }));
    settle();
    EXPECT_EQ(m_changes, 1);
}

TEST_F(ZoneWatchTest, WatchesNothingWhereTheEnvironmentNamesTheZone) {
    for (const char *tz : {"Asia/Shanghai", ":Asia/Shanghai", "UTC0", "Not/A_Zone"}) {
        const auto watched = watch({{"TZ", tz}});
        remove(u"timezone"_s);
        write(u"timezone"_s);
        settle();
        EXPECT_EQ(m_changes, 0) << tz;
    }
    for (const char *tz : {"", ":/etc/localtime"}) {
        const auto watched = watch({{"TZ", tz}});
        write(u"timezone"_s);
        EXPECT_TRUE(noticed()) << tz;
    }
}

TEST_F(ZoneWatchTest, IsSilentWithoutTheFolder) {
    ZoneWatch watched(variables({}), m_folder.filePath(u"none"_s));
    QObject::connect(&watched, &ZoneWatch::changed, [this] { ++m_changes; });
    EXPECT_TRUE(m_folder.remove());
    settle();
    EXPECT_EQ(m_changes, 0);
}

} // namespace tovarin
