// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/CalendarModel.h"

#include "platform/UserCalendar.h"
#include "platform/UserMonths.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/ManualClock.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"
#include "tests/support/VariableTable.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono;

namespace tovarin {

namespace {

using Lang = LocalizationManager::Lang;

/// A calendar on the screen of a user who lives in this zone by this locale.
struct Sheet {
    Sheet(std::string_view selection, const char *locale = "en_US", const char *zone = "UTC",
          std::string_view now = "2025-06-10T12:00:00Z")
        : clock(instant(now))
        , calendar(calendarIn(zone, locale))
        , months(QString::fromLatin1(locale))
        , model(instant(selection), clock, calendar, months)
        , tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal) {}

    const QList<CalendarDay> &days() const { return model.calendarDays(); }
    CivilDay selected() const { return calendar.day(model.selection()); }
    CivilDay month() const { return calendar.day(model.visibleMonth()); }
    int leading() const {
        const auto first = std::ranges::find_if(days(), &CalendarDay::isCurrentMonth);
        return static_cast<int>(first - days().begin());
    }
    int trailing() const {
        const auto last =
            std::find_if(days().rbegin(), days().rend(), std::mem_fn(&CalendarDay::isCurrentMonth));
        return static_cast<int>(last - days().rbegin());
    }
    int row(std::string_view day) const {
        const auto found = std::ranges::find(days(), civilDay(day), &CalendarDay::date);
        EXPECT_NE(found, days().end()) << day;
        return static_cast<int>(found - days().begin());
    }
    QString text(int row, CalendarModel::Role role) const {
        return model.index(row).data(role).toString();
    }

    ManualClock clock;
    UserCalendar calendar;
    UserMonths months;
    CalendarModel model;
    QAbstractItemModelTester tester;
};

} // namespace

TEST(CalendarModel, ShowsSixWholeWeeks) {
    struct {
        const char *why;
        const char *locale;
        const char *selection;
        const char *first;
        int leading;
        int trailing;
    } const cases[] = {
        {"Sunday first", "en_US", "2025-06-10", "2025-06-01", 0, 12},
        {"Monday first, begins on Sunday", "de_DE", "2025-06-10", "2025-05-26", 6, 6},
        {"Saturday first", "ar_EG", "2025-06-10", "2025-05-31", 1, 11},
        {"Friday first", "dv_MV", "2025-06-10", "2025-05-30", 2, 10},
        {"28 days from the first weekday", "en_US", "2026-02-01", "2026-02-01", 0, 14},
        {"28 days from the first weekday", "de_DE", "2027-02-28", "2027-02-01", 0, 14},
        {"29 days", "de_DE", "2024-02-29", "2024-01-29", 3, 10},
        {"Chinese", "zh_CN", "2025-03-31", "2025-02-24", 5, 6},
        {"31 days from the last weekday", "en_US", "2025-03-01", "2025-02-23", 6, 5},
        {"a year ends", "en_GB", "2024-12-31", "2024-11-25", 6, 5},
    };
    for (const auto &[why, locale, selection, first, leading, trailing] : cases) {
        const Sheet sheet(std::string(selection) + "T12:00:00Z", locale);
        ASSERT_EQ(sheet.days().size(), 42) << why;
        EXPECT_EQ(sheet.leading(), leading) << why;
        EXPECT_EQ(sheet.trailing(), trailing) << why;
        for (int i = 0; i < 42; ++i)
            EXPECT_EQ(sheet.days()[i].date, civilDay(first) + days(i)) << why;
    }
}

TEST(CalendarModel, MarksTheSelectionAndToday) {
    const Sheet sheet("2025-06-20T23:59:59Z");
    for (const CalendarDay &day : sheet.days()) {
        EXPECT_EQ(day.isSelected, day.date == civilDay("2025-06-20"));
        EXPECT_EQ(day.isToday, day.date == civilDay("2025-06-10"));
    }
    // Leading and trailing days too.
    const Sheet before("2025-05-15T00:00:00Z", "en_US", "UTC", "2025-06-01T00:00:00Z");
    const CalendarDay today = before.days()[before.row("2025-06-01")];
    EXPECT_EQ(today, (CalendarDay{civilDay("2025-06-01"), false, false, true}));
}

TEST(CalendarModel, TellsItsRowsToTheScreen) {
    const Sheet sheet("2025-06-20T00:00:00Z");
    EXPECT_EQ(sheet.model.rowCount(), 42);
    EXPECT_EQ(sheet.text(0, CalendarModel::DayNumberRole), u"1"_s);
    EXPECT_EQ(sheet.text(19, CalendarModel::DayNumberRole), u"20"_s);
    EXPECT_EQ(sheet.text(30, CalendarModel::DayNumberRole), u"1"_s);
    EXPECT_EQ(sheet.text(19, CalendarModel::FullDateRole), u"Friday, June 20, 2025"_s);
    EXPECT_EQ(sheet.text(19, CalendarModel::IsSelectedRole), u"true"_s);
    EXPECT_EQ(sheet.text(9, CalendarModel::IsTodayRole), u"true"_s);
    EXPECT_EQ(sheet.text(9, CalendarModel::IsSelectedRole), u"false"_s);
    EXPECT_EQ(sheet.text(29, CalendarModel::IsCurrentMonthRole), u"true"_s);
    EXPECT_EQ(sheet.text(30, CalendarModel::IsCurrentMonthRole), u"false"_s);
}

TEST(CalendarModel, NamesMonthsAndWeekdaysByTheLocale) {
    struct {
        const char *locale;
        QString title;
        QStringList weekdays;
        QString day;
    } const cases[] = {
        {"en_US",
         u"March 2025"_s,
         {u"Sun"_s, u"Mon"_s, u"Tue"_s, u"Wed"_s, u"Thu"_s, u"Fri"_s, u"Sat"_s},
         u"Wednesday, March 12, 2025"_s},
        {"en_GB",
         u"March 2025"_s,
         {u"Mon"_s, u"Tue"_s, u"Wed"_s, u"Thu"_s, u"Fri"_s, u"Sat"_s, u"Sun"_s},
         u"Wednesday, 12 March 2025"_s},
        {"zh_CN.UTF-8",
         u"2025年3月"_s,
         {u"周一"_s, u"周二"_s, u"周三"_s, u"周四"_s, u"周五"_s, u"周六"_s, u"周日"_s},
         u"2025年3月12日星期三"_s},
        {"de_AT.UTF-8",
         u"März 2025"_s,
         {u"Mo"_s, u"Di"_s, u"Mi"_s, u"Do"_s, u"Fr"_s, u"Sa"_s, u"So"_s},
         u"Mittwoch, 12. März 2025"_s},
        {"C",
         u"March 2025"_s,
         {u"Sun"_s, u"Mon"_s, u"Tue"_s, u"Wed"_s, u"Thu"_s, u"Fri"_s, u"Sat"_s},
         u"Wednesday, March 12, 2025"_s},
    };
    for (const auto &[locale, title, weekdays, day] : cases) {
        for (const Lang lang : {Lang::en, Lang::zh}) {
            const LanguageScope language(lang);
            const Sheet sheet("2025-03-12T00:00:00Z", locale);
            EXPECT_EQ(sheet.model.monthTitle(), title) << locale;
            EXPECT_EQ(sheet.model.weekdaySymbols(), weekdays) << locale;
            EXPECT_EQ(sheet.text(sheet.row("2025-03-12"), CalendarModel::FullDateRole), day)
                << locale;
        }
    }
}

TEST(CalendarModel, TakesTheLocaleOfTimes) {
    const QMap<QByteArray, QByteArray> time{{"LANG", "en_US.UTF-8"}, {"LC_TIME", "zh_CN.UTF-8"}};
    EXPECT_EQ(UserMonths::current(variables(time)).title(civilDay("2025-03-12")), u"2025年3月"_s);
    const QMap<QByteArray, QByteArray> all{{"LC_ALL", "C.UTF-8"}, {"LC_TIME", "zh_CN.UTF-8"}};
    EXPECT_EQ(UserMonths::current(variables(all)).title(civilDay("2025-03-12")), u"March 2025"_s);
    const QMap<QByteArray, QByteArray> odd{{"LC_ALL", "!"}};
    EXPECT_EQ(UserMonths::current(variables(odd)).title(civilDay("2025-03-12")), u"March 2025"_s);
}

TEST(CalendarModel, CountsInTheCalendarOfTheRegion) {
    // The 1st of Farvardin 1404 was a Friday; weeks begin on Saturday.
    Sheet persian("2025-04-01T00:00:00Z", "fa_IR");
    EXPECT_EQ(persian.month(), civilDay("2025-03-21"));
    EXPECT_EQ(persian.leading(), 6);
    EXPECT_EQ(persian.trailing(), 5);
    EXPECT_EQ(persian.text(6, CalendarModel::DayNumberRole), u"1"_s);
    EXPECT_EQ(persian.text(36, CalendarModel::DayNumberRole), u"31"_s);
    EXPECT_EQ(persian.text(37, CalendarModel::DayNumberRole), u"1"_s);
    EXPECT_EQ(persian.model.monthTitle(), u"۱۴۰۴ فروردین"_s);
    persian.model.moveMonth(-1);
    EXPECT_EQ(persian.month(), civilDay("2025-02-19"));
    persian.model.moveMonth(13);
    EXPECT_EQ(persian.month(), civilDay("2026-03-21"));

    const Sheet buddhist("2025-03-12T00:00:00Z", "th_TH");
    EXPECT_EQ(buddhist.month(), civilDay("2025-03-01"));
    EXPECT_TRUE(buddhist.model.monthTitle().contains(u"2568"))
        << buddhist.model.monthTitle().toStdString();
}

TEST(CalendarModel, MovesByMonths) {
    Sheet sheet("2025-01-31T10:00:00Z");
    QSignalSpy selected(&sheet.model, &CalendarModel::selectionChanged);
    for (const char *month : {"2025-02-01", "2025-03-01", "2025-04-01"}) {
        sheet.model.moveMonth(1);
        EXPECT_EQ(sheet.month(), civilDay(month));
    }
    EXPECT_EQ(sheet.model.monthTitle(), u"April 2025"_s);
    sheet.model.moveMonth(-4);
    EXPECT_EQ(sheet.month(), civilDay("2024-12-01"));
    sheet.model.moveMonth(0);
    EXPECT_EQ(sheet.month(), civilDay("2024-12-01"));
    sheet.model.moveMonth(25);
    EXPECT_EQ(sheet.month(), civilDay("2027-01-01"));
    // What is selected is another matter.
    EXPECT_EQ(selected.size(), 0);
    EXPECT_EQ(sheet.model.selection(), instant("2025-01-31T10:00:00Z"));
}

TEST(CalendarModel, KnowsWhereMonthsStart) {
    const Sheet sheet("2025-01-31T10:00:00Z", "en_US", "Asia/Shanghai");
    EXPECT_EQ(sheet.model.monthStart(instant("2025-03-31T15:59:59Z")),
              instant("2025-02-28T16:00:00Z"));
    EXPECT_EQ(sheet.model.monthStart(instant("2025-03-31T16:00:00Z")),
              instant("2025-03-31T16:00:00Z"));
    EXPECT_EQ(sheet.model.visibleMonth(), instant("2024-12-31T16:00:00Z"));
}

TEST(CalendarModel, SelectsTheStartOfADay) {
    Sheet sheet("2025-06-20T10:00:00Z", "en_US", "Asia/Shanghai");
    QSignalSpy selected(&sheet.model, &CalendarModel::selectionChanged);
    sheet.model.select(sheet.row("2025-06-03"));
    EXPECT_EQ(sheet.model.selection(), instant("2025-06-02T16:00:00Z"));
    EXPECT_EQ(selected.size(), 1);
    sheet.model.select(sheet.row("2025-06-03"));
    EXPECT_EQ(selected.size(), 1);
    // The selected day again loses its time of day.
    sheet.model.setSelection(instant("2025-06-20T10:00:00Z"));
    sheet.model.select(sheet.row("2025-06-20"));
    EXPECT_EQ(sheet.model.selection(), instant("2025-06-19T16:00:00Z"));
    for (const int none : {-1, 42})
        sheet.model.select(none);
    EXPECT_EQ(sheet.model.selection(), instant("2025-06-19T16:00:00Z"));
}

TEST(CalendarModel, GoesToTheMonthOfASelectedDay) {
    Sheet sheet("2025-06-20T10:00:00Z");
    sheet.model.select(sheet.row("2025-07-05"));
    EXPECT_EQ(sheet.selected(), civilDay("2025-07-05"));
    EXPECT_EQ(sheet.month(), civilDay("2025-07-01"));
    sheet.model.select(sheet.row("2025-06-30"));
    EXPECT_EQ(sheet.month(), civilDay("2025-06-01"));
    sheet.model.setSelection(instant("2030-02-28T10:00:00Z"));
    EXPECT_EQ(sheet.month(), civilDay("2030-02-01"));
    EXPECT_EQ(sheet.model.selection(), instant("2030-02-28T10:00:00Z"));
}

TEST(CalendarModel, MovesTheSelectionByKeys) {
    Sheet sheet("2025-06-30T10:00:00Z");
    sheet.model.moveDay(1);
    EXPECT_EQ(sheet.selected(), civilDay("2025-07-01"));
    EXPECT_EQ(sheet.month(), civilDay("2025-07-01"));
    EXPECT_EQ(sheet.model.focusRow(), sheet.row("2025-07-01"));
    sheet.model.moveDay(-7);
    EXPECT_EQ(sheet.selected(), civilDay("2025-06-24"));
    EXPECT_EQ(sheet.model.selection(), instant("2025-06-24T00:00:00Z"));
}

TEST(CalendarModel, GoesToTheEndsOfAWeek) {
    struct {
        const char *why;
        const char *locale;
        const char *selection;
        const char *first;
        const char *last;
    } const cases[] = {
        {"Sunday first", "en_US", "2025-06-10", "2025-06-08", "2025-06-14"},
        {"Monday first", "zh_CN", "2025-06-10", "2025-06-09", "2025-06-15"},
        {"Saturday first", "ar_EG", "2025-06-10", "2025-06-07", "2025-06-13"},
        {"from its first day", "de_DE", "2025-06-09", "2025-06-09", "2025-06-15"},
        {"from its last day", "de_DE", "2025-06-15", "2025-06-09", "2025-06-15"},
        {"a year ends in it", "en_US", "2025-01-01", "2024-12-29", "2025-01-04"},
    };
    for (const auto &[why, locale, selection, first, last] : cases) {
        Sheet sheet(std::string(selection) + "T12:00:00Z", locale);
        sheet.model.moveToStartOfWeek();
        EXPECT_EQ(sheet.selected(), civilDay(first)) << why;
        EXPECT_EQ(sheet.model.visibleMonth(), sheet.model.monthStart(sheet.model.selection()))
            << why;
        sheet.model.moveToEndOfWeek();
        EXPECT_EQ(sheet.selected(), civilDay(last)) << why;
        sheet.model.moveToEndOfWeek();
        EXPECT_EQ(sheet.selected(), civilDay(last)) << why;
        sheet.model.moveToStartOfWeek();
        EXPECT_EQ(sheet.selected(), civilDay(first)) << why;
    }
    // The month in sight is where the keys start.
    Sheet moved("2025-06-10T12:00:00Z");
    moved.model.moveMonth(1);
    moved.model.moveToEndOfWeek();
    EXPECT_EQ(moved.selected(), civilDay("2025-07-05"));
}

TEST(CalendarModel, StartsFromTheMonthInSight) {
    Sheet sheet("2025-06-30T10:00:00Z");
    sheet.model.moveMonth(1);
    // The selection is in sight, as a leading day, but its month is not the one on screen.
    EXPECT_EQ(sheet.model.focusRow(), sheet.row("2025-07-01"));
    sheet.model.moveDay(7);
    EXPECT_EQ(sheet.selected(), civilDay("2025-07-08"));
}

TEST(CalendarModel, DoesNotDriftAtTheEndsOfMonths) {
    Sheet sheet("2025-01-31T10:00:00Z");
    for (const char *day : {"2025-02-28", "2025-03-31", "2025-04-30"}) {
        sheet.model.moveDayByMonths(1);
        EXPECT_EQ(sheet.selected(), civilDay(day));
    }
    for (const char *day : {"2025-03-31", "2025-02-28", "2025-01-31", "2024-12-31"}) {
        sheet.model.moveDayByMonths(-1);
        EXPECT_EQ(sheet.selected(), civilDay(day));
    }
    // A day that was chosen is where a new run begins.
    sheet.model.moveDayByMonths(2);
    sheet.model.select(sheet.row("2025-02-28"));
    sheet.model.moveDayByMonths(1);
    EXPECT_EQ(sheet.selected(), civilDay("2025-03-28"));
}

TEST(CalendarModel, BearsDaysWithoutMidnight) {
    // The clocks went on from midnight to 1 o'clock.
    Sheet chile("2024-09-07T12:00:00Z", "es_CL", "America/Santiago");
    chile.model.moveDay(1);
    EXPECT_EQ(chile.selected(), civilDay("2024-09-08"));
    EXPECT_EQ(chile.model.selection(), instant("2024-09-08T04:00:00Z"));
    chile.model.moveDay(1);
    chile.model.moveDay(-1);
    EXPECT_EQ(chile.selected(), civilDay("2024-09-08"));

    // A month that begins on such a day.
    const Sheet paraguay("2017-10-20T12:00:00Z", "es_PY", "America/Asuncion");
    EXPECT_EQ(paraguay.month(), civilDay("2017-10-01"));
    EXPECT_EQ(paraguay.model.visibleMonth(), instant("2017-10-01T04:00:00Z"));

    // The 30th of December was left out.
    Sheet samoa("2011-12-29T20:00:00Z", "en_WS", "Pacific/Apia");
    EXPECT_EQ(samoa.selected(), civilDay("2011-12-29"));
    samoa.model.moveDay(1);
    EXPECT_EQ(samoa.selected(), civilDay("2011-12-31"));
    samoa.model.moveDay(-1);
    EXPECT_EQ(samoa.selected(), civilDay("2011-12-29"));
    samoa.model.select(samoa.row("2011-12-30"));
    EXPECT_EQ(samoa.selected(), civilDay("2011-12-31"));
    // It would have been the first of a week.
    Sheet friday("2012-01-03T12:00:00Z", "dv_MV", "Pacific/Apia");
    friday.model.moveToStartOfWeek();
    EXPECT_EQ(friday.selected(), civilDay("2011-12-31"));
}

TEST(CalendarModel, EndsWhereRecordsEnd) {
    Sheet last("9999-12-29T12:00:00Z");
    last.model.moveDay(1);
    EXPECT_EQ(last.selected(), civilDay("9999-12-30"));
    last.model.moveDay(1);
    last.model.moveDayByMonths(1);
    last.model.moveMonth(1);
    last.model.moveToEndOfWeek();
    EXPECT_EQ(last.selected(), civilDay("9999-12-30"));
    EXPECT_EQ(last.month(), civilDay("9999-12-01"));
    EXPECT_EQ(last.days().last().date, civilDay("9999-12-30"));
    last.model.moveMonth(-1);
    EXPECT_EQ(last.days().size(), 42);

    Sheet first("0001-01-20T12:00:00Z");
    first.model.moveMonth(-1);
    first.model.moveDay(-30);
    EXPECT_EQ(first.selected(), civilDay("0001-01-20"));
    EXPECT_FALSE(first.days().isEmpty());
    EXPECT_EQ(first.days().first().date, civilDay("0001-01-02"));
}

TEST(CalendarModel, NoticesAnotherDayAndAnotherZone) {
    Sheet sheet("2025-06-20T01:00:00Z");
    sheet.model.moveMonth(1);
    QSignalSpy changed(&sheet.model, &CalendarModel::changed);
    sheet.clock.set(instant("2025-07-11T00:00:00Z"));
    sheet.model.noticeDay();
    EXPECT_EQ(changed.size(), 1);
    EXPECT_TRUE(sheet.days()[sheet.row("2025-07-11")].isToday);
    EXPECT_EQ(std::ranges::count_if(sheet.days(), &CalendarDay::isToday), 1);
    EXPECT_EQ(sheet.month(), civilDay("2025-07-01"));
    sheet.calendar = calendarIn("America/New_York");
    sheet.model.moveMonth(-1);
    EXPECT_TRUE(sheet.days()[sheet.row("2025-06-19")].isSelected);
    EXPECT_EQ(sheet.model.selection(), instant("2025-06-20T01:00:00Z"));
}

} // namespace tovarin
