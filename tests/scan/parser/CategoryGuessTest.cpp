// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/parser/CategoryGuess.h"

#include "model/Format.h"
#include "tests/scan/parser/WordLists.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::ReceiptParser {

TEST(GuessCategory, KnowsEveryWordInTheNameAndInTheText) {
    for (const auto &[category, words] : wordlists::categoryWords) {
        for (const QString &word : words) {
            // The cloud of this music service counts as a cloud first.
            const QString expected = word == u"网易云" ? u"云存储"_s : category;
            EXPECT_EQ(guessCategory(word, u""_s), expected) << word.toStdString();
            EXPECT_EQ(guessCategory(u""_s, word), expected) << word.toStdString();
            EXPECT_EQ(guessCategory(u"x"_s, u"1"_s + word.toUpper() + u"2"_s), expected)
                << word.toStdString();
        }
        EXPECT_TRUE(std::ranges::count(Format::categories, QStringView(category)) == 1);
    }
}

TEST(GuessCategory, TriesTheGroupsInOrderWhereverTheirWordsStand) {
    const auto &groups = wordlists::categoryWords;
    for (qsizetype first = 0; first < groups.size(); ++first) {
        for (qsizetype second = first + 1; second < groups.size(); ++second) {
            for (const QString &word : groups[first].words) {
                for (const QString &other : groups[second].words) {
                    if (word == u"网易云" || other == u"网易云")
                        continue;
                    EXPECT_EQ(guessCategory(other, word), groups[first].category)
                        << other.toStdString() << ' ' << word.toStdString();
                    EXPECT_EQ(guessCategory(word, other), groups[first].category)
                        << other.toStdString() << ' ' << word.toStdString();
                }
            }
        }
    }
}

TEST(GuessCategory, JoinsNameAndTextWithOneSpace) {
    EXPECT_EQ(guessCategory(u"PS"_s, u"Plus"_s), u"游戏"_s);
    EXPECT_EQ(guessCategory(u"a"_s, u"i"_s), u"其他"_s);
    EXPECT_EQ(guessCategory(u""_s, u""_s), u"其他"_s);
    EXPECT_EQ(guessCategory(u"健身房"_s, u"健身房\n¥300"_s), u"其他"_s);
}

/// So most English bills end up here.
TEST(GuessCategory, FindsTheTwoLettersInsideOtherWords) {
    EXPECT_EQ(guessCategory(u"Spotify"_s, u"Spotify\nPaid by e-mail"_s), u"AI/工具"_s);
    EXPECT_EQ(guessCategory(u"Netflix"_s, u"Netflix\nDetails"_s), u"AI/工具"_s);
    EXPECT_EQ(guessCategory(u"Netflix"_s, u"Netflix Premium"_s), u"影音"_s);
}

} // namespace tovarin::ReceiptParser
