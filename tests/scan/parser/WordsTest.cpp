// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/parser/Words.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>
#include <unicode/locid.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::ReceiptParser {

TEST(LowerCased, IsTheSameInEveryLocale) {
    const icu::Locale before;
    for (const char *locale : {"tr_TR", "az_AZ", "lt_LT"}) {
        UErrorCode status = U_ZERO_ERROR;
        icu::Locale::setDefault(icu::Locale(locale), status);
        EXPECT_EQ(lowerCased(u"PAID IN ÌÍ"_s), u"paid in ìí"_s) << locale;
    }
    UErrorCode status = U_ZERO_ERROR;
    icu::Locale::setDefault(before, status);
}

TEST(LowerCased, MapsWhateverHasALowerCase) {
    struct {
        QString text;
        QString lower;
    } const cases[] = {
        {u""_s, u""_s},
        {QString(), u""_s},
        {u"TOTAL Amount 合计"_s, u"total amount 合计"_s},
        {u"ÄÖÜ ÉÑ"_s, u"äöü éñ"_s},
        {u"QQ音乐 ＱＱ"_s, u"qq音乐 ｑｑ"_s},
        // The dotted capital I becomes two units, and grows the text.
        {u"İ"_s, u"i\u0307"_s},
        {u"İİİİ PAİD"_s, u"i\u0307i\u0307i\u0307i\u0307 pai\u0307d"_s},
        {u"I ı"_s, u"i ı"_s},
        // A sigma at the end of a word has a form of its own.
        {u"ΣΑΣ Σ"_s, u"σας σ"_s},
        {u"\u212A \u1E9E Ǆ"_s, u"k ß ǆ"_s},
        {u"𐐀𝕬"_s, u"𐐨𝕬"_s},
        {u"A\xD800Z\xDC00"
         u"B"_s,
         u"a\xD800z\xDC00"
         u"b"_s},
    };
    for (const auto &[text, lower] : cases)
        EXPECT_EQ(lowerCased(text), lower) << text.toStdString();
}

TEST(LowerCased, IsQtsLowerCasingForEverySingleCharacter) {
    for (char32_t c = 0; c <= 0x10FFFF; ++c) {
        const QString text = QString::fromUcs4(&c, 1);
        ASSERT_EQ(lowerCased(text), text.toLower()) << std::hex << static_cast<unsigned>(c);
    }
}

TEST(ContainsAny, FindsAWordAnywhereAndMindsLetterCase) {
    constexpr Word words[] = {u"tax", u"合计"};
    EXPECT_TRUE(containsAny(u"tax", words));
    EXPECT_TRUE(containsAny(u"syntax", words));
    EXPECT_TRUE(containsAny(u"总合计：", words));
    EXPECT_FALSE(containsAny(u"Tax", words));
    EXPECT_FALSE(containsAny(u"ta x合 计", words));
    EXPECT_FALSE(containsAny(u"", words));
    EXPECT_FALSE(containsAny(u"tax", {}));
    // Other units of the same remainders by 64.
    EXPECT_FALSE(containsAny(u"\u01B4\u01A1\u01B8", words));
    EXPECT_TRUE(containsAny(QString(1'000'000, u'x') + u"合计"_s, words));
}

} // namespace tovarin::ReceiptParser
