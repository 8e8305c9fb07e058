// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Subscription.h"

#include <QByteArray>
#include <QList>

#include <optional>
#include <variant>

namespace tovarin {

/// Why a text is not a list of subscriptions. The program shows none of this; tests do.
struct DecodingError {
    qsizetype index = -1; ///< Which record, from 0; −1 when the text is no JSON array of objects.
    QString field;        ///< Which key of it; empty when the record as a whole is wrong.
    QString reason;       ///< In English, for developers.

    bool operator==(const DecodingError &) const = default;
};

/// Reads a JSON array of records (RFC 8259, UTF-8 without a byte-order mark).
///
/// All or nothing: every key but "serviceID" must be there with its type, "serviceID" may be
/// missing or null, and one wrong record refuses the whole text. Keys that mean nothing here are
/// passed over; of two equal keys the last counts. Letters of an id may be small. Numbers that no
/// double holds are refused; one too small for a double is 0.
std::variant<QList<Subscription>, DecodingError> decodeSubscriptions(const QByteArray &json);

/// The text of the list, laid out as the file is: keys sorted, two blanks to indent, " : " after a
/// key, "/" escaped, no line break at the end. Text that is not valid UTF-16 gets U+FFFD in the bad
/// places.
///
/// No value when a record could not be read back: an amount that is no finite number, or a start
/// date outside the years 0000 to 9999.
std::optional<QByteArray> encodeSubscriptions(const QList<Subscription> &subscriptions);

} // namespace tovarin
