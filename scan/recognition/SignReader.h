// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <memory>
#include <mutex>
#include <opencv2/core/mat.hpp>

namespace tesseract {
class TessBaseAPI;
}

namespace tovarin {

/// Reads single currency signs, for which the recognition model has no characters (€, £). Slow to
/// make, so it is made at the first question. May be asked by several threads at once.
class SignReader {
public:
    SignReader();
    ~SignReader();

    /// "$", "€", "£" or "¥" as seen on a picture of one sign, 8-bit BGR; empty when it is none of
    /// them or cannot be told.
    QString read(const cv::Mat &sign);

private:
    std::mutex m_mutex;
    std::unique_ptr<tesseract::TessBaseAPI> m_engine;
    bool m_isReady = false;
};

} // namespace tovarin
