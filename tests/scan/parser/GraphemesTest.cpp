// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/parser/Graphemes.h"

#include <QString>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::ReceiptParser {

TEST(GraphemeCounter, CountsWhatPeopleSeeAsCharacters) {
    GraphemeCounter counter;
    struct {
        QString text;
        int count;
    } const cases[] = {
        {u""_s, 0},
        {u"a"_s, 1},
        {u"Netflix"_s, 7},
        {u"网易云"_s, 3},
        {u"e\u0301e\u0301"_s, 2},
        {u"a\r\nb"_s, 3},
        {u"a\rb"_s, 3},
        {u"📷📷"_s, 2},
        {u"👨\u200D👩\u200D👧"_s, 1},
        {u"👍🏽👍🏽"_s, 2},
        {u"🇨🇳🇯🇵🇫"_s, 3},
        {u"각\u1100\u1161\u11A8"_s, 2},
        {u"\u0301\u0301"_s, 1},
        {u"\xD800\xD800"_s, 2},
        {u"a\u200Db"_s, 2},
    };
    for (const auto &[text, count] : cases)
        EXPECT_EQ(counter.count(text, 30), count) << text.toStdString();
}

TEST(GraphemeCounter, StopsBehindItsLimit) {
    GraphemeCounter counter;
    EXPECT_EQ(counter.count(QString(30, u'a'), 30), 30);
    EXPECT_EQ(counter.count(QString(31, u'a'), 30), 31);
    EXPECT_EQ(counter.count(QString(1'000'000, u'a'), 30), 31);
    EXPECT_EQ(counter.count(u'a' + QString(1'000'000, QChar(0x0301)), 30), 1);
    EXPECT_EQ(counter.count(u"ab", 0), 1);
}

} // namespace tovarin::ReceiptParser
