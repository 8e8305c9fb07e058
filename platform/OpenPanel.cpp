// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/OpenPanel.h"

#include <QMimeDatabase>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

/// In the order of their names, which is the same on every start; the database's is not.
QList<QMimeType> imageTypes(const QMimeDatabase &database) {
    QList<QMimeType> images;
    for (const QMimeType &type : database.allMimeTypes()) {
        if (type.name().startsWith("image/"_L1))
            images.append(type);
    }
    std::ranges::sort(images, {}, &QMimeType::name);
    return images;
}

QList<QMimeType> mimeTypes(OpenPanel::ContentType type, const QMimeDatabase &database) {
    switch (type) {
    case OpenPanel::ContentType::png:
        return {database.mimeTypeForName(u"image/png"_s)};
    case OpenPanel::ContentType::jpeg:
        return {database.mimeTypeForName(u"image/jpeg"_s)};
    case OpenPanel::ContentType::tiff:
        return {database.mimeTypeForName(u"image/tiff"_s)};
    case OpenPanel::ContentType::pdf:
        return {database.mimeTypeForName(u"application/pdf"_s)};
    case OpenPanel::ContentType::image:
        break;
    }
    return imageTypes(database);
}

QString withoutLetterCase(const QString &suffix) {
    QString pattern = u"*."_s;
    for (const QChar c : suffix) {
        if (c.toLower() == c.toUpper())
            pattern += c;
        else
            pattern += u'[' + c.toLower() + c.toUpper() + u']';
    }
    return pattern;
}

} // namespace

QStringList OpenPanel::fileNamePatterns(const QList<ContentType> &types) {
    const QMimeDatabase database;
    QStringList patterns;
    for (const ContentType type : types) {
        for (const QMimeType &mimeType : mimeTypes(type, database)) {
            for (const QString &suffix : mimeType.suffixes())
                patterns.append(withoutLetterCase(suffix));
        }
    }
    patterns.removeDuplicates();
    return patterns;
}

} // namespace tovarin
