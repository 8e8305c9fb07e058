// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "model/Timestamp.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

using namespace std::chrono;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

QByteArray written(Instant instant) {
    QByteArray text("before ");
    return Timestamp::append(text, instant) ? text.mid(7) : text;
}

} // namespace

TEST(Timestamp, ReadsAndWritesTheOneForm) {
    struct {
        const char *text;
        Instant instant;
    } const cases[] = {
        {"1970-01-01T00:00:00Z", sys_days(1970y / 1 / 1)},
        {"2025-01-15T16:00:00Z", sys_days(2025y / 1 / 15) + 16h},
        {"2024-02-29T23:59:59Z", sys_days(2024y / 2 / 29) + 23h + 59min + 59s},
        {"1969-12-31T23:59:59Z", sys_days(1970y / 1 / 1) - 1s},
        {"0000-01-01T00:00:00Z", sys_days(0y / 1 / 1)},
        {"0000-02-29T00:00:00Z", sys_days(0y / 2 / 29)},
        {"9999-12-31T23:59:59Z", sys_days(9999y / 12 / 31) + 23h + 59min + 59s},
    };
    for (const auto &c : cases) {
        EXPECT_EQ(Timestamp::parse(c.text), c.instant) << c.text;
        EXPECT_EQ(written(c.instant), c.text);
    }
}

TEST(Timestamp, DropsPartsOfASecond) {
    EXPECT_EQ(written(sys_days(2025y / 1 / 15) + 999ms), "2025-01-15T00:00:00Z");
    EXPECT_EQ(written(sys_days(1960y / 1 / 15) - 1ms), "1960-01-14T23:59:59Z");
    EXPECT_EQ(written(sys_days(10000y / 1 / 1) - 1ms), "9999-12-31T23:59:59Z");
}

TEST(Timestamp, WritesNoYearOfMoreThanFourDigits) {
    EXPECT_EQ(written(sys_days(10000y / 1 / 1)), "before ");
    EXPECT_EQ(written(sys_days(0y / 1 / 1) - 1ms), "before ");
}

TEST(Timestamp, RefusesEverythingElse) {
    for (const char *text : {
             "",
             "2025",
             "2025-01-15",
             "2025-01-15T16:00:00",
             "2025-01-15T16:00:00z",
             "2025-01-15t16:00:00Z",
             "2025-01-15 16:00:00Z",
             "2025-01-15T16:00:00.0Z",
             "2025-01-15T16:00:00,0Z",
             "2025-01-15T16:00:00+00:00",
             "2025-01-15T16:00:00-08:00",
             "2025-01-15T16:00Z",
             "20250115T160000Z",
             "2025-1-15T16:00:00Z",
             "25-01-15T16:00:00Z",
             "+2025-01-15T16:00:0Z",
             "-025-01-15T16:00:00Z",
             "2025-01-15T16:00:00Z ",
             " 2025-01-15T16:00:00Z",
             "2025-00-15T16:00:00Z",
             "2025-13-15T16:00:00Z",
             "2025-01-00T16:00:00Z",
             "2025-01-32T16:00:00Z",
             "2025-02-29T16:00:00Z",
             "2100-02-29T16:00:00Z",
             "2025-04-31T16:00:00Z",
             "2025-01-15T24:00:00Z",
             "2025-01-15T16:60:00Z",
             "2025-01-15T16:00:60Z",
             "2016-12-31T23:59:60Z",
             "2025-01-15T-1:00:00Z",
             "2025-01-15T+1:00:00Z",
             "2025-01-15T1 :00:00Z",
             "２025-01-15T1:00:00Z",
             "2025/01/15T16:00:00Z",
             "2025-W03-3T16:00:00Z",
             "10000-01-01T00:00:0Z",
         })
        EXPECT_EQ(Timestamp::parse(text), std::nullopt) << text;
}

TEST(Timestamp, IsTheSameAfterARoundTripOnEveryDay) {
    for (sys_days day = 1580y / January / 1; day < sys_days(2420y / January / 1); day += days(1)) {
        const Instant instant = day + 12h + 34min + 56s;
        ASSERT_EQ(Timestamp::parse(written(instant).toStdString()), instant);
    }
}

} // namespace tovarin
