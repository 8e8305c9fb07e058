// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace tovarin {

/// The text with the ideographs that its radicals stand for: some programs write PDFs whose text
/// layer says ⽉ (U+2F49) where the page shows 月. Touches the blocks of the CJK radicals
/// (U+2E80 to U+2FDF) only; NFKC would change full-width colons and more.
QString withoutRadicals(const QString &text);

} // namespace tovarin
