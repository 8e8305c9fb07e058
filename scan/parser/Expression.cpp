// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/parser/Expression.h"

namespace tovarin::ReceiptParser {

namespace {

icu::UnicodeString aliasOf(QStringView text) {
    return icu::UnicodeString(false, text.utf16(), static_cast<int32_t>(text.size()));
}

} // namespace

Expression::Expression(QStringView pattern, LetterCase letterCase) {
    UErrorCode status = U_ZERO_ERROR;
    const uint32_t flags = letterCase == LetterCase::Ignored ? UREGEX_CASE_INSENSITIVE : 0;
    UParseError where;
    m_pattern.reset(icu::RegexPattern::compile(aliasOf(pattern), flags, where, status));
    if (U_FAILURE(status))
        m_pattern.reset();
}

Search::Search(const Expression &expression) {
    UErrorCode status = U_ZERO_ERROR;
    if (expression.m_pattern)
        m_matcher.reset(expression.m_pattern->matcher(status));
    if (U_FAILURE(status))
        m_matcher.reset();
}

void Search::begin(QStringView text) {
    m_text = text;
    m_input.setTo(false, text.utf16(), static_cast<int32_t>(text.size()));
    if (m_matcher)
        m_matcher->reset(m_input);
}

bool Search::next() {
    UErrorCode status = U_ZERO_ERROR;
    return m_matcher && m_matcher->find(status) && U_SUCCESS(status);
}

bool Search::isIn(QStringView text) {
    begin(text);
    return next();
}

qsizetype Search::start() const {
    UErrorCode status = U_ZERO_ERROR;
    return m_matcher->start(status);
}

qsizetype Search::end() const {
    UErrorCode status = U_ZERO_ERROR;
    return m_matcher->end(status);
}

QStringView Search::group(int number) const {
    UErrorCode status = U_ZERO_ERROR;
    const qsizetype from = m_matcher->start(number, status);
    const qsizetype to = m_matcher->end(number, status);
    return m_text.sliced(from, to - from);
}

} // namespace tovarin::ReceiptParser
