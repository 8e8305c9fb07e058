// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringView>

#include <unicode/brkiter.h>

#include <memory>

namespace tovarin::ReceiptParser {

/// Counts characters as people see them: Unicode's extended grapheme clusters. For one thread at a
/// time.
class GraphemeCounter {
public:
    GraphemeCounter();

    /// How many the text has; when there are more than `limit`, `limit` + 1, and the rest of the
    /// text is not looked at.
    int count(QStringView text, int limit);

private:
    std::unique_ptr<icu::BreakIterator> m_breaks;
};

} // namespace tovarin::ReceiptParser
