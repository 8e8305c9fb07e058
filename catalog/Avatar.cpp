// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "catalog/Avatar.h"

#include "model/Blanks.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace tovarin {

QString avatarLetter(const QString &name) {
    const auto *const start = std::ranges::find_if_not(name, isBlank);
    if (start == name.cend())
        return QStringLiteral("•");
    const QStringView rest = QStringView(name).sliced(start - name.cbegin());
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, rest);
    const qsizetype end = characters.toNextBoundary();
    return rest.first(end < 0 ? rest.size() : end).toString().toUpper();
}

} // namespace tovarin
