// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/parser/Words.h"

#include <unicode/ustring.h>

#include <algorithm>

namespace tovarin::ReceiptParser {

QString lowerCased(QStringView text) {
    const auto lowerInto = [text](QString &lower) {
        UErrorCode status = U_ZERO_ERROR;
        // Not QString::toLower(): that one knows no final sigma.
        return u_strToLower(reinterpret_cast<char16_t *>(lower.data()),
                            static_cast<int32_t>(lower.size()), text.utf16(),
                            static_cast<int32_t>(text.size()), "", &status);
    };
    QString lower(text.size(), Qt::Uninitialized);
    const int32_t size = lowerInto(lower);
    const bool fitted = size <= lower.size();
    lower.resize(size);
    if (!fitted)
        lowerInto(lower);
    return lower;
}

bool containsAny(QStringView text, std::span<const Word> words) {
    const quint64 units = unitsOf({text.utf16(), static_cast<std::size_t>(text.size())});
    return std::ranges::any_of(words, [text, units](const Word &word) {
        return (word.units & ~units) == 0 && text.contains(word.text);
    });
}

} // namespace tovarin::ReceiptParser
