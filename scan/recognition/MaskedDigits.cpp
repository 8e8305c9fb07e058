// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/MaskedDigits.h"

#include "scan/recognition/Letters.h"

#include <algorithm>

namespace tovarin {

namespace {

constexpr QStringView dots = u".·•●…*";
constexpr QStringView amongDots = u".·•●…* oO0";

bool isOneOf(const Glyph &glyph, QStringView characters) {
    return glyph.text.size() == 1 && characters.contains(glyph.text.front());
}

/// Whether ink is a dot halfway up the line.
bool isRaisedDot(const InkRun &run, const InkProfile &ink) {
    const auto textHeight = static_cast<float>(ink.textHeight());
    const float middle = static_cast<float>(run.top + run.bottom) / 2;
    const float up = (middle - static_cast<float>(ink.textTop())) / textHeight;
    return static_cast<float>(run.width()) <= 0.5F * textHeight &&
           static_cast<float>(run.height()) <= 0.5F * textHeight && up > 0.25F && up < 0.75F;
}

} // namespace

Glyphs withMaskedDigits(const Glyphs &glyphs, const InkProfile &ink) {
    constexpr std::ptrdiff_t fewest = 3;
    const auto width = static_cast<float>(ink.width());
    Glyphs result;
    for (auto begin = glyphs.begin(); begin != glyphs.end();) {
        const auto end = std::find_if_not(
            begin, glyphs.end(), [](const Glyph &glyph) { return isOneOf(glyph, amongDots); });
        const bool hasDots =
            std::count_if(begin, end, [](const Glyph &glyph) { return isOneOf(glyph, dots); }) >= 2;
        if (!hasDots || end == glyphs.end() || !isDigit(codePoint(end->text))) {
            result.push_back(*begin++);
            continue;
        }
        const float from = begin == glyphs.begin() ? 0 : (begin - 1)->position * width;
        const float to = end->position * width;
        std::vector<InkRun> raised;
        std::ranges::copy_if(ink.runs(), std::back_inserter(raised), [&](const InkRun &run) {
            return static_cast<float>(run.begin) > from && static_cast<float>(run.end) < to &&
                   isRaisedDot(run, ink);
        });
        if (std::ssize(raised) < fewest) {
            result.insert(result.end(), begin, end);
            begin = end;
            continue;
        }
        const auto place = [width](int left, int right) {
            return static_cast<float>(left + right) / 2 / width;
        };
        if (begin != glyphs.begin() && begin->text == QStringLiteral(" "))
            result.push_back(*begin);
        for (const InkRun &run : raised)
            result.push_back({QStringLiteral("•"), 1, place(run.begin, run.end), {}});
        const InkRun &last = raised.back();
        const int digit = ink.nearestRun(to, width);
        const int next = ink.runs()[static_cast<std::size_t>(digit)].begin;
        if (4 * (next - last.end) > ink.textHeight())
            result.push_back({QStringLiteral(" "), 1, place(last.end, next), {}});
        begin = end;
    }
    return result;
}

} // namespace tovarin
