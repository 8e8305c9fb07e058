// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/parser/DateFinder.h"

#include "scan/parser/Expression.h"

#include <algorithm>

namespace tovarin::ReceiptParser {

namespace {

constexpr int fallbackYear = 2026;
constexpr int fallbackMonth = 1;
constexpr int fallbackDay = 1;

int toNumber(QStringView digits, int fallback) {
    int number = 0;
    for (const QChar digit : digits) {
        if (digit < u'0' || digit > u'9')
            return fallback;
        number = number * 10 + (digit.unicode() - u'0');
    }
    return number;
}

} // namespace

std::optional<Instant> detectDate(const QString &in, const UserCalendar &calendar) {
    static const Expression date(uR"(((?:19|20)\d{2})[\-/年\.](\d{1,2})[\-/月\.](\d{1,2}))");
    Search search(date);
    if (!search.isIn(in))
        return std::nullopt;
    const std::optional<CivilDay> day = calendar.day(toNumber(search.group(1), fallbackYear),
                                                     toNumber(search.group(2), fallbackMonth),
                                                     toNumber(search.group(3), fallbackDay));
    return day ? std::optional(calendar.startOfDay(*day)) : std::nullopt;
}

} // namespace tovarin::ReceiptParser
