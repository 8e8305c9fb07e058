// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/parser/ReceiptParser.h"

#include "app/LocalizationManager.h"
#include "scan/parser/AmountFinder.h"
#include "scan/parser/BillingTypeFinder.h"
#include "scan/parser/CategoryGuess.h"
#include "scan/parser/CycleFinder.h"
#include "scan/parser/DateFinder.h"
#include "scan/parser/NameFinder.h"

#include <QStringTokenizer>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::ReceiptParser {

namespace {

constexpr int linesInNotes = 6;

QString notesFor(const QString &text) {
    if (text.isEmpty())
        return {};
    QString notes =
        LocalizationManager::shared().isZh() ? u"📷 识别原文：\n"_s : u"📷 Scanned text:\n"_s;
    int lines = 0;
    for (const QStringView line : qTokenize(text, u'\n', Qt::SkipEmptyParts)) {
        if (lines == linesInNotes)
            break;
        if (lines > 0)
            notes += u" / ";
        notes += line;
        ++lines;
    }
    return notes;
}

} // namespace

Subscription parse(const QString &text, const Clock &clock, const UserCalendar &calendar) {
    const Amount amount = detectAmount(text).value_or(Amount{0, u"CNY"_s});
    const std::optional<BillingCycle> cycle = detectCycle(text);
    const std::optional<Instant> date = detectDate(text, calendar);
    const QString name = detectName(text).value_or(u""_s);
    return {.id = QUuid::createUuid(),
            .name = name,
            .amount = amount.amount,
            .currency = amount.currency,
            .billingType = detectType(text, cycle.has_value()),
            .cycle = cycle.value_or(BillingCycle::monthly),
            .startDate = date ? *date : clock.now(),
            .category = guessCategory(name, text),
            .notes = notesFor(text),
            .isActive = true,
            .serviceID = std::nullopt};
}

} // namespace tovarin::ReceiptParser
