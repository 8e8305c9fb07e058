// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/Environment.h"

#include <QStringList>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

/// The modifiers that glibc's locales use to name a script, and ISO 15924's name for it.
QString scriptOfModifier(QStringView modifier) {
    if (modifier == u"latin")
        return u"Latn"_s;
    if (modifier == u"cyrillic")
        return u"Cyrl"_s;
    if (modifier == u"devanagari")
        return u"Deva"_s;
    return {};
}

QStringView beforeFirst(QStringView text, QChar separator) {
    const qsizetype at = text.indexOf(separator);
    return at < 0 ? text : text.first(at);
}

} // namespace

Environment processEnvironment() {
    return [](const char *name) { return qgetenv(name); };
}

QString localeName(const Environment &environment, const char *category) {
    for (const char *name : {"LC_ALL", category, "LANG"}) {
        const QByteArray value = environment(name);
        if (!value.isEmpty())
            return QString::fromLocal8Bit(value);
    }
    return u"C"_s;
}

bool isCLocale(const QString &posixLocaleName) {
    const QStringView base = beforeFirst(posixLocaleName, u'.');
    return base == u"C" || base == u"POSIX";
}

QString languageTag(const QString &posixLocaleName) {
    if (posixLocaleName.isEmpty() || isCLocale(posixLocaleName))
        return {};
    const QStringView withoutModifier = beforeFirst(posixLocaleName, u'@');
    const QString base = beforeFirst(withoutModifier, u'.').toString();
    QStringList subtags = base.split(u'_');
    if (withoutModifier.size() < posixLocaleName.size()) {
        const QString script =
            scriptOfModifier(QStringView(posixLocaleName).mid(withoutModifier.size() + 1));
        if (!script.isEmpty())
            subtags.insert(1, script);
    }
    return subtags.join(u'-');
}

} // namespace tovarin
