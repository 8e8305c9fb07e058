// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/LocalizationManager.h"

#include "tests/support/MemoryDefaults.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

using Lang = LocalizationManager::Lang;

namespace {

const QString key = u"appLanguage"_s;

LocalizationManager::PreferredLanguages prefer(const QStringList &languages) {
    return [languages] { return languages; };
}

} // namespace

TEST(LocalizationManager, OffersItsLanguagesInOrder) {
    QStringList raw;
    for (const Lang lang : LocalizationManager::allLangs)
        raw.append(LocalizationManager::rawValue(lang));
    EXPECT_EQ(raw, (QStringList{u"system"_s, u"en"_s, u"zh"_s}));
}

TEST(LocalizationManager, ReadsTheStoredSetting) {
    const QList<std::pair<QString, Lang>> cases = {
        {u"en"_s, Lang::en},      {u"zh"_s, Lang::zh},       {u"system"_s, Lang::system},
        {u"fr"_s, Lang::system},  {u"ZH"_s, Lang::system},   {u"zh-CN"_s, Lang::system},
        {u" zh"_s, Lang::system}, {QString(), Lang::system},
    };
    for (const auto &[stored, expected] : cases) {
        MemoryDefaults defaults({{key, stored}});
        const LocalizationManager manager(defaults, prefer({}));
        EXPECT_EQ(manager.lang(), expected) << stored.toStdString();
        EXPECT_EQ(defaults.values(), (QMap<QString, QString>{{key, stored}}));
    }
}

TEST(LocalizationManager, TakesSystemWithoutASettingAndWritesNothing) {
    MemoryDefaults defaults;
    const LocalizationManager manager(defaults, prefer({}));
    EXPECT_EQ(manager.lang(), Lang::system);
    EXPECT_TRUE(defaults.values().isEmpty());
}

TEST(LocalizationManager, FollowsTheFirstPreferredLanguage) {
    const QList<std::pair<QStringList, bool>> cases = {
        {{u"zh-Hant-TW"_s}, true},
        {{u"zh-Hans-CN"_s, u"en-US"_s}, true},
        {{u"ZH-hk"_s}, true},
        {{u"zh"_s}, true},
        {{u"en-GB"_s, u"zh-Hans"_s}, false},
        {{u"en-US"_s}, false},
        {{u"ja-JP"_s}, false},
        {{u"yue-Hant-HK"_s}, false},
        {{QString()}, false},
        {{}, false},
    };
    for (const auto &[languages, expected] : cases) {
        MemoryDefaults defaults;
        const LocalizationManager manager(defaults, prefer(languages));
        EXPECT_EQ(manager.isZh(), expected) << languages.join(u' ').toStdString();
    }
}

TEST(LocalizationManager, ObeysTheSettingWhateverTheSystemPrefers) {
    MemoryDefaults defaults;
    LocalizationManager manager(defaults, prefer({u"zh-CN"_s}));
    manager.setLang(Lang::en);
    EXPECT_FALSE(manager.isZh());
    manager.setLang(Lang::zh);
    EXPECT_TRUE(manager.isZh());

    LocalizationManager english(defaults, prefer({u"en-US"_s}));
    EXPECT_TRUE(english.isZh());
}

TEST(LocalizationManager, NeverCachesTheSystemsPreference) {
    MemoryDefaults defaults;
    QStringList languages = {u"en-US"_s};
    const LocalizationManager manager(defaults, [&languages] { return languages; });
    EXPECT_FALSE(manager.isZh());
    languages = {u"zh-CN"_s};
    EXPECT_TRUE(manager.isZh());
}

TEST(LocalizationManager, StoresEachAssignmentAtOnceForTheNextStart) {
    MemoryDefaults defaults;
    LocalizationManager manager(defaults, prefer({}));
    for (const auto &[lang, raw] : {std::pair(Lang::en, u"en"_s), std::pair(Lang::zh, u"zh"_s),
                                    std::pair(Lang::system, u"system"_s)}) {
        manager.setLang(lang);
        EXPECT_EQ(defaults.text(key), raw);
        EXPECT_EQ(LocalizationManager(defaults, prefer({})).lang(), lang);
    }
}

TEST(LocalizationManager, CorrectsAnUnknownStoredValueOnlyWhenALanguageIsPicked) {
    MemoryDefaults defaults({{key, u"fr"_s}});
    LocalizationManager manager(defaults, prefer({}));
    EXPECT_EQ(defaults.text(key), u"fr"_s);
    manager.setLang(Lang::system);
    EXPECT_EQ(defaults.text(key), u"system"_s);
}

TEST(LocalizationManager, TellsItsObserversBeforeAndAfterEveryChange) {
    MemoryDefaults defaults;
    LocalizationManager manager(defaults, prefer({}));
    QStringList told;
    QObject::connect(&manager, &LocalizationManager::langWillChange, [&] {
        told.append(u"before: "_s + LocalizationManager::rawValue(manager.lang()) + u", stored "_s +
                    defaults.text(key).value_or(u"nothing"_s));
    });
    QObject::connect(&manager, &LocalizationManager::langDidChange, [&] {
        told.append(u"after: "_s + LocalizationManager::rawValue(manager.lang()) + u", stored "_s +
                    defaults.text(key).value_or(u"nothing"_s));
    });
    manager.setLang(Lang::zh);
    manager.setLang(Lang::zh);
    EXPECT_EQ(told, (QStringList{u"before: system, stored nothing"_s, u"after: zh, stored zh"_s,
                                 u"before: zh, stored zh"_s, u"after: zh, stored zh"_s}));
}

TEST(LocalizationManager, IsSharedAndBeginsWithTheSystem) {
    EXPECT_EQ(&LocalizationManager::shared(), &LocalizationManager::shared());
    EXPECT_EQ(LocalizationManager::shared().lang(), Lang::system);
    EXPECT_FALSE(LocalizationManager::shared().isZh());
    qputenv("LANG", "zh_TW.UTF-8");
    EXPECT_TRUE(LocalizationManager::shared().isZh());
    qunsetenv("LANG");
}

} // namespace tovarin
