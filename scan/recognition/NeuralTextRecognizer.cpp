// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/NeuralTextRecognizer.h"

#include "scan/recognition/CurrencySigns.h"
#include "scan/recognition/InkProfile.h"
#include "scan/recognition/ReadingOrder.h"
#include "scan/recognition/Rectification.h"
#include "scan/recognition/WordSpaces.h"

#include <algorithm>
#include <atomic>
#include <numeric>
#include <opencv2/core/utility.hpp>
#include <opencv2/imgproc.hpp>

namespace tovarin {

namespace {

// Pieces less sure than this are drawings, not text.
constexpr float leastConfidence = 0.5F;

/// A copy of the bitmap as the models want it.
cv::Mat bgrPixels(const QImage &bitmap) {
    QImage image = bitmap.convertToFormat(QImage::Format_BGR888);
    const cv::Mat view(image.height(), image.width(), CV_8UC3, image.bits(),
                       static_cast<std::size_t>(image.bytesPerLine()));
    return view.clone();
}

/// Which of the pieces to read first: the long ones, so that no thread is left with one at the end.
std::vector<std::size_t> longestFirst(const std::vector<Quad> &boxes) {
    std::vector<std::size_t> order(boxes.size());
    std::iota(order.begin(), order.end(), 0);
    std::ranges::stable_sort(order, std::ranges::greater(), [&boxes](std::size_t i) {
        const float ratio = boxes[i].width() / boxes[i].height();
        return std::max(ratio, 1 / ratio);
    });
    return order;
}

} // namespace

NeuralTextRecognizer::NeuralTextRecognizer(const std::filesystem::path &models, int threads)
    : m_detector(models / "detection.onnx"), m_dictionary(models / "characters.txt") {
    for (int thread = 0; thread < threads; ++thread)
        m_readers.emplace_back(models / "recognition.onnx", m_dictionary);
}

Glyphs NeuralTextRecognizer::readPiece(LineReader &reader, const cv::Mat &page, const Quad &box) {
    const cv::Mat line = rectified(page, box);
    Glyphs glyphs = reader.read(line);
    if (confidenceOf(glyphs) < leastConfidence)
        return {};
    for (Glyph &glyph : glyphs) {
        if (glyph.text == QStringLiteral("￥"))
            glyph.text = QStringLiteral("¥");
    }
    const InkProfile ink(line);
    glyphs = withWordSpaces(glyphs, ink);
    return withCurrencySigns(std::move(glyphs), ink, line,
                             [this](const cv::Mat &sign) { return m_signs.read(sign); });
}

std::vector<NeuralTextRecognizer::Piece>
NeuralTextRecognizer::read(const cv::Mat &page, const std::vector<Quad> &boxes) {
    std::vector<Piece> pieces(boxes.size());
    const std::vector<std::size_t> order = longestFirst(boxes);
    std::atomic<std::size_t> next = 0;
    const auto readers = static_cast<int>(m_readers.size());
    const auto work = [&](const cv::Range &range) {
        for (int reader = range.start; reader < range.end; ++reader) {
            for (std::size_t i = next++; i < order.size(); i = next++) {
                const std::size_t piece = order[i];
                pieces[piece] = {
                    boxes[piece],
                    readPiece(m_readers[static_cast<std::size_t>(reader)], page, boxes[piece])};
            }
        }
    };
    cv::parallel_for_({0, readers}, work, readers);
    std::erase_if(pieces, [](const Piece &piece) { return piece.glyphs.empty(); });
    return pieces;
}

QList<TextObservation> NeuralTextRecognizer::recognize(const QImage &bitmap) {
    if (bitmap.isNull())
        return {};
    const cv::Mat page = bgrPixels(bitmap);
    const std::vector<Piece> pieces = read(page, m_detector.detect(page));

    std::vector<Quad> boxes;
    for (const Piece &piece : pieces)
        boxes.push_back(piece.box);
    QList<TextObservation> observations;
    for (const std::vector<std::size_t> &row : rowsInReadingOrder(boxes)) {
        for (const std::size_t i : row) {
            TextObservation observation;
            std::ranges::transform(pieces[i].box.corners, observation.box.begin(),
                                   [](cv::Point2f corner) { return QPointF(corner.x, corner.y); });
            observation.candidates = {{textOf(pieces[i].glyphs), confidenceOf(pieces[i].glyphs)}};
            observations.append(observation);
        }
    }
    return observations;
}

} // namespace tovarin
