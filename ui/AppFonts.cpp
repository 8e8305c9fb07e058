// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/AppFonts.h"

#include "platform/Bundle.h"

#include <QFontDatabase>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::AppFonts {

void registerBundledFonts(const Bundle &bundle) {
    for (const QString &path : bundle.paths(u"ttf"_s, u"Fonts"_s))
        QFontDatabase::addApplicationFont(path);
    // QML names one family; this is how it gets a second one.
    for (const QString &family : {u"Poppins"_s, u"Poppins Tabular"_s})
        QFont::insertSubstitution(family, u"Noto Sans CJK SC"_s);
}

} // namespace tovarin::AppFonts
