// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "catalog/Avatar.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

TEST(AvatarTest, ShowsTheFirstCharacterInUpperCase) {
    EXPECT_EQ(avatarLetter(u"zoom"_s), u"Z"_s);
    EXPECT_EQ(avatarLetter(u"Zoom"_s), u"Z"_s);
    EXPECT_EQ(avatarLetter(u"健身房"_s), u"健"_s);
    EXPECT_EQ(avatarLetter(u"7-Eleven"_s), u"7"_s);
    EXPECT_EQ(avatarLetter(u"'quoted'"_s), u"'"_s);
    EXPECT_EQ(avatarLetter(u"ßeta"_s), u"SS"_s);
    // Whatever the language of the system.
    EXPECT_EQ(avatarLetter(u"ice"_s), u"I"_s);
}

TEST(AvatarTest, PassesOverBlanks) {
    EXPECT_EQ(avatarLetter(u"  zoom"_s), u"Z"_s);
    EXPECT_EQ(avatarLetter(u"\t\u00A0\u3000é"_s), u"É"_s);
}

TEST(AvatarTest, ShowsADotForAnEmptyName) {
    for (const QString &name : {u""_s, u"   "_s, u"\t\u3000"_s})
        EXPECT_EQ(avatarLetter(name), u"•"_s);
    // A line break is no blank.
    EXPECT_EQ(avatarLetter(u"\nx"_s), u"\n"_s);
}

TEST(AvatarTest, KeepsTogetherWhatPeopleSeeAsOneCharacter) {
    EXPECT_EQ(avatarLetter(u"e\u0301tudes"_s), u"E\u0301"_s);
    EXPECT_EQ(avatarLetter(u"👩‍👩‍👧‍👦 plan"_s), u"👩‍👩‍👧‍👦"_s);
    EXPECT_EQ(avatarLetter(u"🇨🇳🇫🇷"_s), u"🇨🇳"_s);
    EXPECT_EQ(avatarLetter(u"𐐨x"_s), u"𐐀"_s);
    EXPECT_EQ(avatarLetter(QString(QChar(0xD83D)) + u"x"_s), QString(QChar(0xD83D)));
}

} // namespace tovarin
