// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "app/LocalizationManager.h"

namespace tovarin {

/// Sets the shared language for as long as it lives.
class LanguageScope {
public:
    explicit LanguageScope(LocalizationManager::Lang lang);
    ~LanguageScope();
    LanguageScope(const LanguageScope &) = delete;
    LanguageScope &operator=(const LanguageScope &) = delete;

private:
    LocalizationManager::Lang m_before;
};

} // namespace tovarin
