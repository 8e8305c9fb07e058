// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "model/Timestamp.h"

#include <array>

using namespace std::chrono;
using namespace std::chrono_literals;

namespace tovarin::Timestamp {

namespace {

constexpr Instant firstWritable = sys_days(0y / January / 1);
constexpr Instant endOfWritable = sys_days(10000y / January / 1);

/// The number that `count` digits at `at` stand for, −1 if one of them is no digit.
int number(std::string_view text, std::size_t at, std::size_t count) {
    int value = 0;
    for (const char c : text.substr(at, count)) {
        if (c < '0' || c > '9')
            return -1;
        value = value * 10 + (c - '0');
    }
    return value;
}

void writeNumber(char *to, int value, int digits) {
    for (int i = digits - 1; i >= 0; --i) {
        to[i] = static_cast<char>('0' + value % 10);
        value /= 10;
    }
}

} // namespace

std::optional<Instant> parse(std::string_view text) {
    if (text.size() != length || text[4] != '-' || text[7] != '-' || text[10] != 'T' ||
        text[13] != ':' || text[16] != ':' || text[19] != 'Z')
        return std::nullopt;
    const int yearNumber = number(text, 0, 4);
    const int monthNumber = number(text, 5, 2);
    const int dayNumber = number(text, 8, 2);
    const int hour = number(text, 11, 2);
    const int minute = number(text, 14, 2);
    const int second = number(text, 17, 2);
    if (yearNumber < 0 || monthNumber < 0 || dayNumber < 0)
        return std::nullopt;
    const year_month_day date(year(yearNumber), month(static_cast<unsigned>(monthNumber)),
                              day(static_cast<unsigned>(dayNumber)));
    if (!date.ok() || hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 ||
        second > 59)
        return std::nullopt;
    return sys_days(date) + hours(hour) + minutes(minute) + seconds(second);
}

bool append(QByteArray &to, Instant instant) {
    if (instant < firstWritable || instant >= endOfWritable)
        return false;
    const sys_days midnight = floor<days>(instant);
    const year_month_day date(midnight);
    const hh_mm_ss time(floor<seconds>(instant - midnight));
    std::array<char, length> text = {'0', '0', '0', '0', '-', '0', '0', '-', '0', '0',
                                     'T', '0', '0', ':', '0', '0', ':', '0', '0', 'Z'};
    writeNumber(text.data(), static_cast<int>(date.year()), 4);
    writeNumber(text.data() + 5, static_cast<int>(static_cast<unsigned>(date.month())), 2);
    writeNumber(text.data() + 8, static_cast<int>(static_cast<unsigned>(date.day())), 2);
    writeNumber(text.data() + 11, static_cast<int>(time.hours().count()), 2);
    writeNumber(text.data() + 14, static_cast<int>(time.minutes().count()), 2);
    writeNumber(text.data() + 17, static_cast<int>(time.seconds().count()), 2);
    to.append(text.data(), text.size());
    return true;
}

} // namespace tovarin::Timestamp
