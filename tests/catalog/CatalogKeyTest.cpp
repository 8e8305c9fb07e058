// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "catalog/CatalogKey.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

constexpr qsizetype all = 1'000'000;

QString keyOf(const QString &name) {
    return catalogKey(name, all);
}

} // namespace

TEST(CatalogKeyTest, IsInLowerCaseWithoutBlanksPunctuationAndSymbols) {
    EXPECT_EQ(keyOf(u"Chat GPT"_s), u"chatgpt"_s);
    EXPECT_EQ(keyOf(u"  iCloud+ · 200GB\t"_s), u"icloud200gb"_s);
    EXPECT_EQ(keyOf(u"a-b_c.d/e\u00A0f\u3000g，h。i€j😀k\nl"_s), u"abcdefghijkl"_s);
    EXPECT_EQ(keyOf(u"+ - ·"_s), QString());
    EXPECT_EQ(keyOf({}), QString());
}

TEST(CatalogKeyTest, KeepsLettersMarksAndNumbersOfEveryScript) {
    EXPECT_EQ(keyOf(u"芒果 TV 会员"_s), u"芒果tv会员"_s);
    EXPECT_EQ(keyOf(u"ЯНДЕКС Плюс"_s), u"яндексплюс"_s);
    EXPECT_EQ(keyOf(u"e\u0301 हिन्दी ٣ Ⅷ ½"_s), u"e\u0301हिन्दी٣ⅷ½"_s);
    EXPECT_EQ(keyOf(u"𝐀 𠀀 𐐀"_s), u"𝐀𠀀𐐨"_s);
    // Whatever the language of the system.
    EXPECT_EQ(keyOf(u"III İ"_s), u"iiii\u0307"_s);
}

TEST(CatalogKeyTest, BearsLoneSurrogates) {
    EXPECT_EQ(keyOf(u"a"_s + QChar(0xD83D) + u"b"_s + QChar(0xDE00)), u"ab"_s);
}

TEST(CatalogKeyTest, IsTheSameWhereverTheNameIsCut) {
    for (int before = 50; before < 70; ++before) {
        const QString start(before, u'A');
        EXPECT_EQ(keyOf(start + u"𐐀 Z"_s), start.toLower() + u"𐐨z"_s) << before;
    }
}

TEST(CatalogKeyTest, EndsSoonAfterEnough) {
    const QString name = QString(10'000, u'-') + QString(1'000'000, u'x');
    const QString key = catalogKey(name, 20);
    EXPECT_GE(key.size(), 20);
    EXPECT_LT(key.size(), 200);
    EXPECT_EQ(key, QString(key.size(), u'x'));
}

} // namespace tovarin
