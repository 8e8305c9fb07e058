// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/support/LanguageScope.h"

namespace tovarin {

LanguageScope::LanguageScope(LocalizationManager::Lang lang)
    : m_before(LocalizationManager::shared().lang()) {
    LocalizationManager::shared().setLang(lang);
}

LanguageScope::~LanguageScope() {
    LocalizationManager::shared().setLang(m_before);
}

} // namespace tovarin
