// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/MaskedDigits.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace tovarin {

namespace {

// What the dots are read as, and what is read between and beside them.
constexpr QStringView dots = u".·•●…*▪";
constexpr QStringView amongDots = u".·•●…*▪ oO0?:：'-";

// Of the stars that stand as low as dots, those read with less confidence are dots.
constexpr float sureStar = 0.97F;

constexpr int fewestDots = 3;
constexpr int mostDots = 8;

bool isOneOf(const Glyph &glyph, QStringView characters) {
    return glyph.text.size() == 1 && characters.contains(glyph.text.front());
}

/// Dots in a row, some of which may touch.
struct Dots {
    int begin; ///< The first column.
    int end;   ///< The column after the last one.
    int count;
};

class DotFinder {
public:
    explicit DotFinder(const InkProfile &ink)
        : m_ink(ink), m_textHeight(static_cast<float>(ink.textHeight())) {}

    /// The dots that stand in a row from this run on; no value where there are fewer than three.
    std::optional<Dots> at(std::size_t first) const {
        const InkRun &dot = m_ink.runs()[first];
        if (!isRaised(dot) || !isRound(dot))
            return std::nullopt;
        Dots found = {dot.begin, dot.end, 1};
        int pitch = 0;
        for (std::size_t i = first + 1; i < m_ink.runs().size(); ++i) {
            const InkRun &next = m_ink.runs()[i];
            const int gap = next.begin - found.end;
            if (!isRaised(next) || std::abs(next.height() - dot.height()) > slack(dot) ||
                static_cast<float>(gap) > 1.3F * m_textHeight ||
                (pitch > 0 && std::abs(gap + dot.width() - pitch) > slack(dot)))
                break;
            if (pitch == 0)
                pitch = gap + dot.width();
            const float touching =
                static_cast<float>(next.width() + gap) / static_cast<float>(pitch);
            const int count = std::max(1, static_cast<int>(std::lround(touching)));
            if (std::abs(next.width() + gap - count * pitch) > slack(dot))
                break;
            found.count += count;
            found.end = next.end;
        }
        if (found.count < fewestDots || found.count > mostDots)
            return std::nullopt;
        return found;
    }

private:
    static int slack(const InkRun &dot) { return std::max(3, dot.width() / 3); }

    /// Whether ink stands halfway up the line, as a dot does.
    bool isRaised(const InkRun &run) const {
        const float middle = static_cast<float>(run.top + run.bottom) / 2;
        const float up = (middle - static_cast<float>(m_ink.textTop())) / m_textHeight;
        return static_cast<float>(run.height()) <= 0.62F * m_textHeight && up > 0.34F && up < 0.75F;
    }

    bool isRound(const InkRun &run) const {
        return 2 * run.width() >= run.height() && 2 * run.width() <= 3 * run.height() &&
               static_cast<float>(run.width()) <= 0.62F * m_textHeight;
    }

    const InkProfile &m_ink;
    float m_textHeight;
};

} // namespace

Glyphs withMaskedDigits(const Glyphs &glyphs, const InkProfile &ink) {
    const auto width = static_cast<float>(ink.width());
    const float margin = 0.15F * static_cast<float>(ink.textHeight());
    const auto isWithin = [&](const Glyph &glyph, const Dots &found) {
        const float column = glyph.position * width;
        return column > static_cast<float>(found.begin) - margin &&
               column < static_cast<float>(found.end) + margin;
    };
    const auto place = [width](int left, int right) {
        return static_cast<float>(left + right) / 2 / width;
    };
    const DotFinder finder(ink);
    Glyphs result = glyphs;
    for (std::size_t run = 0; run < ink.runs().size(); ++run) {
        const auto found = finder.at(run);
        if (!found)
            continue;
        const auto next = std::ranges::find_if(
            ink.runs(), [&](const InkRun &other) { return other.begin >= found->end; });
        const int before = run == 0 ? 0 : ink.runs()[run - 1].end;
        run = static_cast<std::size_t>(next - ink.runs().begin()) - 1;
        auto begin = std::ranges::find_if(result, [&](const Glyph &glyph) {
            return glyph.position * width > static_cast<float>(found->begin) - margin;
        });
        auto end = std::find_if_not(begin, result.end(),
                                    [&](const Glyph &glyph) { return isWithin(glyph, *found); });
        const auto isAmong = [](const Glyph &glyph) { return isOneOf(glyph, amongDots); };
        const auto read =
            std::count_if(begin, end, [](const Glyph &glyph) { return isOneOf(glyph, dots); });
        const bool areStars = std::distance(begin, end) == found->count &&
                              std::all_of(begin, end, [](const Glyph &glyph) {
                                  return isOneOf(glyph, u"*") && glyph.confidence > sureStar;
                              });
        const bool isOther = !std::all_of(begin, end, isAmong);
        // Three dots may be anything unless read as such.
        if (isOther || areStars || (found->count == fewestDots && read < 2))
            continue;
        const auto isDotOrBlank = [](const Glyph &glyph) {
            return isOneOf(glyph, dots) || glyph.text == QStringLiteral(" ");
        };
        while (begin != result.begin() && isDotOrBlank(*(begin - 1)))
            --begin;
        end = std::find_if_not(end, result.end(), isDotOrBlank);
        Glyphs put;
        const int step = (found->end - found->begin) / found->count;
        const auto blank = [&](int left, int right) {
            if (4 * (right - left) > ink.textHeight())
                put.push_back({QStringLiteral(" "), 1, place(left, right), {}});
        };
        if (begin != result.begin())
            blank(before, found->begin);
        for (int i = 0; i < found->count; ++i)
            put.push_back({QStringLiteral("•"),
                           1,
                           place(found->begin + i * step, found->begin + (i + 1) * step),
                           {}});
        if (end != result.end() && next != ink.runs().end())
            blank(found->end, next->begin);
        const auto at = result.erase(begin, end);
        result.insert(at, put.begin(), put.end());
    }
    return result;
}

} // namespace tovarin
