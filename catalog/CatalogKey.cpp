// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "catalog/CatalogKey.h"

#include <QList>

#include <algorithm>

namespace tovarin {

namespace {

constexpr qsizetype blockSize = 64;

bool isAlphanumeric(char32_t character) {
    return QChar::isLetterOrNumber(character) || QChar::isMark(character);
}

/// The beginning of the text, without cutting a pair of surrogates.
QStringView firstBlock(QStringView text) {
    const qsizetype size = std::min(blockSize, text.size());
    const bool cutsPair =
        size < text.size() && text[size - 1].isHighSurrogate() && text[size].isLowSurrogate();
    return text.first(cutsPair ? size - 1 : size);
}

} // namespace

QString catalogKey(QStringView name, qsizetype enough) {
    QString key;
    while (!name.isEmpty() && key.size() < enough) {
        // Most characters are these, which need no table.
        if (const char16_t first = name.front().unicode(); first < 0x80) {
            name = name.sliced(1);
            if (const QChar lower = QChar(first).toLower(); lower.isLetterOrNumber())
                key += lower;
            continue;
        }
        const QStringView block = firstBlock(name);
        name = name.sliced(block.size());
        for (const char32_t character : block.toString().toLower().toUcs4()) {
            if (isAlphanumeric(character))
                key += QChar::fromUcs4(character);
        }
    }
    return key;
}

} // namespace tovarin
