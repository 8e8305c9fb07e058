// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/CurrencySigns.h"

#include "scan/recognition/Letters.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace tovarin {

namespace {

// Letters that signs are taken for.
constexpr QStringView lookAlikes = u"YVyvfFECceGtLSs8";

bool isOfPrice(char32_t c) {
    return isDigit(c) || c == U'.' || c == U',';
}

bool isBlank(const Glyph &glyph) {
    return glyph.text == QStringLiteral(" ");
}

char32_t characterAt(const Glyphs &glyphs, std::size_t i) {
    return codePoint(glyphs[i].text);
}

/// Whether a price with decimals begins at the glyph.
bool isPriceAt(const Glyphs &glyphs, std::size_t first) {
    if (!isDigit(characterAt(glyphs, first)) ||
        (first > 0 && isOfPrice(characterAt(glyphs, first - 1))))
        return false;
    for (std::size_t i = first; i + 2 < glyphs.size() && isOfPrice(characterAt(glyphs, i)); ++i) {
        if (characterAt(glyphs, i) == U'.' && isDigit(characterAt(glyphs, i + 1)) &&
            isDigit(characterAt(glyphs, i + 2)))
            return true;
    }
    return false;
}

/// The last glyph before `first` that is not a blank; -1 when there is none.
std::ptrdiff_t glyphBefore(const Glyphs &glyphs, std::size_t first) {
    auto before = static_cast<std::ptrdiff_t>(first) - 1;
    while (before >= 0 && isBlank(glyphs[static_cast<std::size_t>(before)]))
        --before;
    return before;
}

/// Whether the glyph stands alone and may be a sign taken for a letter.
bool isLookAlike(const Glyphs &glyphs, std::size_t i) {
    if (glyphs[i].text.size() != 1 || !lookAlikes.contains(glyphs[i].text.front()))
        return false;
    return i == 0 ||
           (!isLatinLetter(characterAt(glyphs, i - 1)) && !isDigit(characterAt(glyphs, i - 1)));
}

/// How far the digits of the price at `first` stand apart, in columns.
float pitchOf(const Glyphs &glyphs, std::size_t first, const InkProfile &ink) {
    float least = 0.55F * static_cast<float>(ink.textHeight());
    for (std::size_t i = first; i + 1 < glyphs.size() && isDigit(characterAt(glyphs, i + 1)); ++i) {
        const float apart =
            (glyphs[i + 1].position - glyphs[i].position) * static_cast<float>(ink.width());
        least = std::min(least, apart);
    }
    return std::max(least, 4.F);
}

/// The ink right before the digit at `column`: the run before the digit's own, or the beginning of
/// that one when it reaches far to the left, because the sign touches the digit.
std::optional<InkRun> inkBefore(float column, float pitch, const InkProfile &ink) {
    const int digit = ink.nearestRun(column, 10);
    if (digit < 0)
        return std::nullopt;
    const InkRun &own = ink.runs()[static_cast<std::size_t>(digit)];
    const auto at = [column, pitch](float pitches) {
        return static_cast<int>(column - pitches * pitch);
    };
    if (own.begin < at(1) && at(0.8F) > own.begin) {
        const int cut = ink.emptiestColumn(at(0.8F), std::max(at(0.35F), at(0.8F) + 1));
        if (cut > own.begin)
            return ink.part(own.begin, cut);
    }
    if (digit == 0)
        return std::nullopt;
    const InkRun &before = ink.runs()[static_cast<std::size_t>(digit) - 1];
    if (static_cast<float>(own.begin - before.end) > 0.9F * static_cast<float>(ink.textHeight()))
        return std::nullopt;
    return before;
}

/// Whether ink has the size of a currency sign.
bool mayBeSign(const InkRun &run, const InkProfile &ink) {
    const auto width = static_cast<float>(run.width());
    const auto textHeight = static_cast<float>(ink.textHeight());
    return width >= 0.18F * textHeight && width <= 1.1F * textHeight &&
           static_cast<float>(run.height()) >= 0.6F * textHeight;
}

cv::Mat pictureOf(const InkRun &run, const InkProfile &ink, const cv::Mat &line) {
    const float scale = static_cast<float>(line.cols) / static_cast<float>(ink.width());
    const int begin =
        std::max(0, static_cast<int>(std::floor(static_cast<float>(run.begin - 1) * scale)));
    const int end =
        std::min(line.cols, static_cast<int>(std::ceil(static_cast<float>(run.end + 1) * scale)));
    return line.colRange(begin, std::max(end, begin + 1));
}

} // namespace

Glyphs withCurrencySigns(Glyphs glyphs, const InkProfile &ink, const cv::Mat &line,
                         const ReadSign &readSign) {
    const auto width = static_cast<float>(ink.width());
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        if (!isPriceAt(glyphs, i))
            continue;
        const std::ptrdiff_t before = glyphBefore(glyphs, i);
        const bool lookAlike = before >= 0 && isLookAlike(glyphs, static_cast<std::size_t>(before));
        if (before >= 0 && isCurrencySign(characterAt(glyphs, static_cast<std::size_t>(before))))
            continue;
        const float column = glyphs[i].position * width;
        const auto candidate = inkBefore(column, pitchOf(glyphs, i, ink), ink);
        if (!candidate || !mayBeSign(*candidate, ink))
            continue;
        // A character that was read accounts for the ink it stands in, and for all before.
        if (before >= 0 && !lookAlike &&
            glyphs[static_cast<std::size_t>(before)].position * width >
                static_cast<float>(candidate->begin))
            continue;
        const QString sign = readSign(pictureOf(*candidate, ink, line));
        if (sign.isEmpty())
            continue;
        const Glyph glyph = {
            sign, 0.5F, static_cast<float>(candidate->begin + candidate->end) / 2 / width, {}};
        const auto at = glyphs.begin() + (lookAlike ? before : static_cast<std::ptrdiff_t>(i));
        if (lookAlike) {
            glyphs.erase(at + 1, glyphs.begin() + static_cast<std::ptrdiff_t>(i));
            *at = glyph;
            i = static_cast<std::size_t>(before) + 1;
        } else {
            glyphs.insert(at, glyph);
            ++i;
        }
    }
    return glyphs;
}

} // namespace tovarin
