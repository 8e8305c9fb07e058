// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/PreferredLanguages.h"

namespace tovarin {

QStringList preferredLanguages(const Environment &environment) {
    const QString locale = localeName(environment, "LC_MESSAGES");
    // Only the plain C locale silences LANGUAGE; "C.UTF-8" is a locale like any other to gettext.
    const bool isPlainC = locale == QLatin1String("C") || locale == QLatin1String("POSIX");
    QStringList tags;
    if (!isPlainC) {
        const QString list = QString::fromLocal8Bit(environment("LANGUAGE"));
        for (const QString &entry : list.split(u':', Qt::SkipEmptyParts)) {
            if (isCLocale(entry))
                return tags;
            tags.append(languageTag(entry));
        }
    }
    if (const QString tag = languageTag(locale); !tag.isEmpty() && !tags.contains(tag))
        tags.append(tag);
    return tags;
}

} // namespace tovarin
