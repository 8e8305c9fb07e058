// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/TwinLetters.h"

#include <algorithm>
#include <cmath>

namespace tovarin {

namespace {

bool isBlank(const Glyph &glyph) {
    return glyph.text == QStringLiteral(" ");
}

bool isStrokeLetter(const Glyph &glyph) {
    return glyph.text == QStringLiteral("l") || glyph.text == QStringLiteral("I");
}

bool isStroke(const InkRun &run, const InkProfile &ink) {
    const auto textHeight = static_cast<float>(ink.textHeight());
    return static_cast<float>(run.height()) >= 0.6F * textHeight && 3 * run.width() <= run.height();
}

/// Tells for a word what its glyphs lack.
class Word {
public:
    Word(const Glyphs &glyphs, std::size_t begin, std::size_t end, const InkProfile &ink)
        : m_glyphs(glyphs), m_begin(begin), m_end(end), m_ink(ink) {
        // A word's ink stands between the middles of the blanks around it.
        const float from = begin == 0 ? -1 : column(begin - 1);
        const float to = end == glyphs.size() ? static_cast<float>(ink.width() + 1) : column(end);
        std::ranges::copy_if(ink.runs(), std::back_inserter(m_runs), [from, to](const InkRun &run) {
            const float middle = middleOf(run);
            return middle > from && middle < to;
        });
    }

    /// The position of the letter to be doubled; the word's end when there is none.
    std::size_t lost() const {
        if (m_runs.size() != m_end - m_begin + 1)
            return m_end;
        // The glyphs before the stroke too many stand at the runs, those after it one further on.
        for (std::size_t i = 1; i < m_runs.size(); ++i) {
            if (isStrokeLetter(m_glyphs[m_begin + i - 1]) && isStroke(m_runs[i - 1], m_ink) &&
                isStroke(m_runs[i], m_ink) && isNext(i) && standsApart(i) && agrees(i))
                return m_begin + i - 1;
        }
        return m_end;
    }

private:
    static float middleOf(const InkRun &run) { return static_cast<float>(run.begin + run.end) / 2; }

    float column(std::size_t glyph) const {
        return m_glyphs[glyph].position * static_cast<float>(m_ink.width());
    }

    /// Whether no other stroke follows the two, so that the last of a group is doubled.
    bool isNext(std::size_t run) const {
        return m_begin + run == m_end || !isStrokeLetter(m_glyphs[m_begin + run]);
    }

    /// Whether the stroke is as far from what follows as from the stroke before: it may be the left
    /// part of a letter that fell apart.
    bool standsApart(std::size_t run) const {
        if (run + 1 == m_runs.size())
            return true;
        const int before = m_runs[run].begin - m_runs[run - 1].end;
        const int after = m_runs[run + 1].begin - m_runs[run].end;
        return 3 * after >= 2 * before;
    }

    bool agrees(std::size_t lost) const {
        const float limit = 0.45F * static_cast<float>(m_ink.textHeight());
        for (std::size_t i = 0; i < m_end - m_begin; ++i) {
            // The doubled letter stands anywhere on its two strokes.
            const InkRun &first = m_runs[i < lost ? i : i + 1];
            const InkRun &last = m_runs[i + 1 < lost ? i : i + 1];
            if (column(m_begin + i) < middleOf(first) - limit ||
                column(m_begin + i) > middleOf(last) + limit)
                return false;
        }
        return true;
    }

    const Glyphs &m_glyphs;
    std::size_t m_begin;
    std::size_t m_end;
    const InkProfile &m_ink;
    std::vector<InkRun> m_runs;
};

} // namespace

Glyphs withTwinLetters(const Glyphs &glyphs, const InkProfile &ink) {
    Glyphs result;
    for (std::size_t begin = 0; begin < glyphs.size();) {
        std::size_t end = begin;
        while (end < glyphs.size() && !isBlank(glyphs[end]))
            ++end;
        const std::size_t lost = end > begin + 2 ? Word(glyphs, begin, end, ink).lost() : end;
        for (std::size_t i = begin; i < std::min(end + 1, glyphs.size()); ++i) {
            result.push_back(glyphs[i]);
            if (i == lost && i != end) {
                result.push_back(glyphs[i]);
                result.back().text = QStringLiteral("l");
            }
        }
        begin = end + 1;
    }
    return result;
}

} // namespace tovarin
