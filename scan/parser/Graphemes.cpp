// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/parser/Graphemes.h"

#include <QtGlobal>

#include <unicode/utext.h>

namespace tovarin::ReceiptParser {

GraphemeCounter::GraphemeCounter() {
    UErrorCode status = U_ZERO_ERROR;
    m_breaks.reset(icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    if (U_FAILURE(status))
        qFatal("ICU cannot tell characters apart: %s", u_errorName(status));
}

int GraphemeCounter::count(QStringView text, int limit) {
    UErrorCode status = U_ZERO_ERROR;
    UText units = UTEXT_INITIALIZER;
    utext_openUChars(&units, text.utf16(), text.size(), &status);
    m_breaks->setText(&units, status);
    int count = 0;
    while (count <= limit && m_breaks->next() != icu::BreakIterator::DONE)
        ++count;
    return count;
}

} // namespace tovarin::ReceiptParser
