// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "model/Subscription.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <variant>

/// What the scan job and tovarin-scanner say to each other: one line each way for each file, both
/// JSON in UTF-8. The job believes nothing of an answer but what decodeAnswer has checked.
namespace tovarin::ScanMessages {

/// An answer longer than this is none, whatever it holds. In bytes, without the line feed.
inline constexpr qsizetype longestAnswer = 1024 * 1024;

/// No text of a draft but its notes is longer than this, in UTF-16 units; an answer with a longer
/// one is none. A name has at most thirty characters, and a character may be long.
inline constexpr qsizetype longestText = 1000;

/// Asks for the draft of one file: `{"path":"/home/ann/bill.png"}` and a line feed.
QByteArray encodeRequest(const QString &path);

/// The path that a line asks for; a line that asks for nothing gives no value.
std::optional<QString> decodeRequest(const QByteArray &line);

/// Answers with a draft or, for a file that gives none, with `null`; with a line feed. A draft that
/// has no JSON form, or one that is too long or has too long a text, is answered as none.
QByteArray encodeAnswer(const std::optional<Subscription> &draft);

/// What stands in the place of an answer that is not one.
struct Malformed {
    bool operator==(const Malformed &) const = default;
};

/// The draft or its absence, from a line without its line feed.
std::variant<std::optional<Subscription>, Malformed> decodeAnswer(const QByteArray &line);

} // namespace tovarin::ScanMessages
