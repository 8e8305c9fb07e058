// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/parser/CycleFinder.h"

#include "scan/parser/Expression.h"
#include "scan/parser/Words.h"

namespace tovarin::ReceiptParser {

namespace {

constexpr Word yearlyWords[] = {u"每年",  u"年度",     u"/年",   u"年付",   u"按年",
                                u"包年",  u"一年",     u"每 年", u"yearly", u"annual",
                                u"/year", u"per year", u"/yr"};
constexpr Word quarterlyWords[] = {u"每季", u"季度", u"季付", u"包季", u"quarter"};
constexpr Word weeklyWords[] = {u"每周", u"周付", u"weekly", u"/week", u"每 周"};
constexpr Word monthlyWords[] = {u"每月",  u"月度",    u"/月",    u"月付",      u"按月", u"包月",
                                 u"每 月", u"monthly", u"/month", u"per month", u"/mo"};

struct Group {
    BillingCycle cycle;
    std::span<const Word> words;
};

constexpr Group groups[] = {
    {BillingCycle::yearly, yearlyWords},
    {BillingCycle::quarterly, quarterlyWords},
    {BillingCycle::weekly, weeklyWords},
    {BillingCycle::monthly, monthlyWords},
};

BillingCycle cycleOfMonths(qlonglong count) {
    if (count >= 12)
        return BillingCycle::yearly;
    return count <= 2 ? BillingCycle::monthly : BillingCycle::quarterly;
}

} // namespace

std::optional<BillingCycle> detectCycle(const QString &in) {
    const QString lower = lowerCased(in);
    for (const Group &group : groups) {
        if (containsAny(lower, group.words))
            return group.cycle;
    }
    return detectNumberUnitCycle(lower);
}

std::optional<BillingCycle> detectNumberUnitCycle(const QString &text) {
    // Only the beginning of a run of digits is tried, as the rest of it would give the same: tried
    // from every digit, a long run would take quadratic time. [\s] is \s, in the form of which ICU
    // can repeat any number without its stack.
    static const Expression numberWithUnit(
        uR"((?<![0-9])([0-9]+)[\s]*(个月|月|年|季|周|year|years|month|months|week|weeks))");
    Search search(numberWithUnit);
    if (!search.isIn(text))
        return std::nullopt;

    const QStringView unit = search.group(2);
    if (unit.contains(u'年') || unit.contains(u"year"))
        return BillingCycle::yearly;
    if (unit.contains(u'周') || unit.contains(u"week"))
        return BillingCycle::weekly;
    if (unit.contains(u'季'))
        return BillingCycle::quarterly;
    return cycleOfMonths(search.group(1).toLongLong());
}

} // namespace tovarin::ReceiptParser
