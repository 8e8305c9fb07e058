// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/parser/Expression.h"

#include "tests/support/Printing.h"

#include <QString>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::ReceiptParser {

TEST(Expression, MatchesNothingWhenItCannotBeBuilt) {
    for (const QStringView pattern : {u"(", u"[a", u"a{2,1}", u"\\p{NoSuchThing}"}) {
        const Expression expression(pattern);
        Search search(expression);
        EXPECT_FALSE(search.isIn(u"a"));
        EXPECT_FALSE(search.isIn(u""));
        EXPECT_FALSE(search.next());
    }
}

TEST(Expression, GivesItsMatchesFromLeftToRightInUtf16Units) {
    const Expression expression(u"(x)([0-9])?");
    Search search(expression);
    const QString text = u"📷x1 x…xx2"_s;
    search.begin(text);
    ASSERT_TRUE(search.next());
    EXPECT_EQ(search.start(), 2);
    EXPECT_EQ(search.end(), 4);
    EXPECT_EQ(search.group(2), u"1");
    ASSERT_TRUE(search.next());
    EXPECT_EQ(search.start(), 5);
    EXPECT_EQ(search.group(1), u"x");
    ASSERT_TRUE(search.next());
    EXPECT_EQ(search.start(), 7);
    ASSERT_TRUE(search.next());
    EXPECT_EQ(search.start(), 8);
    EXPECT_EQ(search.group(2), u"2");
    EXPECT_FALSE(search.next());
}

TEST(Expression, BeginsAnewWithEveryText) {
    const Expression expression(u"b");
    Search search(expression);
    EXPECT_TRUE(search.isIn(u"ab"));
    EXPECT_TRUE(search.isIn(u"b"));
    EXPECT_FALSE(search.isIn(u""));
    EXPECT_FALSE(search.isIn(QStringView()));
    EXPECT_TRUE(search.isIn(u"bb"));
    EXPECT_TRUE(search.next());
    EXPECT_FALSE(search.next());
}

TEST(Expression, EndsWhereTheViewEnds) {
    const Expression expression(u"b$");
    Search search(expression);
    EXPECT_TRUE(search.isIn(QStringView(u"abc").first(2)));
    EXPECT_FALSE(search.isIn(QStringView(u"abc").first(1)));
}

TEST(Expression, MindsLetterCaseUnlessToldOtherwise) {
    const Expression minding(u"usd");
    EXPECT_FALSE(Search(minding).isIn(u"USD"));
    const Expression ignoring(u"usd", Expression::LetterCase::Ignored);
    EXPECT_TRUE(Search(ignoring).isIn(u"UsD"));
    EXPECT_TRUE(Search(ignoring).isIn(u"u\u017Fd"));
}

TEST(Expression, TakesBrokenSurrogatesAsCharacters) {
    const Expression expression(uR"(^.x.$)");
    EXPECT_TRUE(Search(expression).isIn(u"\xD83Dx\xDCF7"));
    EXPECT_TRUE(Search(expression).isIn(u"📷x📷"));
    EXPECT_FALSE(Search(expression).isIn(u"\xD83D\xD83Dx\xDCF7"));
}

} // namespace tovarin::ReceiptParser
