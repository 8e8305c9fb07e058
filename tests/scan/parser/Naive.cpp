// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "tests/scan/parser/Naive.h"

#include "tests/scan/parser/WordLists.h"

#include <gtest/gtest.h>
#include <unicode/brkiter.h>
#include <unicode/uregex.h>

#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::naive {

using ReceiptParser::Amount;
using ReceiptParser::AmountCandidate;

namespace {

bool holdsAny(const QString &text, const QStringList &words) {
    for (const QString &word : words) {
        if (text.indexOf(word.toLower()) >= 0)
            return true;
    }
    return false;
}

bool holds(const QString &text, const QString &pattern) {
    return !matches(pattern, text).isEmpty();
}

qsizetype characters(const QString &text) {
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> breaks(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    const icu::UnicodeString copy(text.utf16(), static_cast<int32_t>(text.size()));
    breaks->setText(copy);
    qsizetype count = 0;
    while (breaks->next() != icu::BreakIterator::DONE)
        ++count;
    EXPECT_TRUE(U_SUCCESS(status));
    return count;
}

QString trimmed(const QString &text, const QString &set) {
    qsizetype from = 0;
    qsizetype to = text.size();
    while (from < to && set.contains(text[from]))
        ++from;
    while (to > from && set.contains(text[to - 1]))
        --to;
    return text.mid(from, to - from);
}

QString cleaned(const QString &piece) {
    const QString blanks = u"\t \u00A0\u1680\u2000\u2001\u2002\u2003\u2004\u2005\u2006\u2007\u2008"
                           u"\u2009\u200A\u202F\u205F\u3000"_s;
    QString line = trimmed(piece, blanks);
    const QList<Match> prices = matches(uR"([¥￥$€£]\s?[0-9]+(?:\.[0-9]{1,2})?)"_s, line);
    for (auto price = prices.crbegin(); price != prices.crend(); ++price)
        line.remove(price->start, price->end - price->start);
    return trimmed(line, u" ,，·-—:："_s);
}

int scoreOf(const QString &line, qsizetype index) {
    const QString lower = line.toLower();
    int score = 0;
    if (holdsAny(lower, wordlists::brands))
        score = 5;
    if (holdsAny(lower, wordlists::planWords))
        score += 3;
    if (holds(line, uR"([A-Za-z0-9-]+\.(com|net|io|app|co|cn|org))"_s))
        score += 3;
    if (holds(line, uR"(\p{Han})"_s))
        score += 1;
    if (holds(line, u"[A-Za-z]"_s))
        score += 1;
    if (index < 5)
        score += 1;
    if (holds(line, u"^[a-z0-9_.-]{5,}$"_s))
        score -= 2;
    return score;
}

} // namespace

QList<Match> matches(const QString &pattern, const QString &text, bool ignoreCase) {
    UErrorCode status = U_ZERO_ERROR;
    UParseError where;
    const std::unique_ptr<URegularExpression, decltype(&uregex_close)> expression(
        uregex_open(reinterpret_cast<const UChar *>(pattern.utf16()),
                    static_cast<int32_t>(pattern.size()), ignoreCase ? UREGEX_CASE_INSENSITIVE : 0,
                    &where, &status),
        uregex_close);
    uregex_setText(expression.get(), reinterpret_cast<const UChar *>(text.utf16()),
                   static_cast<int32_t>(text.size()), &status);
    QList<Match> found;
    while (uregex_findNext(expression.get(), &status)) {
        Match match{uregex_start(expression.get(), 0, &status),
                    uregex_end(expression.get(), 0, &status),
                    {}};
        for (int32_t group = 0; group <= uregex_groupCount(expression.get(), &status); ++group) {
            const int32_t start = uregex_start(expression.get(), group, &status);
            const int32_t end = uregex_end(expression.get(), group, &status);
            match.groups += text.mid(start, end - start);
        }
        found += match;
    }
    EXPECT_TRUE(U_SUCCESS(status)) << u_errorName(status);
    return found;
}

QList<AmountCandidate> findAmounts(const QString &text) {
    QList<AmountCandidate> candidates;
    const auto add = [&](const Match &match, const QString &digits, const QString &currency) {
        const double amount = digits.toDouble();
        if (amount > 0)
            candidates.append({amount, currency, match.start});
    };
    for (const Match &m : matches(uR"(([¥￥$€£])\s?([0-9]+(?:\.[0-9]{1,2})?))"_s, text, true)) {
        const QString &sign = m.groups[1];
        add(m, m.groups[2],
            sign == u"$"   ? u"USD"_s
            : sign == u"€" ? u"EUR"_s
            : sign == u"£" ? u"GBP"_s
                           : u"CNY"_s);
    }
    for (const Match &m : matches(uR"((HK\$)\s?([0-9]+(?:\.[0-9]{1,2})?))"_s, text, true))
        add(m, m.groups[2], u"HKD"_s);
    for (const Match &m : matches(uR"(([0-9]+(?:\.[0-9]{1,2})?)\s?(元|圆|块))"_s, text, true))
        add(m, m.groups[1], u"CNY"_s);
    for (const Match &m :
         matches(uR"((CNY|RMB|USD|EUR|HKD|JPY|GBP)\s?([0-9]+(?:\.[0-9]{1,2})?))"_s, text, true)) {
        const QString code = m.groups[1].toUpper();
        add(m, m.groups[2], code == u"RMB" ? u"CNY"_s : code);
    }
    return candidates;
}

std::optional<Amount> chooseAmount(const QString &text, const QList<AmountCandidate> &candidates) {
    std::optional<Amount> best;
    for (const AmountCandidate &candidate : candidates) {
        const qsizetype start = candidate.location < 10 ? 0 : candidate.location - 10;
        if (holdsAny(text.mid(start, 12).toLower(), wordlists::paymentLabels))
            return Amount{candidate.amount, candidate.currency};
    }
    for (const AmountCandidate &candidate : candidates) {
        if (!best || candidate.amount > best->amount)
            best = Amount{candidate.amount, candidate.currency};
    }
    return best;
}

bool isNoise(const QString &line) {
    const QString lower = line.toLower();
    return holdsAny(lower, wordlists::greetings) || holdsAny(lower, wordlists::noiseLabels) ||
           holds(line, uR"(^[¥￥$€£0-9\.,:：\-/年月日时分秒 ]+$)"_s) ||
           holds(line, u"^[0-9a-f]{6,}(-[0-9a-f]{4,})+"_s);
}

std::optional<QString> detectName(const QString &text) {
    QStringList lines;
    for (const QString &piece : text.split(u'\n', Qt::SkipEmptyParts))
        lines += cleaned(piece);

    std::optional<QString> best;
    int bestScore = 0;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const qsizetype length = characters(lines[i]);
        if (length < 2 || length > 30 || isNoise(lines[i]))
            continue;
        const int score = scoreOf(lines[i], i);
        if (score >= 1 && (!best || score > bestScore)) {
            best = lines[i];
            bestScore = score;
        }
    }
    if (best)
        return best;
    for (const QString &line : lines) {
        const qsizetype length = characters(line);
        if (length >= 2 && length < 25 && !isNoise(line))
            return line;
    }
    return std::nullopt;
}

QString randomText(std::mt19937 &random, const QStringList &pieces, unsigned maxPieces) {
    QString text;
    for (auto count = random() % (maxPieces + 1); count > 0; --count)
        text += pieces[static_cast<qsizetype>(random() % static_cast<unsigned>(pieces.size()))];
    return text;
}

} // namespace tovarin::naive
