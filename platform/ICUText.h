// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <unicode/unistr.h>

#include <cstdint>

namespace tovarin {

/// ICU's texts and Qt's are both UTF-16.
inline QString fromICU(const icu::UnicodeString &text) {
    return QString::fromUtf16(text.getBuffer(), text.length());
}

inline icu::UnicodeString toICU(const QString &text) {
    return {reinterpret_cast<const char16_t *>(text.utf16()),
            static_cast<std::int32_t>(text.size())};
}

} // namespace tovarin
