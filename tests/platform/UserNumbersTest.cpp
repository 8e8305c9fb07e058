// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/UserNumbers.h"

#include "tests/support/Printing.h"
#include "tests/support/VariableTable.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

TEST(UserNumbers, AreWrittenAsTheLocaleWritesThem) {
    struct {
        const char *locale;
        double number;
        const char *text;
    } const cases[] = {
        {"en_US", 0, "0"},
        {"en_US", 9.99, "9.99"},
        {"en_US", 30, "30"},
        {"en_US", 1234.5, "1,234.5"},
        {"en_US", -1234567.25, "-1,234,567.25"},
        {"en_US", 0.1 + 0.2, "0.3"},
        {"en_US", 1.23456789, "1.234568"},
        {"en_US", 9007199254740992.0, "9,007,199,254,740,992"},
        {"zh_CN", 1234.5, "1,234.5"},
        {"de_DE", 1234.5, "1.234,5"},
        {"fr_FR", 1234.5, "1\u202F234,5"},
        {"de_CH", 1234.5, "1’234.5"},
        {"en_IN", 1234567.5, "12,34,567.5"},
        {"fa_IR", 12.5, "۱۲٫۵"},
        {"en_US_POSIX", 1234.5, "1234.5"},
    };
    for (const auto &[locale, number, text] : cases) {
        const UserNumbers numbers(QString::fromLatin1(locale));
        EXPECT_EQ(numbers.text(number), QString::fromUtf8(text)) << locale;
        EXPECT_NEAR(numbers.number(QString::fromUtf8(text)).value_or(-1), number, 1e-6) << locale;
    }
}

TEST(UserNumbers, AreReadAsAWhole) {
    struct {
        const char *locale;
        const char *text;
        std::optional<double> number;
    } const cases[] = {
        {"en_US", "12", 12},
        {"en_US", " 12.50 ", 12.5},
        {"en_US", "1234.5", 1234.5},
        {"en_US", ".5", 0.5},
        {"en_US", "5.", 5},
        {"en_US", "-3", -3},
        {"en_US", "007", 7},
        {"en_US", "１２.５", 12.5},
        {"en_US", "9,99", std::nullopt},
        {"en_US", "1.2.3", std::nullopt},
        {"en_US", "12x", std::nullopt},
        {"en_US", "x12", std::nullopt},
        {"en_US", "$12", std::nullopt},
        {"en_US", "1 2", std::nullopt},
        {"en_US", "", std::nullopt},
        {"en_US", "   ", std::nullopt},
        {"en_US", "-", std::nullopt},
        {"en_US", ".", std::nullopt},
        {"en_US", "NaN", std::nullopt},
        {"en_US", "∞", std::nullopt},
        {"en_US", "inf", std::nullopt},
        {"en_US", "1E400", std::nullopt},
        {"de_DE", "9,99", 9.99},
        {"de_DE", "1.234,5", 1234.5},
        {"de_DE", "9.99", std::nullopt},
        {"fr_FR", "1 234,5", 1234.5},
        {"zh_CN", "30", 30},
        {"en_US_POSIX", "1234.5", 1234.5},
        {"en_US_POSIX", "1,234.5", std::nullopt},
    };
    for (const auto &[locale, text, number] : cases)
        EXPECT_EQ(UserNumbers(QString::fromLatin1(locale)).number(QString::fromUtf8(text)), number)
            << locale << " " << text;
}

TEST(UserNumbers, BearAnyText) {
    const UserNumbers numbers(u"en_US"_s);
    EXPECT_EQ(numbers.number(QString(400, u'9')), std::nullopt);
    EXPECT_EQ(numbers.number(QString(1'000'000, u'9')), std::nullopt);
    EXPECT_EQ(numbers.number(QString(300, u'0') + u"7"_s), 7);
    EXPECT_EQ(numbers.number(QString(QChar(0xD800))), std::nullopt);
    EXPECT_EQ(numbers.number(QString(QChar(0))), std::nullopt);
    EXPECT_FALSE(numbers.text(std::numeric_limits<double>::infinity()).isEmpty());
    EXPECT_FALSE(numbers.text(std::numeric_limits<double>::max()).isEmpty());
}

TEST(UserNumbers, FollowTheEnvironment) {
    const auto text = [](const QMap<QByteArray, QByteArray> &table) {
        return UserNumbers::current(variables(table)).text(1234.5);
    };
    EXPECT_EQ(text({}), u"1234.5"_s);
    EXPECT_EQ(text({{"LANG", "de_DE.UTF-8"}}), u"1.234,5"_s);
    EXPECT_EQ(text({{"LANG", "de_DE.UTF-8"}, {"LC_NUMERIC", "en_US.UTF-8"}}), u"1,234.5"_s);
    EXPECT_EQ(text({{"LC_ALL", "C.UTF-8"}, {"LC_NUMERIC", "en_US.UTF-8"}}), u"1234.5"_s);
    EXPECT_EQ(text({{"LC_NUMERIC", "no such locale"}}).isEmpty(), false);
}

} // namespace tovarin
