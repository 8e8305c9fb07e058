// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/support/Printing.h"

#include <chrono>
#include <iomanip>

namespace {

void printDate(const std::chrono::year_month_day &date, std::ostream &out) {
    out << int(date.year()) << '-' << unsigned(date.month()) << '-' << unsigned(date.day());
}

} // namespace

void PrintTo(const QString &text, std::ostream *out) {
    *out << '"' << text.toStdString() << '"';
}

void PrintTo(const QByteArray &bytes, std::ostream *out) {
    *out << '"' << bytes.toStdString() << '"';
}

void PrintTo(const QRect &rect, std::ostream *out) {
    PrintTo(rect.size(), out);
    *out << " at " << rect.x() << ", " << rect.y();
}

void PrintTo(const QSize &size, std::ostream *out) {
    *out << size.width() << 'x' << size.height();
}

namespace std::chrono {

void PrintTo(const tovarin::CivilDay &day, std::ostream *out) {
    printDate(year_month_day(day), *out);
}

void PrintTo(const tovarin::Instant &instant, std::ostream *out) {
    const sys_days midnight = floor<days>(instant);
    printDate(year_month_day(midnight), *out);
    *out << " plus " << (instant - midnight).count() << " ms UTC";
}

} // namespace std::chrono

namespace tovarin {

void PrintTo(const Subscription &subscription, std::ostream *out) {
    const Subscription &s = subscription;
    *out << s.id.toString().toStdString() << ' ' << s.name.toStdString() << ' '
         << std::setprecision(17) << s.amount << ' ' << s.currency.toStdString() << ' '
         << rawValue(s.billingType).toStdString() << ' ' << rawValue(s.cycle).toStdString() << ' ';
    std::chrono::PrintTo(s.startDate, out);
    *out << ' ' << s.category.toStdString() << " notes \"" << s.notes.toStdString() << "\" "
         << (s.isActive ? "active" : "paused") << " serviceID "
         << (s.serviceID ? s.serviceID->toStdString() : "none");
}

void PrintTo(const DecodingError &error, std::ostream *out) {
    *out << "record " << error.index << ", key \"" << error.field.toStdString()
         << "\": " << error.reason.toStdString();
}

} // namespace tovarin
