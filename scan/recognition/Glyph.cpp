// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/Glyph.h"

#include <algorithm>

namespace tovarin {

QString textOf(const Glyphs &glyphs) {
    QString text;
    for (const Glyph &glyph : glyphs)
        text += glyph.text;
    return text;
}

float confidenceOf(const Glyphs &glyphs) {
    float sum = 0;
    for (const Glyph &glyph : glyphs)
        sum += glyph.confidence;
    return glyphs.empty() ? 0 : sum / static_cast<float>(glyphs.size());
}

QList<TextCandidate> candidatesOf(const Glyphs &glyphs) {
    constexpr std::size_t most = 4;
    struct Exchange {
        std::size_t glyph;
        qsizetype other;
        float loss;
    };
    std::vector<Exchange> exchanges;
    for (std::size_t i = 0; i < glyphs.size(); ++i) {
        for (qsizetype other = 0; other < glyphs[i].others.size(); ++other) {
            const float loss = glyphs[i].confidence - glyphs[i].others[other].confidence;
            exchanges.push_back({i, other, std::max(loss, 0.F)});
        }
    }
    std::ranges::stable_sort(exchanges, {}, &Exchange::loss);

    const float confidence = confidenceOf(glyphs);
    QList<TextCandidate> candidates = {{textOf(glyphs), confidence}};
    for (const Exchange &exchange : exchanges) {
        if (static_cast<std::size_t>(candidates.size()) == most)
            break;
        Glyphs exchanged = glyphs;
        exchanged[exchange.glyph].text = glyphs[exchange.glyph].others[exchange.other].text;
        const TextCandidate candidate = {
            textOf(exchanged), confidence - exchange.loss / static_cast<float>(glyphs.size())};
        if (std::ranges::find(candidates, candidate.text, &TextCandidate::text) == candidates.end())
            candidates.append(candidate);
    }
    return candidates;
}

} // namespace tovarin
