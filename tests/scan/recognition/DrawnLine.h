// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "scan/recognition/Glyph.h"

#include <QString>

#include <opencv2/core.hpp>
#include <vector>

namespace tovarin {

/// A line on which each character of `ink` is a black block on white, each space a gap of somewhat
/// less than half the blocks' height; and the glyphs of `read`, one for each block, "_" for a block
/// that was not read.
struct DrawnLine {
    static constexpr int block = 16;
    static constexpr int top = 12;
    static constexpr int height = 24;
    static constexpr int step = 20;

    DrawnLine(const QString &ink, const QString &read, int gap = 7) {
        std::vector<int> blocks;
        int x = 10;
        for (const QChar c : ink) {
            if (c == u' ') {
                x += gap;
                continue;
            }
            blocks.push_back(x);
            x += step;
        }
        picture = cv::Mat(48, x + 10, CV_8UC3, cv::Scalar::all(255));
        for (const int begin : blocks)
            picture(cv::Rect(begin, top, block, height)).setTo(cv::Scalar::all(0));
        for (qsizetype i = 0; i < read.size(); ++i) {
            if (read[i] != u'_') {
                const int middle = blocks[static_cast<std::size_t>(i)] + block / 2;
                glyphs.push_back({QString(read[i]),
                                  1,
                                  static_cast<float>(middle) / static_cast<float>(picture.cols),
                                  {}});
            }
        }
    }

    cv::Mat picture;
    Glyphs glyphs;
};

} // namespace tovarin
