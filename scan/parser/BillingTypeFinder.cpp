// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/parser/BillingTypeFinder.h"

#include "scan/parser/Words.h"

namespace tovarin::ReceiptParser {

namespace {

constexpr Word oneTimeWords[] = {u"一次性",   u"单次",    u"买断",     u"永久",     u"终身",
                                 u"one-time", u"onetime", u"lifetime", u"perpetual"};
constexpr Word recurringWords[] = {u"自动续费",   u"连续",  u"订阅",         u"续订",
                                   u"auto-renew", u"renew", u"subscription", u"recurring",
                                   u"包月",       u"包年",  u"包季"};

} // namespace

BillingType detectType(const QString &in, bool hasCycle) {
    const QString lower = lowerCased(in);
    if (containsAny(lower, oneTimeWords))
        return BillingType::oneTime;
    if (hasCycle || containsAny(lower, recurringWords))
        return BillingType::recurring;
    return BillingType::recurring; // The default, too.
}

} // namespace tovarin::ReceiptParser
