// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/parser/AmountFinder.h"

#include "scan/parser/Expression.h"
#include "scan/parser/Words.h"

#include <QVarLengthArray>

#include <algorithm>
#include <charconv>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::ReceiptParser {

namespace {

constexpr Word paymentLabels[] = {u"实付", u"合计",  u"金额",   u"价格", u"支付",
                                  u"总计", u"total", u"amount", u"应付", u"付款"};

constexpr qsizetype unitsBefore = 10;
constexpr qsizetype spanLength = 12;

std::optional<double> toAmount(QStringView digits) {
    QVarLengthArray<char, 32> ascii;
    for (const QChar digit : digits)
        ascii.append(digit.toLatin1());
    double amount = 0;
    const auto result = std::from_chars(ascii.cbegin(), ascii.cend(), amount);
    return result.ec == std::errc() && amount > 0 ? std::optional(amount) : std::nullopt;
}

QString currencyOfSign(QStringView sign) {
    if (sign == u"$")
        return u"USD"_s;
    if (sign == u"€")
        return u"EUR"_s;
    if (sign == u"£")
        return u"GBP"_s;
    return u"CNY"_s;
}

QString currencyOfCode(QStringView code) {
    const QString upper = code.toString().toUpper();
    return upper == u"RMB" ? u"CNY"_s : upper;
}

/// Appends what the expression finds. `currencyOf` is asked for the text of the other group.
void collect(const Expression &expression, const QString &text, int amountGroup, int currencyGroup,
             QString (*currencyOf)(QStringView), QList<AmountCandidate> &to) {
    Search search(expression);
    search.begin(text);
    while (search.next()) {
        if (const std::optional<double> amount = toAmount(search.group(amountGroup)))
            to.append({*amount, currencyOf(search.group(currencyGroup)), search.start()});
    }
}

bool hasLabelNearby(const QString &text, const AmountCandidate &candidate) {
    const qsizetype start = std::max<qsizetype>(candidate.location - unitsBefore, 0);
    const qsizetype length = std::min(spanLength, text.size() - start);
    return containsAny(lowerCased(QStringView(text).sliced(start, length)), paymentLabels);
}

} // namespace

QList<AmountCandidate> findAmounts(const QString &text) {
    using enum Expression::LetterCase;
    static const Expression withSign(uR"(([¥￥$€£])\s?([0-9]+(?:\.[0-9]{1,2})?))", Ignored);
    static const Expression withHongKongSign(uR"((HK\$)\s?([0-9]+(?:\.[0-9]{1,2})?))", Ignored);
    // What follows a run of digits is the same from wherever in the run one starts, so only its
    // beginning is tried: from every digit anew, a long run would take quadratic time.
    static const Expression withUnit(uR"((?<![0-9])([0-9]+(?:\.[0-9]{1,2})?)\s?(元|圆|块))",
                                     Ignored);
    static const Expression withCode(
        uR"((CNY|RMB|USD|EUR|HKD|JPY|GBP)\s?([0-9]+(?:\.[0-9]{1,2})?))", Ignored);

    QList<AmountCandidate> found;
    collect(withSign, text, 2, 1, currencyOfSign, found);
    collect(
        withHongKongSign, text, 2, 1, [](QStringView) { return u"HKD"_s; }, found);
    collect(
        withUnit, text, 1, 2, [](QStringView) { return u"CNY"_s; }, found);
    collect(withCode, text, 2, 1, currencyOfCode, found);
    return found;
}

std::optional<Amount> chooseAmount(const QString &text, const QList<AmountCandidate> &candidates) {
    if (candidates.isEmpty())
        return std::nullopt;
    auto chosen = std::ranges::find_if(
        candidates, [&](const AmountCandidate &c) { return hasLabelNearby(text, c); });
    if (chosen == candidates.end())
        chosen = std::ranges::max_element(candidates, {}, &AmountCandidate::amount);
    return Amount{chosen->amount, chosen->currency};
}

std::optional<Amount> detectAmount(const QString &in) {
    return chooseAmount(in, findAmounts(in));
}

} // namespace tovarin::ReceiptParser
