// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/ApplicationSupport.h"

#include <QFile>

#include <pwd.h>
#include <unistd.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

bool isAbsolute(const QString &path) {
    return path.startsWith(u'/');
}

QString homeFolder(const Environment &environment) {
    const QString home = QFile::decodeName(environment("HOME"));
    if (isAbsolute(home))
        return home;
    const passwd *entry = getpwuid(getuid()); // NOLINT(concurrency-mt-unsafe): start-up, one thread
    if (entry == nullptr || !isAbsolute(QFile::decodeName(entry->pw_dir)))
        qFatal("The user has no home folder");
    return QFile::decodeName(entry->pw_dir);
}

QString baseFolder(const Environment &environment, const char *variable, const QString &inHome) {
    const QString folder = QFile::decodeName(environment(variable));
    return isAbsolute(folder) ? folder : homeFolder(environment) + inHome;
}

} // namespace

QString applicationSupportFolder(const Environment &environment) {
    return baseFolder(environment, "XDG_DATA_HOME", u"/.local/share"_s);
}

QString configurationFolder(const Environment &environment) {
    return baseFolder(environment, "XDG_CONFIG_HOME", u"/.config"_s);
}

QString stateFolder(const Environment &environment) {
    return baseFolder(environment, "XDG_STATE_HOME", u"/.local/state"_s);
}

} // namespace tovarin
