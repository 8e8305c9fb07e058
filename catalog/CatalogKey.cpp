// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "catalog/CatalogKey.h"

namespace tovarin {

namespace {

bool isAlphanumeric(char32_t character) {
    // Most characters are these, which need no table.
    if (character < 0x80)
        return (character >= U'a' && character <= U'z') ||
               (character >= U'A' && character <= U'Z') || (character >= U'0' && character <= U'9');
    return QChar::isLetterOrNumber(character) || QChar::isMark(character);
}

} // namespace

QString catalogKey(QStringView name, qsizetype enough) {
    QString key;
    for (qsizetype i = 0; i < name.size() && key.size() < enough; ++i) {
        char32_t character = name[i].unicode();
        if (name[i].isHighSurrogate() && i + 1 < name.size() && name[i + 1].isLowSurrogate())
            character = QChar::surrogateToUcs4(name[i], name[i + 1]);
        if (isAlphanumeric(character)) {
            // Some have more than one character for a lower case.
            if (character < 0x80)
                key += QChar(character).toLower();
            else
                key += QString::fromUcs4(&character, 1).toLower();
        }
        i += character > 0xFFFF ? 1 : 0;
    }
    return key;
}

} // namespace tovarin
