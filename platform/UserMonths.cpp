// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/UserMonths.h"

#include "platform/ICUText.h"

#include <unicode/calendar.h>
#include <unicode/dtfmtsym.h>
#include <unicode/smpdtfmt.h>

using namespace std::chrono;

namespace tovarin {

namespace {

icu::Locale localeOf(const QString &name) {
    UErrorCode status = U_ZERO_ERROR;
    const QByteArray tag = languageTag(name).toLatin1();
    const icu::Locale locale = icu::Locale::forLanguageTag(tag.toStdString(), status);
    const bool isNamed = U_SUCCESS(status) && *locale.getLanguage() != '\0';
    return isNamed ? locale : icu::Locale("en_US_POSIX");
}

UDate toICU(CivilDay day) {
    return static_cast<UDate>(milliseconds(day.time_since_epoch()).count());
}

template <typename Made>
std::unique_ptr<Made> checked(Made *made, UErrorCode status) {
    std::unique_ptr<Made> owned(made);
    if (U_FAILURE(status) || !owned)
        qFatal("ICU has no calendar or date format: %s", u_errorName(status));
    return owned;
}

} // namespace

struct UserMonths::Rules {
    explicit Rules(const icu::Locale &locale) {
        UErrorCode status = U_ZERO_ERROR;
        // In UTC a day is a multiple of 24 hours to ICU; the zone is UserZone's matter.
        const icu::TimeZone &utc = *icu::TimeZone::getGMT();
        calendar = checked(icu::Calendar::createInstance(utc, locale, status), status);
        titles = checked(icu::DateFormat::createInstanceForSkeleton("MMMM yyyy", locale, status),
                         status);
        fullDates =
            checked(icu::DateFormat::createDateInstance(icu::DateFormat::kFull, locale), status);
        titles->setTimeZone(utc);
        fullDates->setTimeZone(utc);
        const icu::DateFormatSymbols symbols(locale, status);
        int count = 0;
        const icu::UnicodeString *const names = symbols.getWeekdays(
            count, icu::DateFormatSymbols::STANDALONE, icu::DateFormatSymbols::ABBREVIATED);
        for (int weekday = UCAL_SUNDAY; weekday <= UCAL_SATURDAY && weekday < count; ++weekday)
            weekdayNames.append(fromICU(names[weekday]));
        if (U_FAILURE(status) || weekdayNames.size() != daysInWeek)
            qFatal("ICU has no weekday names: %s", u_errorName(status));
    }

    std::unique_ptr<icu::Calendar> calendar; // its time is scratch space
    std::unique_ptr<icu::DateFormat> titles;
    std::unique_ptr<icu::DateFormat> fullDates;
    QStringList weekdayNames;
};

UserMonths::UserMonths(const QString &locale) : m_locale(locale) {}
UserMonths::UserMonths(UserMonths &&) noexcept = default;
UserMonths &UserMonths::operator=(UserMonths &&) noexcept = default;
UserMonths::~UserMonths() = default;

UserMonths UserMonths::current(const Environment &environment) {
    return UserMonths(localeName(environment, "LC_TIME"));
}

const UserMonths::Rules &UserMonths::rules() const {
    // ICU takes a while to read them, and the program's start needs none.
    if (!m_rules)
        m_rules = std::make_unique<const Rules>(localeOf(m_locale));
    return *m_rules;
}

std::optional<CivilDay> UserMonths::start(CivilDay day) const {
    UErrorCode status = U_ZERO_ERROR;
    icu::Calendar &calendar = *rules().calendar;
    calendar.setTime(toICU(day), status);
    calendar.set(UCAL_DATE, 1);
    const UDate first = calendar.getTime(status);
    if (U_FAILURE(status))
        return std::nullopt;
    return CivilDay(floor<days>(milliseconds(static_cast<qint64>(first))));
}

std::optional<int> UserMonths::dayOfMonth(CivilDay day) const {
    UErrorCode status = U_ZERO_ERROR;
    icu::Calendar &calendar = *rules().calendar;
    calendar.setTime(toICU(day), status);
    const int number = calendar.get(UCAL_DATE, status);
    return U_SUCCESS(status) ? std::optional(number) : std::nullopt;
}

UserMonths::Weekday UserMonths::weekday(CivilDay day) {
    return static_cast<int>(std::chrono::weekday(day).c_encoding()) + UCAL_SUNDAY;
}

UserMonths::Weekday UserMonths::firstWeekday() const {
    return rules().calendar->getFirstDayOfWeek();
}

QStringList UserMonths::weekdayNames() const {
    return rules().weekdayNames;
}

QString UserMonths::title(CivilDay day) const {
    icu::UnicodeString text;
    return fromICU(rules().titles->format(toICU(day), text));
}

QString UserMonths::fullDate(CivilDay day) const {
    icu::UnicodeString text;
    return fromICU(rules().fullDates->format(toICU(day), text));
}

} // namespace tovarin
