// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "scan/recognition/Glyph.h"

#include <filesystem>
#include <opencv2/dnn/dnn.hpp>
#include <vector>

namespace tovarin {

/// The characters that the recognition model can tell apart, by the number of its output.
class ModelDictionary {
public:
    /// One character a line. Throws std::runtime_error when the file cannot be read.
    explicit ModelDictionary(const std::filesystem::path &file);

    /// Output 0 means "nothing here" and has no character; the last one is the blank.
    const QString &at(std::size_t output) const { return m_characters.at(output); }
    std::size_t size() const { return m_characters.size(); }

private:
    std::vector<QString> m_characters;
};

/// Reads the characters of one line of text by the recognition model. One of these for each thread
/// that reads; they may share the dictionary.
class LineReader {
public:
    /// `dictionary` must outlive the reader. Throws cv::Exception when the model cannot be read or
    /// does not fit the dictionary.
    LineReader(const std::filesystem::path &model, const ModelDictionary &dictionary);

    /// The characters of an upright line, 8-bit BGR, of any size.
    Glyphs read(const cv::Mat &line);

    /// The width in which the model sees a line: its costs grow with it.
    static int workingWidth(cv::Size line);

private:
    cv::dnn::Net m_net;
    const ModelDictionary &m_dictionary;
};

} // namespace tovarin
