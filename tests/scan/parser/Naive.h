// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "scan/parser/AmountFinder.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <random>

/// The rules once more, written down step by step with whole expressions and no thought of speed:
/// what the parser's quicker forms are compared with.
namespace tovarin::naive {

struct Match {
    qsizetype start;
    qsizetype end;
    QStringList groups; ///< The whole match first; empty for a group that took no part.
};

/// Every match of an ICU expression, from left to right. A match that ICU gives up on fails the
/// test.
QList<Match> matches(const QString &pattern, const QString &text, bool ignoreCase = false);

QList<ReceiptParser::AmountCandidate> findAmounts(const QString &text);
std::optional<ReceiptParser::Amount>
chooseAmount(const QString &text, const QList<ReceiptParser::AmountCandidate> &candidates);
bool isNoise(const QString &line);
std::optional<QString> detectName(const QString &text);

/// Up to `maxPieces` random pieces in a row.
QString randomText(std::mt19937 &random, const QStringList &pieces, unsigned maxPieces);

} // namespace tovarin::naive
