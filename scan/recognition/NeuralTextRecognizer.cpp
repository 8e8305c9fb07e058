// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/NeuralTextRecognizer.h"

#include "scan/recognition/ConfusableLetters.h"
#include "scan/recognition/CurrencySigns.h"
#include "scan/recognition/InkProfile.h"
#include "scan/recognition/MaskedDigits.h"
#include "scan/recognition/ReadingOrder.h"
#include "scan/recognition/Rectification.h"
#include "scan/recognition/TwinLetters.h"
#include "scan/recognition/WordSpaces.h"

#include <algorithm>
#include <atomic>
#include <new>
#include <numeric>
#include <opencv2/core/utility.hpp>
#include <opencv2/imgproc.hpp>

namespace tovarin {

namespace {

// Pieces less sure than this are drawings, not text.
constexpr float leastConfidence = 0.5F;

// Pages read with less confidence may stand on their heads, which a few of their pieces show.
constexpr float surelyUpright = 0.9F;
constexpr std::size_t sampleSize = 8;

/// The pixels of a picture in the format BGR888, which must outlive the result.
cv::Mat pixelsOf(const QImage &picture) {
    // OpenCV has no matrix that is only read; nobody writes to this one.
    return {picture.height(), picture.width(), CV_8UC3, const_cast<uchar *>(picture.constBits()),
            static_cast<std::size_t>(picture.bytesPerLine())};
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

/// The mean confidence of the glyphs on a page.
template <typename Pieces>
float sureness(const Pieces &pieces) {
    float sum = 0;
    float count = 0;
    for (const auto &piece : pieces) {
        sum += piece.confidence * static_cast<float>(piece.glyphs.size());
        count += static_cast<float>(piece.glyphs.size());
    }
    return count == 0 ? 0 : sum / count;
}

} // namespace

NeuralTextRecognizer::NeuralTextRecognizer(const std::filesystem::path &models, int threads)
    : m_detector(models / "detection.onnx"), m_dictionary(models / "characters.txt") {
    for (int thread = 0; thread < threads; ++thread)
        m_readers.emplace_back(models / "recognition.onnx", m_dictionary);
}

NeuralTextRecognizer::Piece NeuralTextRecognizer::readPiece(LineReader &reader, const cv::Mat &page,
                                                            const Quad &box) {
    const cv::Mat line = rectified(page, box);
    Glyphs glyphs = reader.read(line);
    const float confidence = confidenceOf(glyphs);
    if (confidence < leastConfidence)
        return {box, std::move(glyphs), confidence};
    for (Glyph &glyph : glyphs) {
        if (glyph.text == QStringLiteral("￥"))
            glyph.text = QStringLiteral("¥");
    }
    const InkProfile ink(line);
    glyphs = withMaskedDigits(withWordSpaces(glyphs, ink), ink);
    glyphs = withSettledLetters(withTwinLetters(glyphs, ink));
    glyphs = withCurrencySigns(std::move(glyphs), ink, line,
                               [this](const cv::Mat &sign) { return m_signs.read(sign); });
    return {box, std::move(glyphs), confidence};
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
                pieces[piece] =
                    readPiece(m_readers[static_cast<std::size_t>(reader)], page, boxes[piece]);
            }
        }
    };
    cv::parallel_for_({0, readers}, work, readers);
    return pieces;
}

std::vector<NeuralTextRecognizer::Piece> NeuralTextRecognizer::readUpright(const cv::Mat &bitmap,
                                                                           PageTurn &turn) {
    cv::Mat page = bitmap;
    std::vector<Quad> boxes = m_detector.detect(page);
    const bool isOnItsSide = liesOnItsSide(boxes);
    if (isOnItsSide) {
        page = turn.turned(page, 1);
        boxes = m_detector.detect(page);
    }
    std::vector<Piece> pieces;
    if (!isOnItsSide)
        pieces = read(page, boxes);
    if (isOnItsSide || sureness(pieces) < surelyUpright) {
        std::vector<Quad> sample;
        for (const std::size_t i : longest(boxes, sampleSize))
            sample.push_back(boxes[i]);
        PageTurn other = turn;
        const cv::Mat turned = other.turned(page, 2);
        if (sureness(read(turned, onTheirHeads(sample, page.size()))) >
            sureness(read(page, sample))) {
            turn = other;
            return read(turned, onTheirHeads(boxes, page.size()));
        }
        if (isOnItsSide)
            pieces = read(page, boxes);
    }
    return pieces;
}

QList<TextObservation> NeuralTextRecognizer::recognize(const QImage &bitmap) {
    try {
        return bitmap.isNull() ? QList<TextObservation>() : observationsOn(bitmap);
    } catch (const cv::Exception &fault) {
        if (fault.code == cv::Error::StsNoMem)
            throw std::bad_alloc();
        throw;
    }
}

QList<TextObservation> NeuralTextRecognizer::observationsOn(const QImage &bitmap) {
    const QImage picture = bitmap.convertToFormat(QImage::Format_BGR888);
    const cv::Mat page = pixelsOf(picture);
    PageTurn turn(page.size());
    std::vector<Piece> pieces = readUpright(page, turn);
    std::erase_if(pieces, [](const Piece &piece) { return piece.confidence < leastConfidence; });

    std::vector<Quad> boxes;
    for (const Piece &piece : pieces)
        boxes.push_back(piece.box);
    QList<TextObservation> observations;
    for (const std::vector<std::size_t> &row : rowsInReadingOrder(boxes)) {
        for (const std::size_t i : row) {
            TextObservation observation;
            std::ranges::transform(pieces[i].box.corners, observation.box.begin(),
                                   [&turn](cv::Point2f corner) {
                                       const cv::Point2f there = turn.original(corner);
                                       return QPointF(there.x, there.y);
                                   });
            observation.candidates = candidatesOf(pieces[i].glyphs);
            observations.append(observation);
        }
    }
    return observations;
}

} // namespace tovarin
