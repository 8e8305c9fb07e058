// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "model/Format.h"

#include "tests/support/LanguageScope.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::Literals::StringLiterals;
using Lang = tovarin::LocalizationManager::Lang;

namespace tovarin {

TEST(FormatMoney, RoundsToCentsAndDropsTheFractionOfWholeAmounts) {
    struct {
        double amount;
        QString currency;
        QString text;
    } const cases[] = {
        {25, u"CNY"_s, u"¥25"_s},
        {0, u"USD"_s, u"$0"_s},
        {-0.0, u"USD"_s, u"$0"_s},
        {-3, u"CNY"_s, u"¥-3"_s},
        {9.99, u"USD"_s, u"$9.99"_s},
        {0.5, u"EUR"_s, u"€0.50"_s},
        {-0.5, u"GBP"_s, u"£-0.50"_s},
        {12.3, u"HKD"_s, u"HK$12.30"_s},
        {1500, u"JPY"_s, u"¥1500"_s},
        {12000, u"CNY"_s, u"¥12000"_s},
        {1234567.891, u"USD"_s, u"$1234567.89"_s},
        {100000, u"CNY"_s, u"¥100000"_s},
        {5, u"chf"_s, u"chf5"_s},
        {5, u"usd"_s, u"$5"_s},
        {5, QString(), u"5"_s},
        // Rounded up to a whole number.
        {9.999, u"USD"_s, u"$10"_s},
        {-9.999, u"USD"_s, u"$-10"_s},
        {9.994, u"USD"_s, u"$9.99"_s},
        // Halves away from zero, of the product as a double.
        {12.345, u"CNY"_s, u"¥12.35"_s},
        {-12.345, u"CNY"_s, u"¥-12.35"_s},
        {0.125, u"CNY"_s, u"¥0.13"_s},
        {-0.125, u"CNY"_s, u"¥-0.13"_s},
        {1.005, u"CNY"_s, u"¥1"_s},    // × 100 is 100.49999999999999
        {2.675, u"CNY"_s, u"¥2.68"_s}, // × 100 is 267.5
        {0.1 + 0.2, u"CNY"_s, u"¥0.30"_s},
        {0.004, u"CNY"_s, u"¥0"_s},
        {-0.004, u"CNY"_s, u"¥0"_s},
        {0.005, u"CNY"_s, u"¥0.01"_s},
        {5e-324, u"CNY"_s, u"¥0"_s},
        {1e21, u"CNY"_s, u"¥999999999999999868928"_s},
        {9007199254740992, u"CNY"_s, u"¥9007199254740992"_s},
    };
    for (const auto &c : cases)
        EXPECT_EQ(Format::money(c.amount, c.currency), c.text) << c.amount;
}

TEST(FormatMoney, WritesTheLargestDouble) {
    const QString text = Format::money(std::numeric_limits<double>::max(), u"USD"_s);
    EXPECT_EQ(text.size(), 310);
    EXPECT_TRUE(text.startsWith(u"$17976931348623157"_s)) << text.toStdString();
}

TEST(FormatMoney, DoesNotDependOnTheLanguage) {
    for (const Lang lang : {Lang::zh, Lang::en}) {
        const LanguageScope scope(lang);
        EXPECT_EQ(Format::money(9.99, u"USD"_s), u"$9.99"_s);
    }
}

TEST(FormatBase, ShowsYuanInChineseAndDollarsInEnglish) {
    struct {
        double amount;
        QString zh;
        QString en;
    } const cases[] = {
        {100, u"¥100"_s, u"$13.89"_s},     {0, u"¥0"_s, u"$0"_s},      {7.2, u"¥7.20"_s, u"$1"_s},
        {720, u"¥720"_s, u"$100"_s},       {-36, u"¥-36"_s, u"$-5"_s}, {0.03, u"¥0.03"_s, u"$0"_s},
        {12.345, u"¥12.35"_s, u"$1.71"_s},
    };
    for (const auto &c : cases) {
        {
            const LanguageScope zh(Lang::zh);
            EXPECT_EQ(Format::base(c.amount), c.zh);
        }
        const LanguageScope en(Lang::en);
        EXPECT_EQ(Format::base(c.amount), c.en);
    }
}

TEST(FormatCategories, AreOfferedInThisOrder) {
    QStringList keys;
    for (const QStringView key : Format::categories)
        keys.append(key.toString());
    EXPECT_EQ(keys, (QStringList{u"AI/工具"_s, u"影音"_s, u"音乐"_s, u"云存储"_s, u"软件"_s,
                                 u"游戏"_s, u"阅读"_s, u"会员"_s, u"其他"_s}));
}

TEST(FormatCategories, HaveANameInBothLanguages) {
    const QList<std::pair<QString, QString>> names = {
        {u"AI/工具"_s, u"AI & Tools"_s}, {u"影音"_s, u"Video"_s},   {u"视频"_s, u"Video"_s},
        {u"音乐"_s, u"Music"_s},         {u"云存储"_s, u"Cloud"_s}, {u"软件"_s, u"Software"_s},
        {u"游戏"_s, u"Games"_s},         {u"阅读"_s, u"Reading"_s}, {u"会员"_s, u"Membership"_s},
        {u"其他"_s, u"Other"_s},         {u"健身"_s, u"健身"_s},    {u"Video"_s, u"Video"_s},
        {u"ai/工具"_s, u"ai/工具"_s},    {QString(), QString()},
    };
    for (const auto &[key, english] : names) {
        {
            const LanguageScope zh(Lang::zh);
            EXPECT_EQ(Format::categoryDisplay(key), key);
        }
        const LanguageScope en(Lang::en);
        EXPECT_EQ(Format::categoryDisplay(key), english);
    }
}

} // namespace tovarin
