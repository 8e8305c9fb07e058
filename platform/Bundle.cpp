// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/Bundle.h"

#include <QDir>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

QString Bundle::path(const QString &name, const QString &type, const QString &folder) const {
    if (name.isEmpty() || name.contains(u'/'))
        return {};
    const QFileInfo file(QDir(m_resources + u'/' + folder), name + u'.' + type);
    return file.isFile() ? QDir::cleanPath(file.filePath()) : QString();
}

QStringList Bundle::paths(const QString &type, const QString &folder) const {
    const QDir files(m_resources + u'/' + folder);
    QStringList paths;
    for (const QString &name : files.entryList({u"*."_s + type}, QDir::Files, QDir::Name))
        paths.append(QDir::cleanPath(files.filePath(name)));
    return paths;
}

} // namespace tovarin
