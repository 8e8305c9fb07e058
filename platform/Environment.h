// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <functional>

namespace tovarin {

/// Looks an environment variable up; an unset one reads as empty. Tests pass a table of their own.
using Environment = std::function<QByteArray(const char *name)>;

/// The variables of this process.
Environment processEnvironment();

/// The POSIX locale name in force for one category (such as "LC_TIME"): the first of LC_ALL, the
/// category's own variable and LANG that is not empty, else "C". Example: "zh_CN.UTF-8".
QString localeName(const Environment &environment, const char *category);

/// Whether a POSIX locale name is the C locale, with or without a codeset ("C", "POSIX",
/// "C.UTF-8").
bool isCLocale(const QString &posixLocaleName);

/// A POSIX locale name as a language tag: "zh_TW.UTF-8" gives "zh-TW", "sr_RS@latin" gives
/// "sr-Latn-RS". Empty for the C locale.
QString languageTag(const QString &posixLocaleName);

} // namespace tovarin
