// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/Letters.h"

namespace tovarin {

char32_t codePoint(const QString &text) {
    if (text.size() >= 2 && text[0].isHighSurrogate() && text[1].isLowSurrogate())
        return QChar::surrogateToUcs4(text[0], text[1]);
    return text.isEmpty() ? 0 : text[0].unicode();
}

bool isDigit(char32_t c) {
    return c >= U'0' && c <= U'9';
}

bool isLatinLetter(char32_t c) {
    return (c >= U'A' && c <= U'Z') || (c >= U'a' && c <= U'z') || (c >= 0xC0 && c < 0x250);
}

bool isHan(char32_t c) {
    return QChar::script(c) == QChar::Script_Han;
}

bool isFullWidth(char32_t c) {
    if (isCurrencySign(c))
        return false;
    return (c >= 0x3000 && c < 0x3040) || (c >= 0xFF00 && c < 0xFFF0) ||
           (c < 0x10000 && QStringView(u"“”‘’·…—").contains(QChar(static_cast<char16_t>(c))));
}

bool isCurrencySign(char32_t c) {
    return c == U'$' || c == U'€' || c == U'£' || c == U'¥' || c == U'￥';
}

} // namespace tovarin
