// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/parser/NameFinder.h"

#include "tests/scan/parser/Naive.h"
#include "tests/scan/parser/WordLists.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::ReceiptParser {

namespace {

/// Five lines that are noise: what follows is not among the first.
const QString fiveLines = u"合计\n合计\n合计\n合计\n合计\n"_s;

/// A letter that earns no line a point.
const QString plain = u"Ж"_s;

} // namespace

TEST(DetectName, HasNoneWithoutALineForIt) {
    for (const QString &text :
         {u""_s, u"\n\n\n"_s, u" \n\t\n\u3000"_s, u"a"_s, u"合计 ¥45.00\n2025-03-08"_s, u"¥45.00"_s,
          u"—·—"_s, u"Individual plan"_s, QString(31, u'a'), u"a\nb\nc"_s})
        EXPECT_EQ(detectName(text), std::nullopt) << text.toStdString();
}

TEST(DetectName, IsTheLineWithoutPricesAndWhatIsAroundIt) {
    struct {
        QString line;
        QString name;
    } const cases[] = {
        {u"Netflix Premium"_s, u"Netflix Premium"_s},
        {u"  \t\u00A0\u3000Netflix\u2003 "_s, u"Netflix"_s},
        {u"Netflix ¥45.00"_s, u"Netflix"_s},
        {u"¥45.00 Netflix"_s, u"Netflix"_s},
        {u"Net¥4flix"_s, u"Netflix"_s},
        {u"Netflix $ 5 €6.5£7"_s, u"Netflix"_s},
        {u"Netflix ￥\u00A045"_s, u"Netflix"_s},
        {u"Netflix ¥12.345"_s, u"Netflix 5"_s},
        {u"Netflix 45.00"_s, u"Netflix 45.00"_s},
        {u"Netflix 45元"_s, u"Netflix 45元"_s},
        {u"Netflix HK$45"_s, u"Netflix HK"_s},
        {u"Netflix ¥"_s, u"Netflix ¥"_s},
        {u"·-—Netflix：：, ，"_s, u"Netflix"_s},
        {u"-- Net - flix --"_s, u"Net - flix"_s},
        {u"Netflix: ¥45 -"_s, u"Netflix"_s},
        // What is not cut off.
        {u"(Netflix)."_s, u"(Netflix)."_s},
        {u"Netflix\r"_s, u"Netflix\r"_s},
        {u"\u2028Netflix\u0085"_s, u"\u2028Netflix\u0085"_s},
        {u"\u200BNetflix"_s, u"\u200BNetflix"_s},
        {u"Netflix–"_s, u"Netflix–"_s},
        // Of the blanks only the space counts once the price is gone.
        {u"Netflix\t¥45"_s, u"Netflix\t"_s},
        {u"Netflix\u3000¥45"_s, u"Netflix\u3000"_s},
        {u"Netflix\r\n"_s, u"Netflix\r"_s},
    };
    for (const auto &[line, name] : cases) {
        EXPECT_EQ(detectName(line), name) << line.toStdString();
        EXPECT_EQ(naive::detectName(line), name) << line.toStdString();
    }
}

TEST(DetectName, PrefersEveryBrandToAPlainLine) {
    const QString plainLine = u"Some 网 line"_s;
    for (const QString &brand : wordlists::brands) {
        // This brand never makes it into a name: the "id" in it is a label.
        const bool isNoise = brand == u"midjourney";
        for (const QString &written : {brand, brand.toUpper(), u"x"_s + brand + u"x"_s})
            EXPECT_EQ(detectName(plainLine + u'\n' + written), isNoise ? plainLine : written)
                << brand.toStdString();
    }
}

TEST(DetectName, PrefersEveryPlanWordToAPlainLine) {
    for (const QString &word : wordlists::planWords) {
        const QString line = plain + word.toUpper();
        EXPECT_EQ(detectName(u"Some 网 line\n"_s + line), line) << word.toStdString();
    }
    // Two of them are worth no more than one.
    EXPECT_EQ(detectName(u"VIP\nPremium Plus Pro"_s), u"VIP"_s);
}

/// Each point decides between two lines that are otherwise equal or one point apart.
TEST(DetectName, AddsThePoints) {
    struct {
        const char *what;
        QString text;
        QString name;
    } const cases[] = {
        {"a brand (5+1) beats a plan (3+1)", u"Some plan\nHBO"_s, u"HBO"_s},
        {"a brand (5+1) loses to a plan with a domain (3+3+1)", u"HBO\nplan x.io"_s,
         u"plan x.io"_s},
        {"a brand (5+1) loses to a brand with a plan (5+3+1)", u"HBO\nHBO Plus"_s, u"HBO Plus"_s},
        {"a domain (3+1) beats two scripts (1+1)", u"Some 网\nSome x.io"_s, u"Some x.io"_s},
        {"a domain (3+1) equals a plan (3+1)", u"Some x.io\nSome plan"_s, u"Some x.io"_s},
        {"Chinese and Latin (1+1) beats Latin", u"Some\nSome 网"_s, u"Some 网"_s},
        {"Chinese and Latin (1+1) beats Chinese", u"某服务\n某 Z 服务"_s, u"某 Z 服务"_s},
        {"Chinese equals Latin", u"某服务\nSome"_s, u"某服务"_s},
        {"Latin equals Chinese", u"Some\n某服务"_s, u"Some"_s},
        {"either beats neither", u"Жж\nSome"_s, u"Some"_s},
        {"an account name (1-2) loses to a plain line", u"some_one\nЖж"_s, u"Жж"_s},
        {"a brand like an account name (5+1-2) equals a plan (3+1)", u"netflix\nSome plan"_s,
         u"netflix"_s},
        {"and loses to a plan with Chinese (3+1+1)", u"netflix\nSome 会员"_s, u"Some 会员"_s},
    };
    for (const auto &[what, text, name] : cases) {
        EXPECT_EQ(detectName(text), name) << what;
        EXPECT_EQ(naive::detectName(text), name) << what;
    }
}

TEST(DetectName, KnowsDomains) {
    for (const QString &end : {u"com"_s, u"net"_s, u"io"_s, u"app"_s, u"co"_s, u"cn"_s, u"org"_s}) {
        for (const QString &start : {u"Foo-1"_s, u"-"_s, u"9"_s}) {
            const QString line = u"Ж "_s + start + u'.' + end;
            EXPECT_EQ(detectName(u"Some 网\n"_s + line), line) << line.toStdString();
        }
    }
    for (const QString &line : {u"Foo.de"_s, u"Foo.Com"_s, u"Foo .com"_s, u"Foo。com"_s, u"_.io"_s,
                                u".com"_s, u"Foocom"_s})
        EXPECT_EQ(detectName(u"Some 网\nЖ "_s + line), u"Some 网"_s) << line.toStdString();
}

TEST(DetectName, GivesAPointToTheFirstFiveLines) {
    // The sixth line has two points for its scripts; up to the fifth, "Some" has two as well.
    EXPECT_EQ(detectName(u"合计\n合计\n合计\n合计\nSome\nSome 网"_s), u"Some"_s);
    EXPECT_EQ(detectName(u"合计\n合计\n合计\n合计\n合计\nSome\nSome 网"_s), u"Some 网"_s);
    // Empty pieces are no lines, blank ones are.
    EXPECT_EQ(detectName(u"\n合计\n\n\n合计\n合计\n合计\n\nSome\nSome 网"_s), u"Some"_s);
    EXPECT_EQ(detectName(u" \n合计\n\t\n合计\n合计\nSome\nSome 网"_s), u"Some 网"_s);
    EXPECT_EQ(detectName(u"\r\n合计\n\r\n合计\n合计\nSome\nSome 网"_s), u"Some 网"_s);
}

TEST(DetectName, KnowsEveryChineseCharacter) {
    // Beyond the first block of them, too; the plain line above is only fallen back on.
    for (const QString &name : {u"㐀㐁"_s, u"𠀀𠀁"_s, u"〇〇"_s, u"豈更"_s})
        EXPECT_EQ(detectName(u"合计\n合计\n合计\n合计\n合计\nЖЖ\n"_s + name), name)
            << name.toStdString();
}

TEST(DetectName, TakesTheEarliestOfEqualLines) {
    EXPECT_EQ(detectName(u"Netflix\nSpotify"_s), u"Netflix"_s);
    EXPECT_EQ(detectName(u"Spotify\nNetflix"_s), u"Spotify"_s);
    EXPECT_EQ(detectName(u"Some\nNetflix\nSpotify Plus\nHBO Pro"_s), u"Spotify Plus"_s);
}

TEST(DetectName, NeverTakesNoise) {
    EXPECT_EQ(detectName(u"Netflix Order\nSome"_s), u"Some"_s);
    EXPECT_EQ(detectName(u"Dear Netflix\nIndividual Spotify plan\nabcdef-1234 hbo\nSome"_s),
              u"Some"_s);
    // Noise only once the price is gone, or only with it.
    EXPECT_EQ(detectName(u"2025 ¥45 12:30\nSome"_s), u"Some"_s);
    EXPECT_EQ(detectName(u"¥5abcdef-1234\nSome"_s), u"Some"_s);
}

TEST(DetectName, AllowsThirtyCharactersToAScoredLine) {
    for (const QString &letter : {u"Q"_s, u"网"_s, u"e\u0301"_s, u"👨\u200D👩\u200D👧网"_s.first(8)}) {
        const QString thirty = u"ЖЖ"_s + letter.repeated(28);
        EXPECT_EQ(detectName(thirty), thirty) << thirty.toStdString();
        EXPECT_EQ(detectName(thirty + letter), std::nullopt) << thirty.toStdString();
        EXPECT_EQ(detectName(thirty + letter + u"¥45"_s), std::nullopt) << thirty.toStdString();
        EXPECT_EQ(detectName(u"- "_s + thirty + u" ¥45 -"_s), thirty) << thirty.toStdString();
    }
    EXPECT_EQ(detectName(u"网"_s), std::nullopt);
    EXPECT_EQ(detectName(u"网络"_s), u"网络"_s);
    EXPECT_EQ(detectName(u"👨\u200D👩\u200D👧"_s), std::nullopt);
    EXPECT_EQ(detectName(u"e\u0301"_s), std::nullopt);
    EXPECT_EQ(detectName(u"e\u0301e"_s), u"e\u0301e"_s);
}

TEST(DetectName, FallsBackOnTheFirstLineOfUpTo24Characters) {
    EXPECT_EQ(detectName(u"user_12345abc"_s), u"user_12345abc"_s);
    EXPECT_EQ(detectName(u"user_12345abc\nuser_2"_s), u"user_12345abc"_s);
    EXPECT_EQ(detectName(u"合计 ¥45\nuser_12345abc\n合计"_s), u"user_12345abc"_s);
    // A line that scores comes first, however late.
    EXPECT_EQ(detectName(u"user_12345abc\n"_s + fiveLines + u"Some"_s), u"Some"_s);

    for (const QString &letter : {plain, u"Ж\u0301"_s}) {
        const QString longest = letter.repeated(24);
        EXPECT_EQ(detectName(fiveLines + longest), longest);
        EXPECT_EQ(detectName(fiveLines + longest + letter), std::nullopt);
        EXPECT_EQ(detectName(fiveLines + longest + letter + u'\n' + letter + letter),
                  letter + letter);
        EXPECT_EQ(detectName(fiveLines + letter), std::nullopt);
        // Among the first five the same line scores, and may be longer.
        EXPECT_EQ(detectName(longest + letter), longest + letter);
    }
    // A code of 25 to 30 characters has no point left, and none for its place.
    EXPECT_EQ(detectName(QString(24, u'q')), QString(24, u'q'));
    EXPECT_EQ(detectName(QString(25, u'q')), std::nullopt);
    EXPECT_EQ(detectName(QString(25, u'Q')), QString(25, u'Q'));
}

TEST(DetectName, KnowsAccountNames) {
    // One point for Latin, one for the place, two off: the line behind wins with its one point.
    for (const QString &line :
         {u"abcde"_s, u"a.b-c_d9"_s, u"-bcde"_s.mid(1) + u"e"_s, u"12345a"_s, u"abcde\r"_s})
        EXPECT_EQ(detectName(line + u'\n' + fiveLines + u"Some"_s), u"Some"_s)
            << line.toStdString();
    for (const QString &line : {u"abcd"_s, u"Abcde"_s, u"abc de"_s, u"abcde!"_s, u"äbcde"_s})
        EXPECT_EQ(detectName(line + u'\n' + fiveLines + u"Some"_s), line) << line.toStdString();
}

TEST(DetectName, GetsThroughMillionsOfUnits) {
    EXPECT_EQ(detectName(QString(1'000'000, u'\n') + u"Some"_s), u"Some"_s);
    EXPECT_EQ(detectName(QString(1'000'000, u' ') + u"Some"_s), u"Some"_s);
    EXPECT_EQ(detectName(QString(1'000'000, u'-') + u"Some"_s), u"Some"_s);
    EXPECT_EQ(detectName(QString(1'000'000, u'a') + u"\nSome"_s), u"Some"_s);
    EXPECT_EQ(detectName(u"$1"_s.repeated(500'000) + u"Some"_s), u"Some"_s);
    EXPECT_EQ(detectName(u'$' + QString(1'000'000, u'1') + u"Some"_s), u"Some"_s);
    const QString marks = u"Some"_s + QString(1'000'000, QChar(0x0301));
    EXPECT_EQ(detectName(marks), marks);
}

TEST(DetectName, FindsWhatTheRuleFindsStepByStep) {
    const QStringList pieces = {
        u"\n"_s,       u"\n"_s,      u"\n"_s,     u"\n\n"_s,       u" "_s,           u"\t"_s,
        u"\r"_s,       u"-"_s,       u"：，"_s,   u"¥45.00"_s,     u"$ 9.999"_s,     u"合计"_s,
        u"Netflix"_s,  u"netflix"_s, u"爱奇艺"_s, u"Plus"_s,       u"会员"_s,        u"abcde"_s,
        u"x.com"_s,    u"Foo.io"_s,  u".co"_s,    u"网"_s,         u"Ж"_s,           u"ЖЖЖЖЖЖЖЖ"_s,
        u"QQQQQQQ"_s,  u"Hi "_s,     u"id"_s,     u"2025-03-08"_s, u"abcdef-0123"_s, u"e\u0301"_s,
        u"👨\u200D👩"_s, u"\xD83D"_s,  u"\xDCF7"_s, u"İ"_s,          u"\u2028"_s,      u"\u3000"_s};
    std::mt19937 random(31);
    int found = 0;
    for (int i = 0; i < 10'000; ++i) {
        const QString text = naive::randomText(random, pieces, 30);
        const std::optional<QString> expected = naive::detectName(text);
        ASSERT_EQ(detectName(text), expected) << text.toStdString();
        found += expected ? 1 : 0;
    }
    EXPECT_GT(found, 5'000);
    EXPECT_LT(found, 10'000);
}

} // namespace tovarin::ReceiptParser
