// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "app/LocalizationManager.h"

#include "platform/PreferredLanguages.h"
#include "platform/UserDefaults.h"

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

const QString languageKey = u"appLanguage"_s;

} // namespace

LocalizationManager &LocalizationManager::shared() {
    static LocalizationManager manager(UserDefaults::standard(),
                                       [] { return preferredLanguages(processEnvironment()); });
    return manager;
}

LocalizationManager::LocalizationManager(UserDefaults &defaults,
                                         PreferredLanguages preferredLanguages)
    : m_defaults(defaults)
    , m_preferredLanguages(std::move(preferredLanguages))
    , m_lang(langOf(defaults.text(languageKey).value_or(QString()))) {}

void LocalizationManager::setLang(Lang lang) {
    Q_EMIT langWillChange();
    m_lang = lang;
    m_defaults.setText(languageKey, rawValue(lang));
    Q_EMIT langDidChange();
}

bool LocalizationManager::isZh() const {
    switch (m_lang) {
    case Lang::zh:
        return true;
    case Lang::en:
        return false;
    case Lang::system:
        break;
    }
    const QStringList languages = m_preferredLanguages();
    return !languages.isEmpty() && languages.first().startsWith("zh"_L1, Qt::CaseInsensitive);
}

QString LocalizationManager::rawValue(Lang lang) {
    switch (lang) {
    case Lang::en:
        return u"en"_s;
    case Lang::zh:
        return u"zh"_s;
    case Lang::system:
        break;
    }
    return u"system"_s;
}

LocalizationManager::Lang LocalizationManager::langOf(const QString &rawValue) {
    for (const Lang lang : allLangs) {
        if (LocalizationManager::rawValue(lang) == rawValue)
            return lang;
    }
    return Lang::system;
}

} // namespace tovarin
