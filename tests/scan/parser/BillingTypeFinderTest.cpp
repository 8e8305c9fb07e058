// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/parser/BillingTypeFinder.h"

#include "tests/scan/parser/WordLists.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::ReceiptParser {

TEST(DetectType, IsOneTimeForEveryOneTimeWord) {
    for (const bool hasCycle : {false, true}) {
        for (const QString &word : wordlists::oneTimeWords) {
            EXPECT_EQ(detectType(word, hasCycle), BillingType::oneTime) << word.toStdString();
            EXPECT_EQ(detectType(u"x"_s + word.toUpper() + u"x"_s, hasCycle), BillingType::oneTime)
                << word.toStdString();
            for (const QString &other : wordlists::recurringWords)
                EXPECT_EQ(detectType(other + word, hasCycle), BillingType::oneTime)
                    << other.toStdString() << ' ' << word.toStdString();
        }
    }
}

TEST(DetectType, IsRecurringForEveryOtherText) {
    for (const bool hasCycle : {false, true}) {
        for (const QString &word : wordlists::recurringWords)
            EXPECT_EQ(detectType(word, hasCycle), BillingType::recurring) << word.toStdString();
        for (const QString &text : {u""_s, u"¥45"_s, u"one time"_s, u"life-time"_s, u"一 次性"_s})
            EXPECT_EQ(detectType(text, hasCycle), BillingType::recurring) << text.toStdString();
    }
}

} // namespace tovarin::ReceiptParser
