// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/DayWatch.h"

#include "tests/support/ManualClock.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"
#include "tests/support/VariableTable.h"
#include "tests/support/WaitFor.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstdio>
#include <utility>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

/// A clock that runs, and is at `start` when it is made.
class RunningClock final : public Clock {
public:
    explicit RunningClock(Instant start) : m_ahead(start - m_system.now()) {}

    Instant now() const override { return m_system.now() + m_ahead; }

private:
    SystemClock m_system;
    milliseconds m_ahead;
};

/// A folder with a link in it that names a zone of the system's.
class ZoneFolder {
public:
    explicit ZoneFolder(const char *zone) { set(zone); }

    /// As the system's own tools do it: the new link takes the place of the old in one step.
    void set(const char *zone) {
        const QString fresh = m_folder.filePath(u"fresh"_s);
        EXPECT_TRUE(QFile::link(u"/usr/share/zoneinfo/"_s + QString::fromLatin1(zone), fresh));
        EXPECT_EQ(std::rename(QFile::encodeName(fresh).constData(),
                              QFile::encodeName(m_folder.filePath(u"localtime"_s)).constData()),
                  0);
    }

    ZoneSource source(const QMap<QByteArray, QByteArray> &environment = {}) const {
        return {variables(environment), m_folder.path(), [this](const Environment &) {
                    const QString zone = QFile::symLinkTarget(m_folder.filePath(u"localtime"_s))
                                             .mid(u"/usr/share/zoneinfo/"_s.size());
                    return calendarIn(zone.toLatin1().constData());
                }};
    }

private:
    QTemporaryDir m_folder;
};

/// A calendar in whose zone so much time is left of the day, rounded down to whole seconds.
UserCalendar calendarBeforeMidnight(Instant now, seconds left) {
    const seconds sinceMidnight = floor<seconds>(now.time_since_epoch()) % 86400s;
    seconds offset = 86400s - left - sinceMidnight;
    if (offset > 12h)
        offset -= 24h;
    return UserCalendar(u"en_US"_s, UserZone(QTimeZone(static_cast<int>(offset.count()))));
}

class DayWatchTest : public testing::Test {
protected:
    void count(const DayWatch &watch) {
        QObject::connect(&watch, &DayWatch::changed, [this] { ++m_changes; });
    }

    /// How often it told since the last question.
    int changes() { return std::exchange(m_changes, 0); }

    int m_changes = 0;
};

struct Next {
    const char *zone;
    const char *now;
    const char *next;
};

} // namespace

TEST(NextOtherDay, IsTheNextDaysFirstMoment) {
    const Next cases[] = {
        {"UTC", "2025-01-15T00:00:00Z", "2025-01-16T00:00:00Z"},
        {"UTC", "2025-01-15T23:59:59Z", "2025-01-16T00:00:00Z"},
        {"UTC", "2025-01-16T00:00:00Z", "2025-01-17T00:00:00Z"},
        {"Asia/Shanghai", "2025-01-15T15:59:59Z", "2025-01-15T16:00:00Z"},
        {"Asia/Kathmandu", "2025-01-15T18:14:59Z", "2025-01-15T18:15:00Z"},
        {"Pacific/Kiritimati", "2025-01-15T10:00:00Z", "2025-01-16T10:00:00Z"},
        // Days of 23 and 25 hours.
        {"Europe/Berlin", "2025-03-29T23:00:00Z", "2025-03-30T22:00:00Z"},
        {"Europe/Berlin", "2025-10-25T22:00:00Z", "2025-10-26T23:00:00Z"},
        // The clocks skip midnight: the day starts at one.
        {"America/Sao_Paulo", "2017-10-15T02:59:59Z", "2017-10-15T03:00:00Z"},
        {"America/Sao_Paulo", "2017-10-15T03:00:00Z", "2017-10-16T02:00:00Z"},
        {"Asia/Beirut", "2024-03-30T21:59:59Z", "2024-03-30T22:00:00Z"},
        {"Asia/Beirut", "2024-03-30T22:00:00Z", "2024-03-31T21:00:00Z"},
        // They are set back from midnight to eleven: the day goes on.
        {"America/Sao_Paulo", "2018-02-18T01:30:00Z", "2018-02-18T03:00:00Z"},
        {"Asia/Beirut", "2024-10-26T20:30:00Z", "2024-10-26T22:00:00Z"},
        // Midnight comes twice, and it is the same day both times.
        {"America/Havana", "2024-11-03T03:59:59Z", "2024-11-03T04:00:00Z"},
        {"America/Havana", "2024-11-03T04:59:59Z", "2024-11-04T05:00:00Z"},
        // The day between was left out.
        {"Pacific/Apia", "2011-12-29T12:00:00Z", "2011-12-30T10:00:00Z"},
        {"Pacific/Apia", "2011-12-30T10:00:00Z", "2011-12-31T10:00:00Z"},
        // They are set back one minute after midnight: the old day comes again.
        {"America/St_Johns", "2010-11-07T02:30:00Z", "2010-11-07T02:31:00Z"},
        {"America/St_Johns", "2010-11-07T02:31:00Z", "2010-11-07T03:30:00Z"},
        // Far from now, on both sides.
        {"Europe/Berlin", "2199-07-01T21:59:59Z", "2199-07-01T22:00:00Z"},
        {"Asia/Shanghai", "1900-06-01T15:54:16Z", "1900-06-01T15:54:17Z"},
    };
    for (const Next &c : cases)
        EXPECT_EQ(nextOtherDay(calendarIn(c.zone), instant(c.now)), instant(c.next))
            << c.zone << ' ' << c.now;
}

TEST_F(DayWatchTest, TellsOnceOfEachNewDay) {
    ZoneFolder folder("America/Sao_Paulo");
    ManualClock clock(instant("2017-10-15T02:59:59Z"));
    UserCalendar calendar = calendarIn("America/Sao_Paulo");
    DayWatch watch(clock, calendar, folder.source());
    count(watch);
    watch.look();
    EXPECT_EQ(changes(), 0);

    clock.set(instant("2017-10-15T03:00:00Z"));
    watch.look();
    EXPECT_EQ(changes(), 1);
    watch.look();
    EXPECT_EQ(changes(), 0) << "the same day";
    clock.set(instant("2017-10-16T01:59:59Z"));
    watch.look();
    EXPECT_EQ(changes(), 0);

    clock.set(instant("2017-10-20T12:00:00Z"));
    watch.look();
    EXPECT_EQ(changes(), 1) << "once, however many days it was";
    clock.set(instant("2017-10-15T12:00:00Z"));
    watch.look();
    EXPECT_EQ(changes(), 1) << "a clock that is set back gives another day, too";
}

TEST_F(DayWatchTest, TellsByItselfWhenTheDayBegins) {
    ZoneFolder folder("Etc/UTC");
    const SystemClock clock;
    UserCalendar calendar = calendarBeforeMidnight(clock.now(), 1s);
    const CivilDay before = calendar.day(clock.now());
    const DayWatch watch(clock, calendar, folder.source());
    count(watch);
    EXPECT_TRUE(waitFor([this] { return m_changes > 0; }));
    EXPECT_EQ(calendar.day(clock.now()), before + days(1));
    settle();
    EXPECT_EQ(changes(), 1);
}

TEST_F(DayWatchTest, TellsByItselfWhenTheDayBeginsInANewZone) {
    ZoneFolder folder("Etc/UTC");
    const SystemClock clock;
    UserCalendar calendar = calendarBeforeMidnight(clock.now(), 6h);
    ZoneSource source = folder.source();
    source.read = [&](const Environment &) { return calendarBeforeMidnight(clock.now(), 2s); };
    const DayWatch watch(clock, calendar, source);
    count(watch);
    folder.set("Etc/GMT-1");
    EXPECT_TRUE(waitFor([this] { return m_changes > 0; }));
    const CivilDay before = calendar.day(clock.now());
    EXPECT_EQ(changes(), 1);
    EXPECT_TRUE(waitFor([this] { return m_changes > 0; }));
    EXPECT_EQ(calendar.day(clock.now()), before + days(1));
}

TEST_F(DayWatchTest, TellsByItselfWhenTheGivenClockIsNotTheKernels) {
    ZoneFolder folder("America/Sao_Paulo");
    const RunningClock clock(instant("2017-10-15T02:59:59Z") + 900ms);
    UserCalendar calendar = calendarIn("America/Sao_Paulo");
    DayWatch watch(clock, calendar, folder.source());
    count(watch);
    EXPECT_TRUE(waitFor([this] { return m_changes > 0; }));
    EXPECT_EQ(calendar.day(clock.now()), civilDay("2017-10-15"));
    settle();
    EXPECT_EQ(changes(), 1);
}

TEST_F(DayWatchTest, FollowsTheZoneAcrossTheDateLine) {
    ZoneFolder folder("Pacific/Pago_Pago");
    const ManualClock clock(instant("2025-03-01T10:30:00Z"));
    UserCalendar calendar = calendarIn("Pacific/Pago_Pago");
    const DayWatch watch(clock, calendar, folder.source());
    count(watch);
    EXPECT_EQ(calendar.day(clock.now()), civilDay("2025-02-28"));

    folder.set("Pacific/Kiritimati");
    EXPECT_TRUE(waitFor([this] { return m_changes > 0; }));
    EXPECT_EQ(calendar.day(clock.now()), civilDay("2025-03-02"));
    settle();
    EXPECT_EQ(changes(), 1);

    folder.set("Pacific/Pago_Pago");
    EXPECT_TRUE(waitFor([this] { return m_changes > 0; }));
    EXPECT_EQ(calendar.day(clock.now()), civilDay("2025-02-28"));
}

TEST_F(DayWatchTest, TellsOfAZoneWithTheSameDay) {
    ZoneFolder folder("Asia/Shanghai");
    const ManualClock clock(instant("2025-03-01T10:30:00Z"));
    UserCalendar calendar = calendarIn("Asia/Shanghai");
    const DayWatch watch(clock, calendar, folder.source());
    QObject::connect(&watch, &DayWatch::changed, [&] {
        ++m_changes;
        EXPECT_EQ(calendar.startOfDay(civilDay("2025-03-01")), instant("2025-02-28T23:00:00Z"))
            << "the new zone already counts";
    });
    folder.set("Europe/Berlin");
    EXPECT_TRUE(waitFor([this] { return m_changes > 0; }));
}

TEST_F(DayWatchTest, WaitsForTheDayOfTheNewZone) {
    ZoneFolder folder("Asia/Shanghai");
    ManualClock clock(instant("2025-03-01T10:30:00Z"));
    UserCalendar calendar = calendarIn("Asia/Shanghai");
    DayWatch watch(clock, calendar, folder.source());
    count(watch);
    folder.set("Europe/Berlin");
    EXPECT_TRUE(waitFor([this] { return m_changes > 0; }));
    changes();

    clock.set(instant("2025-03-01T16:00:00Z"));
    watch.look();
    EXPECT_EQ(changes(), 0) << "midnight in Shanghai";
    clock.set(instant("2025-03-01T23:00:00Z"));
    watch.look();
    EXPECT_EQ(changes(), 1);
}

TEST_F(DayWatchTest, LeavesTheZoneThatTheEnvironmentNames) {
    ZoneFolder folder("Asia/Shanghai");
    const ManualClock clock(instant("2025-03-01T10:30:00Z"));
    UserCalendar calendar = calendarIn("America/New_York");
    const DayWatch watch(clock, calendar, folder.source({{"TZ", "America/New_York"}}));
    count(watch);
    folder.set("Europe/Berlin");
    settle();
    EXPECT_EQ(changes(), 0);
    EXPECT_EQ(calendar.startOfDay(civilDay("2025-03-01")), instant("2025-03-01T05:00:00Z"));
}

} // namespace tovarin
