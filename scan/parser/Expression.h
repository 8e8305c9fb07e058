// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringView>

#include <unicode/regex.h>

#include <memory>

namespace tovarin::ReceiptParser {

/// A regular expression in ICU's syntax, compiled once; threads may share it.
class Expression {
public:
    enum class LetterCase { Matters, Ignored };

    /// One that cannot be built matches nothing.
    explicit Expression(QStringView pattern, LetterCase letterCase = LetterCase::Matters);

private:
    friend class Search;

    std::unique_ptr<const icu::RegexPattern> m_pattern;
};

/// Goes through the matches of an expression, which must outlive it, in one text after another.
/// Offsets count UTF-16 units. For one thread at a time.
///
/// ICU keeps a stack of 8 MB for the ways it may have to go back to; a match that would need more
/// is not found. Loops over a set in brackets, such as [0-9]+, need none of it; \s*, {5,}, ++ and
/// loops over groups take a piece for each round.
class Search {
public:
    explicit Search(const Expression &expression);
    Search(const Search &) = delete;
    Search &operator=(const Search &) = delete;

    /// Starts at the beginning of a text of at most 2^31 - 1 units. It is not copied, so it must
    /// live for as long as it is searched.
    void begin(QStringView text);

    /// Goes to the next match that does not overlap the one before; false when there is none.
    bool next();

    /// Whether the text holds a match at all. Begins with the text.
    bool isIn(QStringView text);

    /// Of the match that next() found: where it starts and ends, and a group's text.
    qsizetype start() const;
    qsizetype end() const;
    QStringView group(int number) const;

private:
    QStringView m_text;
    icu::UnicodeString m_input; // an alias of m_text, which the matcher points to
    std::unique_ptr<icu::RegexMatcher> m_matcher;
};

} // namespace tovarin::ReceiptParser
