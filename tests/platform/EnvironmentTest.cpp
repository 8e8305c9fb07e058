// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/Environment.h"

#include "tests/support/Printing.h"
#include "tests/support/VariableTable.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

TEST(LocaleName, TakesTheFirstVariableThatIsNotEmpty) {
    EXPECT_EQ(localeName(variables({}), "LC_TIME"), u"C"_s);
    EXPECT_EQ(localeName(variables({{"LANG", "de_DE.UTF-8"}}), "LC_TIME"), u"de_DE.UTF-8"_s);
    EXPECT_EQ(localeName(variables({{"LANG", "de_DE"}, {"LC_TIME", "fr_FR"}}), "LC_TIME"),
              u"fr_FR"_s);
    EXPECT_EQ(localeName(variables({{"LANG", "de_DE"}, {"LC_TIME", ""}}), "LC_TIME"), u"de_DE"_s);
    EXPECT_EQ(localeName(variables({{"LANG", "de_DE"}, {"LC_TIME", "fr_FR"}, {"LC_ALL", "C"}}),
                         "LC_TIME"),
              u"C"_s);
    EXPECT_EQ(localeName(variables({{"LANG", "de_DE"}, {"LC_TIME", "fr_FR"}}), "LC_MESSAGES"),
              u"de_DE"_s);
}

TEST(LocaleName, KnowsTheCLocale) {
    EXPECT_TRUE(isCLocale(u"C"_s));
    EXPECT_TRUE(isCLocale(u"POSIX"_s));
    EXPECT_TRUE(isCLocale(u"C.UTF-8"_s));
    EXPECT_FALSE(isCLocale(u"ca_ES"_s));
    EXPECT_FALSE(isCLocale(u"Co"_s));
    EXPECT_FALSE(isCLocale(QString()));
}

TEST(LanguageTag, FollowsTheLocaleName) {
    const QList<std::pair<QString, QString>> cases = {
        {u"zh_CN.UTF-8"_s, u"zh-CN"_s},
        {u"zh_TW"_s, u"zh-TW"_s},
        {u"zh_Hans_CN"_s, u"zh-Hans-CN"_s},
        {u"en_GB.ISO-8859-1"_s, u"en-GB"_s},
        {u"de_DE@euro"_s, u"de-DE"_s},
        {u"de_DE.UTF-8@euro"_s, u"de-DE"_s},
        {u"sr_RS@latin"_s, u"sr-Latn-RS"_s},
        {u"uz_UZ.UTF-8@cyrillic"_s, u"uz-Cyrl-UZ"_s},
        {u"sd_IN@devanagari"_s, u"sd-Deva-IN"_s},
        {u"eo"_s, u"eo"_s},
        {u"C"_s, QString()},
        {u"C.UTF-8"_s, QString()},
        {u"POSIX"_s, QString()},
        {QString(), QString()},
    };
    for (const auto &[name, tag] : cases)
        EXPECT_EQ(languageTag(name), tag) << name.toStdString();
}

TEST(ProcessEnvironment, ReadsTheProcess) {
    qputenv("TOVARIN_TEST_VARIABLE", "value");
    EXPECT_EQ(processEnvironment()("TOVARIN_TEST_VARIABLE"), "value");
    qunsetenv("TOVARIN_TEST_VARIABLE");
    EXPECT_EQ(processEnvironment()("TOVARIN_TEST_VARIABLE"), QByteArray());
}

} // namespace tovarin
