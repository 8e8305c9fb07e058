// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/Blanks.h"

#include <algorithm>

namespace tovarin {

namespace {

bool isBlank(QChar c) {
    return c == u'\t' || c.category() == QChar::Separator_Space;
}

} // namespace

QString withoutBlanksAround(const QString &text) {
    const auto *const begin = std::ranges::find_if_not(text, isBlank);
    const auto *end = text.end();
    while (end != begin && isBlank(*(end - 1)))
        --end;
    return QString(begin, end - begin);
}

} // namespace tovarin
