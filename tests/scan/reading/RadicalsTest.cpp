// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/reading/Radicals.h"

#include "tests/support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

TEST(RadicalsTest, BecomeTheIdeographsTheyLookLike) {
    EXPECT_EQ(withoutRadicals(u"⽀付时间 2025年3⽉8⽇"_s), u"支付时间 2025年3月8日"_s);
    EXPECT_EQ(withoutRadicals(u"⻚⻅"_s), u"页见"_s);
}

TEST(RadicalsTest, DoSoAtTheEndsOfBothBlocks) {
    EXPECT_EQ(withoutRadicals(u"\u2E81\u2EF3\u2F00\u2FD5"_s), u"\u5382\u9F9F\u4E00\u9FA0"_s);
}

TEST(RadicalsTest, MayStandForAnIdeographOutsideTheBasicPlane) {
    EXPECT_EQ(withoutRadicals(u"a\u2E87b"_s), u"a\U00020628b"_s);
}

TEST(RadicalsTest, StayWhereUnicodeKnowsNoIdeograph) {
    const QString text = u"\u2E80\u2E9A\u2EF4\u2EFF\u2FD6\u2FDF"_s;
    EXPECT_EQ(withoutRadicals(text), text);
}

/// All that NFKC would change as well, and the neighbours of the two blocks.
TEST(RadicalsTest, AreAllThatIsTouched) {
    const QString text =
        u"\u2E7F\u2FE0\u2FF0\u31C6：￥！Ａ①㎏ﬁ\u00A0\u3000月🧾\xD800"_s;
    EXPECT_EQ(withoutRadicals(text), text);
    EXPECT_EQ(withoutRadicals(QString()), QString());
}

/// The whole block, by an independent source.
TEST(RadicalsTest, OfKangxiAreWhatCompatibilityNormalisationGives) {
    for (char16_t radical = 0x2F00; radical <= 0x2FD5; ++radical) {
        const QString text{QChar(radical)};
        EXPECT_EQ(withoutRadicals(text), text.normalized(QString::NormalizationForm_KC));
    }
}

} // namespace tovarin
