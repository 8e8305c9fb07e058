// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "scan/recognition/Glyph.h"
#include "scan/recognition/InkProfile.h"

#include <functional>

namespace tovarin {

/// Tells the currency sign on a picture, 8-bit BGR; empty when it is none.
using ReadSign = std::function<QString(const cv::Mat &)>;

/// Puts back the signs before prices that the recognition model knows no character for, or took for
/// a letter: where ink stands before a number with decimals that no character accounts for,
/// `readSign` is asked about that ink alone. Nothing is put there that was not read.
Glyphs withCurrencySigns(Glyphs glyphs, const InkProfile &ink, const cv::Mat &line,
                         const ReadSign &readSign);

} // namespace tovarin
