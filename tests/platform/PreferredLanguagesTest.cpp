// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/PreferredLanguages.h"

#include "tests/support/Printing.h"
#include "tests/support/VariableTable.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

TEST(PreferredLanguages, AreEmptyInTheCLocale) {
    EXPECT_EQ(preferredLanguages(variables({})), QStringList());
    EXPECT_EQ(preferredLanguages(variables({{"LANG", "C"}})), QStringList());
    EXPECT_EQ(preferredLanguages(variables({{"LANG", "C.UTF-8"}})), QStringList());
}

TEST(PreferredLanguages, TakeTheMessagesLocale) {
    EXPECT_EQ(preferredLanguages(variables({{"LANG", "zh_CN.UTF-8"}})), QStringList{u"zh-CN"_s});
    EXPECT_EQ(preferredLanguages(variables({{"LANG", "zh_CN.UTF-8"}, {"LC_MESSAGES", "en_US"}})),
              QStringList{u"en-US"_s});
    EXPECT_EQ(preferredLanguages(variables(
                  {{"LANG", "zh_CN.UTF-8"}, {"LC_MESSAGES", "en_US"}, {"LC_ALL", "fr_FR"}})),
              QStringList{u"fr-FR"_s});
    EXPECT_EQ(preferredLanguages(variables({{"LANG", "en_US"}, {"LC_TIME", "zh_CN"}})),
              QStringList{u"en-US"_s});
}

TEST(PreferredLanguages, PutLanguageBeforeTheLocale) {
    EXPECT_EQ(preferredLanguages(variables({{"LANG", "en_GB.UTF-8"}, {"LANGUAGE", "zh_TW:fr"}})),
              (QStringList{u"zh-TW"_s, u"fr"_s, u"en-GB"_s}));
    EXPECT_EQ(preferredLanguages(variables({{"LC_ALL", "en_GB"}, {"LANGUAGE", "zh_CN"}})),
              (QStringList{u"zh-CN"_s, u"en-GB"_s}));
    EXPECT_EQ(preferredLanguages(variables({{"LANG", "en_GB"}, {"LANGUAGE", "::fr::"}})),
              (QStringList{u"fr"_s, u"en-GB"_s}));
    EXPECT_EQ(preferredLanguages(variables({{"LANG", "en_GB"}, {"LANGUAGE", "en_GB:fr"}})),
              (QStringList{u"en-GB"_s, u"fr"_s}));
    EXPECT_EQ(preferredLanguages(variables({{"LANG", "C.UTF-8"}, {"LANGUAGE", "zh_CN"}})),
              QStringList{u"zh-CN"_s});
}

TEST(PreferredLanguages, IgnoreLanguageInTheCLocale) {
    EXPECT_EQ(preferredLanguages(variables({{"LANGUAGE", "zh_CN"}})), QStringList());
    EXPECT_EQ(preferredLanguages(variables({{"LC_ALL", "C"}, {"LANGUAGE", "zh_CN"}})),
              QStringList());
    EXPECT_EQ(preferredLanguages(variables({{"LANG", "POSIX"}, {"LANGUAGE", "zh_CN"}})),
              QStringList());
}

TEST(PreferredLanguages, EndWhereLanguageAsksForTheUntranslatedTexts) {
    EXPECT_EQ(preferredLanguages(variables({{"LANG", "zh_CN"}, {"LANGUAGE", "C"}})), QStringList());
    EXPECT_EQ(preferredLanguages(variables({{"LANG", "zh_CN"}, {"LANGUAGE", "fr:C:de"}})),
              QStringList{u"fr"_s});
}

} // namespace tovarin
