// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/Theme.h"

using namespace Qt::Literals::StringLiterals;

namespace tovarin::Theme {

QString poppinsName(QFont::Weight weight) {
    if (weight >= QFont::Bold)
        return u"Poppins-Bold"_s;
    if (weight == QFont::DemiBold)
        return u"Poppins-SemiBold"_s;
    return weight == QFont::Medium ? u"Poppins-Medium"_s : u"Poppins-Regular"_s;
}

} // namespace tovarin::Theme
