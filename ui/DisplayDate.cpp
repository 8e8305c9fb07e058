// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/DisplayDate.h"

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

QString displayDate(CivilDay day) {
    const std::chrono::year_month_day date(day);
    return u"%1/%2/%3"_s.arg(int(date.year()), 4, 10, QChar(u'0'))
        .arg(unsigned(date.month()), 2, 10, QChar(u'0'))
        .arg(unsigned(date.day()), 2, 10, QChar(u'0'));
}

} // namespace tovarin
