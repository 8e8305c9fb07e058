// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/parser/DateFinder.h"

#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::ReceiptParser {

TEST(DetectDate, ReadsTheFirstDate) {
    struct {
        QString text;
        const char *day; ///< None when there is no date.
    } const cases[] = {
        {u""_s, nullptr},
        {u"2025-03-08"_s, "2025-03-08"},
        {u"2025/3/8"_s, "2025-03-08"},
        {u"2025.03.8"_s, "2025-03-08"},
        {u"2025年3月8日"_s, "2025-03-08"},
        {u"2025年03-08"_s, "2025-03-08"},
        {u"2025/3月8"_s, "2025-03-08"},
        {u"2025-3年8"_s, nullptr},
        {u"2025月3-8"_s, nullptr},
        {u"2025 3 8"_s, nullptr},
        {u"2025 - 3 - 8"_s, nullptr},
        {u"2025年 3月8日"_s, nullptr},
        {u"2025—3—8"_s, nullptr},
        {u"08/03/2025"_s, nullptr},
        {u"25-03-08"_s, nullptr},
        {u"20250308"_s, nullptr},
        {u"1899-12-31"_s, nullptr},
        {u"2100-01-01"_s, nullptr},
        {u"1900-01-01"_s, "1900-01-01"},
        {u"2099-12-31"_s, "2099-12-31"},
        {u"March 8, 2025; 2024-12-01, 2023-11-11"_s, "2024-12-01"},
        {u"2025-x 2024-12-01"_s, "2024-12-01"},
        // Neither end need be a whole number.
        {u"122025-03-08"_s, "2025-03-08"},
        {u"2025-03-081"_s, "2025-03-08"},
        {u"2025-123-08 2024-01-02"_s, "2024-01-02"},
        {u"Order 2025-03-08T23:59"_s, "2025-03-08"},
        {u"x20191.2.3 2025-03-08"_s, "2025-03-08"},
        {u"120191.2.3"_s, nullptr},
        {u"192019.2.3"_s, "2019-02-03"},
        // The calendar rolls over.
        {u"2025-02-29"_s, "2025-03-01"},
        {u"2025-13-01"_s, "2026-01-01"},
        {u"2025-01-45"_s, "2025-02-14"},
        {u"2025-00-15"_s, "2024-12-15"},
        {u"2025-03-00"_s, "2025-02-28"},
        {u"2025-00-00"_s, "2024-11-30"},
        {u"2099-99-99"_s, "2107-06-07"},
        // Digits of other scripts are digits, but no numbers.
        {u"20२५-03-08"_s, "2026-03-08"},
        {u"2025-०३-08"_s, "2025-01-08"},
        {u"2025-03-٠٨"_s, "2025-03-01"},
        {u"2025-0３-𝟘𝟠"_s, "2025-01-01"},
        {u"20２５-１２-３１"_s, "2026-01-01"},
        {u"２０２５-03-08"_s, nullptr},
        {u"2025-一-二"_s, nullptr},
    };
    const UserCalendar calendar = calendarIn("UTC", "zh_CN");
    for (const auto &[text, day] : cases) {
        const std::optional<Instant> date = detectDate(text, calendar);
        if (day)
            EXPECT_EQ(date, calendar.startOfDay(civilDay(day))) << text.toStdString();
        else
            EXPECT_EQ(date, std::nullopt) << text.toStdString();
    }
}

TEST(DetectDate, IsTheStartOfTheDayInTheUsersZone) {
    struct {
        const char *zone;
        QString text;
        const char *start;
    } const cases[] = {
        {"UTC", u"2025-03-08"_s, "2025-03-08T00:00:00Z"},
        {"Asia/Shanghai", u"2025-03-08"_s, "2025-03-07T16:00:00Z"},
        {"America/New_York", u"2025-03-08"_s, "2025-03-08T05:00:00Z"},
        {"Pacific/Kiritimati", u"2025-03-08"_s, "2025-03-07T10:00:00Z"},
        {"Pacific/Pago_Pago", u"2025-03-08"_s, "2025-03-08T11:00:00Z"},
        {"Asia/Kathmandu", u"2025-03-08"_s, "2025-03-07T18:15:00Z"},
        // No midnight on these days.
        {"America/Sao_Paulo", u"2018-11-04"_s, "2018-11-04T03:00:00Z"},
        {"America/Havana", u"2025年3月9日"_s, "2025-03-09T05:00:00Z"},
        // Two midnights.
        {"America/Havana", u"2025-11-02"_s, "2025-11-02T04:00:00Z"},
        // No such day at all.
        {"Pacific/Apia", u"2011-12-30"_s, "2011-12-30T10:00:00Z"},
    };
    for (const auto &[zone, text, start] : cases)
        EXPECT_EQ(detectDate(text, calendarIn(zone)), instant(start)) << zone;
}

TEST(DetectDate, CountsInTheUsersCalendar) {
    struct {
        const char *locale;
        QString text;
        const char *day;
    } const cases[] = {
        {"th_TH", u"2025-03-08"_s, "1482-03-17"},
        {"fa_IR", u"2025-03-08"_s, "2646-05-29"},
        {"ja_JP@calendar=japanese", u"2025-03-08"_s, "4043-03-08"},
        {"ja_JP", u"2025-03-08"_s, "2025-03-08"},
        {"en_US_POSIX", u"2025-03-08"_s, "2025-03-08"},
    };
    for (const auto &[locale, text, day] : cases) {
        const UserCalendar calendar = calendarIn("Asia/Bangkok", locale);
        EXPECT_EQ(detectDate(text, calendar), calendar.startOfDay(civilDay(day))) << locale;
    }
    // 1941 before our era could not be stored.
    EXPECT_EQ(detectDate(u"1900-01-01"_s, calendarIn("UTC", "he_IL@calendar=hebrew")),
              std::nullopt);
}

} // namespace tovarin::ReceiptParser
