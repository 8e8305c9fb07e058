// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "scan/recognition/Glyph.h"
#include "scan/recognition/LineReader.h"
#include "scan/recognition/PageTurn.h"
#include "scan/recognition/SignReader.h"
#include "scan/recognition/TextDetector.h"
#include "scan/recognition/TextRecognizer.h"

namespace tovarin {

/// Recognises text by the PP-OCRv4 models, run by OpenCV: finds the pieces of text, lays each flat,
/// reads it, puts back what the models lose (blanks, € and £), and orders the pieces by rows. A
/// page that lies on its side or stands on its head is turned first.
class NeuralTextRecognizer final : public TextRecognizer {
public:
    /// `models` is a folder with detection.onnx, recognition.onnx and characters.txt, as
    /// tools/text-models makes them. Reads lines in as many threads as told; their number changes
    /// the time only. Throws std::exception when a model cannot be read.
    explicit NeuralTextRecognizer(const std::filesystem::path &models, int threads = 2);

    /// Throws std::bad_alloc when there is not enough memory.
    QList<TextObservation> recognize(const QImage &bitmap) override;

private:
    /// A piece of text with what was read there.
    struct Piece {
        Quad box;
        Glyphs glyphs;
        float confidence = 0; ///< Before anything was put back.
    };

    QList<TextObservation> observationsOn(const QImage &bitmap);
    std::vector<Piece> readUpright(const cv::Mat &bitmap, PageTurn &turn);
    std::vector<Piece> read(const cv::Mat &page, const std::vector<Quad> &boxes);
    Piece readPiece(LineReader &reader, const cv::Mat &page, const Quad &box);

    TextDetector m_detector;
    ModelDictionary m_dictionary;
    std::vector<LineReader> m_readers;
    SignReader m_signs;
};

} // namespace tovarin
