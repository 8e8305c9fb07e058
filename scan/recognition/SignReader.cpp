// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/SignReader.h"

#include <opencv2/imgproc.hpp>
#include <tesseract/baseapi.h>

namespace tovarin {

namespace {

// The heights in which a sign is shown to the engine until it can tell it. In larger ones it reads
// fewer signs, bold ones above all, and takes more letters for signs.
constexpr double heights[] = {32, 28, 40};

/// Dark on light, with paper all around.
cv::Mat prepared(const cv::Mat &sign, double height) {
    cv::Mat grey;
    cv::cvtColor(sign, grey, cv::COLOR_BGR2GRAY);
    const double scale = height / grey.rows;
    cv::resize(grey, grey, {}, scale, scale, cv::INTER_CUBIC);
    cv::Mat paper;
    cv::threshold(grey, paper, 0, 255, cv::THRESH_BINARY | cv::THRESH_OTSU);
    if (2 * cv::countNonZero(paper) < static_cast<int>(paper.total())) {
        cv::bitwise_not(grey, grey);
        cv::threshold(grey, paper, 0, 255, cv::THRESH_BINARY | cv::THRESH_OTSU);
    }
    const cv::Scalar ground(cv::mean(grey, paper)[0]);
    cv::copyMakeBorder(grey, grey, 14, 14, 24, 24, cv::BORDER_CONSTANT, ground);
    return grey;
}

} // namespace

SignReader::SignReader() = default;
SignReader::~SignReader() = default;

QString SignReader::read(const cv::Mat &sign) {
    const std::scoped_lock lock(m_mutex);
    if (!m_engine) {
        m_engine = std::make_unique<tesseract::TessBaseAPI>();
        m_isReady = m_engine->Init(nullptr, "eng", tesseract::OEM_LSTM_ONLY) == 0;
        m_engine->SetPageSegMode(tesseract::PSM_SINGLE_CHAR);
        m_engine->SetVariable("tessedit_char_whitelist", "$€£¥");
        m_engine->SetVariable("debug_file", "/dev/null");
    }
    if (!m_isReady)
        return {};
    for (const double height : heights) {
        const cv::Mat picture = prepared(sign, height);
        m_engine->SetImage(picture.data, picture.cols, picture.rows, 1,
                           static_cast<int>(picture.step));
        m_engine->SetSourceResolution(150);
        const std::unique_ptr<char[]> read(m_engine->GetUTF8Text());
        const QString text = QString::fromUtf8(read.get());
        for (const QChar known : QStringView(u"€£$¥")) {
            if (text.contains(known))
                return known;
        }
    }
    return {};
}

} // namespace tovarin
