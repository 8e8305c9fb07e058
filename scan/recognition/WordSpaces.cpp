// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/WordSpaces.h"

#include "scan/recognition/Letters.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace tovarin {

namespace {

// Gaps are told in shares of the text's height. Measured on drawn bills in some dozen fonts:
// narrower ones are never blanks.
constexpr float leastGap = 0.24F;

/// How wide a gap between two characters has to be for a blank; no value where there is none
/// however wide it is.
std::optional<float> gapForBlank(char32_t before, char32_t after) {
    if (isFullWidth(before) || isFullWidth(after) || isCurrencySign(before))
        return std::nullopt;
    const auto isOfNumber = [](char32_t c) {
        return isDigit(c) || c == U'.' || c == U',' || c == U'-' || c == U'/' || c == U':';
    };
    if (isOfNumber(before) && isOfNumber(after))
        return 0.5F;
    if (after == U'(' && isHan(before))
        return 0.5F;
    if (isHan(before) && isHan(after))
        return 0.34F;
    if (isHan(before) || isHan(after))
        return 0.32F;
    return 0.28F;
}

} // namespace

Glyphs withWordSpaces(const Glyphs &glyphs, const InkProfile &ink) {
    Glyphs letters;
    std::vector<bool> blankAfter;
    for (const Glyph &glyph : glyphs) {
        if (glyph.text != QStringLiteral(" ")) {
            letters.push_back(glyph);
            blankAfter.push_back(false);
        } else if (!letters.empty()) {
            blankAfter.back() = true;
        }
    }
    if (letters.size() < 2)
        return letters;

    const auto width = static_cast<float>(ink.width());
    const auto textHeight = static_cast<float>(ink.textHeight());
    const auto between = [&](std::size_t i) {
        return (letters[i].position + letters[i + 1].position) / 2 * width;
    };
    for (std::size_t run = 0; run + 1 < ink.runs().size(); ++run) {
        const InkRun &left = ink.runs()[run];
        const InkRun &right = ink.runs()[run + 1];
        const auto gap = static_cast<float>(right.begin - left.end);
        if (gap < leastGap * textHeight)
            continue;
        const float middle = static_cast<float>(left.end + right.begin) / 2;
        std::size_t nearest = 0;
        for (std::size_t i = 1; i + 1 < letters.size(); ++i) {
            if (std::abs(between(i) - middle) < std::abs(between(nearest) - middle))
                nearest = i;
        }
        if (std::abs(between(nearest) - middle) > std::max(14.F, 0.6F * textHeight))
            continue;
        const auto needed =
            gapForBlank(codePoint(letters[nearest].text), codePoint(letters[nearest + 1].text));
        if (needed && gap >= *needed * textHeight)
            blankAfter[nearest] = true;
    }

    Glyphs spaced;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        spaced.push_back(letters[i]);
        if (blankAfter[i] && i + 1 < letters.size())
            spaced.push_back({QStringLiteral(" "), 1, between(i) / width, {}});
    }
    return spaced;
}

} // namespace tovarin
