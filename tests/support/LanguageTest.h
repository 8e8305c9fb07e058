// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "app/LocalizationManager.h"

#include <QString>

#include <gtest/gtest.h>

#include <string>

namespace tovarin {

using Lang = LocalizationManager::Lang;

/// A test that runs once in each language: INSTANTIATE_TEST_SUITE_P(, Name, bothLanguages(),
/// languageName). It sets none itself; that is LanguageScope's.
class LanguageTest : public testing::TestWithParam<Lang> {
protected:
    bool isZh() const { return GetParam() == Lang::zh; }
    Lang otherLang() const { return isZh() ? Lang::en : Lang::zh; }

    /// The one of the two texts that is of this run's language.
    QString pair(const QString &chinese, const QString &english) const {
        return isZh() ? chinese : english;
    }
};

inline auto bothLanguages() {
    return testing::Values(Lang::en, Lang::zh);
}
inline std::string languageName(const testing::TestParamInfo<Lang> &language) {
    return language.param == Lang::zh ? "Chinese" : "English";
}

} // namespace tovarin
