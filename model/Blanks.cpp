// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "model/Blanks.h"

#include <algorithm>

namespace tovarin {

bool isBlank(QChar character) {
    return character == u'\t' || character.category() == QChar::Separator_Space;
}

QString withoutBlanksAround(const QString &text) {
    const auto *const begin = std::ranges::find_if_not(text, isBlank);
    const auto *end = text.end();
    while (end != begin && isBlank(*(end - 1)))
        --end;
    return QString(begin, end - begin);
}

} // namespace tovarin
