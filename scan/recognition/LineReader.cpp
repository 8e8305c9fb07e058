// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/LineReader.h"

#include "scan/recognition/TextModel.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <opencv2/imgproc.hpp>
#include <stdexcept>

namespace tovarin {

namespace {

constexpr int lineHeight = 48;
// Narrower lines are padded to this width; the model does worse on them else.
constexpr int leastWidth = 160;
constexpr int widthStep = 32;
constexpr int mostWidth = 3200;

// Scores this far below the best one of their place add nothing that shows to the sum of softmax.
constexpr float negligible = -14;
// A reading surer than this has no others worth telling.
constexpr float beyondDoubt = 0.999F;
constexpr std::size_t othersKept = 3;

/// How wide a line is once it is as high as the model wants it.
int scaledWidth(cv::Size line) {
    const double width = std::ceil(static_cast<double>(lineHeight) * line.width / line.height);
    return static_cast<int>(std::clamp<double>(width, 8, mostWidth));
}

cv::Mat inputFor(const cv::Mat &line, int width, int paddedWidth) {
    cv::Mat scaled;
    cv::resize(line, scaled, {width, lineHeight}, 0, 0, cv::INTER_LINEAR);
    // Grey padding is nothing to the model: its input runs from -1 to 1.
    cv::Mat padded(lineHeight, paddedWidth, CV_32FC3, cv::Scalar::all(0));
    scaled.convertTo(padded.colRange(0, width), CV_32FC3, 2 / 255.0, -1);
    return cv::dnn::blobFromImage(padded);
}

/// The scores of the model: `places` from left to right, for each of them one score a character.
class Scores {
public:
    explicit Scores(const cv::Mat &output)
        : m_values(output.ptr<float>())
        , m_characters(output.size[1])
        , m_places(output.size[3])
        , m_best(places(), 0)
        , m_highest(m_values, m_values + m_places)
        , m_sum(places(), 0) {
        for (int character = 1; character < m_characters; ++character) {
            const float *row = rowOf(character);
            for (std::size_t place = 0; place < places(); ++place) {
                if (row[place] > m_highest[place]) {
                    m_highest[place] = row[place];
                    m_best[place] = character;
                }
            }
        }
        for (int character = 0; character < m_characters; ++character) {
            const float *row = rowOf(character);
            for (std::size_t place = 0; place < places(); ++place) {
                const float below = row[place] - m_highest[place];
                if (below > negligible)
                    m_sum[place] += std::exp(below);
            }
        }
    }

    std::size_t places() const { return static_cast<std::size_t>(m_places); }
    int best(std::size_t place) const { return m_best[place]; }
    float confidence(std::size_t place) const { return 1 / m_sum[place]; }

    /// The next best characters of a place, likeliest first; "nothing here" is none of them.
    QList<GlyphReading> others(std::size_t place, const ModelDictionary &dictionary) const {
        std::array<std::pair<float, int>, othersKept> kept;
        kept.fill({-INFINITY, 0});
        for (int character = 1; character < m_characters; ++character) {
            const float score = rowOf(character)[place];
            if (character == m_best[place] || score <= kept.back().first)
                continue;
            kept.back() = {score, character};
            std::ranges::sort(kept, std::ranges::greater());
        }
        QList<GlyphReading> readings;
        for (const auto &[score, character] : kept) {
            readings.append({dictionary.at(static_cast<std::size_t>(character)),
                             std::exp(score - m_highest[place]) / m_sum[place]});
        }
        return readings;
    }

private:
    const float *rowOf(int character) const {
        return m_values + static_cast<std::ptrdiff_t>(character) * m_places;
    }

    const float *m_values;
    int m_characters;
    int m_places;
    std::vector<int> m_best;
    std::vector<float> m_highest;
    std::vector<float> m_sum;
};

} // namespace

ModelDictionary::ModelDictionary(const std::filesystem::path &file) {
    std::ifstream lines(file);
    m_characters.emplace_back();
    for (std::string line; std::getline(lines, line);)
        m_characters.push_back(QString::fromStdString(line));
    if (m_characters.size() == 1)
        throw std::runtime_error("no dictionary in " + file.string());
    m_characters.push_back(QStringLiteral(" "));
}

LineReader::LineReader(const std::filesystem::path &model, const ModelDictionary &dictionary)
    : m_net(readModel(model)), m_dictionary(dictionary) {}

int LineReader::workingWidth(cv::Size line) {
    const int steps = (scaledWidth(line) + widthStep - 1) / widthStep;
    return std::max(leastWidth, steps * widthStep);
}

Glyphs LineReader::read(const cv::Mat &line) {
    const int width = scaledWidth(line.size());
    const int paddedWidth = workingWidth(line.size());
    m_net.setInput(inputFor(line, width, paddedWidth));
    const cv::Mat output = m_net.forward();
    CV_Assert(output.dims == 4 && static_cast<std::size_t>(output.size[1]) == m_dictionary.size());

    const Scores scores(output);
    const float placeWidth = static_cast<float>(paddedWidth) / static_cast<float>(scores.places());
    Glyphs glyphs;
    // The same character at neighbouring places is one glyph; "nothing here" between them parts
    // two.
    for (std::size_t place = 0; place < scores.places();) {
        const std::size_t begin = place;
        std::size_t surest = place;
        const int character = scores.best(place);
        for (; place < scores.places() && scores.best(place) == character; ++place) {
            if (scores.confidence(place) > scores.confidence(surest))
                surest = place;
        }
        if (character == 0)
            continue;
        const float confidence = scores.confidence(surest);
        const float middle = static_cast<float>(begin + place) / 2 * placeWidth;
        glyphs.push_back({m_dictionary.at(static_cast<std::size_t>(character)), confidence,
                          middle / static_cast<float>(width),
                          confidence < beyondDoubt ? scores.others(surest, m_dictionary)
                                                   : QList<GlyphReading>()});
    }
    return glyphs;
}

} // namespace tovarin
