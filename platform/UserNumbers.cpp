// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/UserNumbers.h"

#include "platform/ICUText.h"

#include <unicode/decimfmt.h>

#include <cmath>

namespace tovarin {

namespace {

constexpr int mostDecimals = 6;
// No number that a person types is longer; ICU would read on for as long as there are digits.
constexpr qsizetype longestText = 400;

} // namespace

struct UserNumbers::Format {
    explicit Format(const QString &locale) {
        UErrorCode status = U_ZERO_ERROR;
        const icu::Locale named(locale.toLatin1().constData());
        std::unique_ptr<icu::NumberFormat> made(icu::NumberFormat::createInstance(named, status));
        auto *const decimal = dynamic_cast<icu::DecimalFormat *>(made.get());
        if (U_FAILURE(status) || !decimal)
            qFatal("ICU has no number format: %s", u_errorName(status));
        made.release();
        numbers.reset(decimal);
        numbers->setMaximumFractionDigits(mostDecimals);
        // Groups only where they belong.
        numbers->setLenient(false);
    }

    std::unique_ptr<icu::DecimalFormat> numbers;
};

UserNumbers::UserNumbers(const QString &locale) : m_format(std::make_unique<Format>(locale)) {}
UserNumbers::UserNumbers(UserNumbers &&) noexcept = default;
UserNumbers &UserNumbers::operator=(UserNumbers &&) noexcept = default;
UserNumbers::~UserNumbers() = default;

UserNumbers UserNumbers::current(const Environment &environment) {
    const QString locale = localeName(environment, "LC_NUMERIC");
    return UserNumbers(isCLocale(locale) ? QStringLiteral("en_US_POSIX") : locale);
}

QString UserNumbers::text(double number) const {
    icu::UnicodeString text;
    return fromICU(m_format->numbers->format(number, text));
}

std::optional<double> UserNumbers::number(const QString &text) const {
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty() || trimmed.size() > longestText)
        return std::nullopt;
    icu::Formattable read;
    icu::ParsePosition position;
    m_format->numbers->parse(toICU(trimmed), read, position);
    UErrorCode status = U_ZERO_ERROR;
    const double number = read.getDouble(status);
    if (position.getErrorIndex() >= 0 || position.getIndex() != trimmed.size() ||
        U_FAILURE(status) || !std::isfinite(number))
        return std::nullopt;
    return number;
}

} // namespace tovarin
