// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/InkProfile.h"

#include <algorithm>
#include <cmath>
#include <opencv2/imgproc.hpp>

namespace tovarin {

namespace {

constexpr int leastTextHeight = 12;

/// The ink of the line as white on black.
cv::Mat inkOf(const cv::Mat &line, cv::Size size) {
    cv::Mat grey;
    cv::resize(line, grey, size, 0, 0, cv::INTER_CUBIC);
    cv::cvtColor(grey, grey, cv::COLOR_BGR2GRAY);
    cv::GaussianBlur(grey, grey, {3, 3}, 0);
    cv::Mat ink;
    cv::threshold(grey, ink, 0, 255, cv::THRESH_BINARY | cv::THRESH_OTSU);
    // There is more paper than ink.
    if (2 * cv::countNonZero(ink) > size.area())
        cv::bitwise_not(ink, ink);
    return ink;
}

/// How many pixels of each row (dimension 1) or column (dimension 0) have ink.
std::vector<int> counts(const cv::Mat &ink, int dimension) {
    cv::Mat sums;
    cv::reduce(ink / 255, sums, dimension, cv::REDUCE_SUM, CV_32S);
    return {sums.begin<int>(), sums.end<int>()};
}

} // namespace

InkProfile::InkProfile(const cv::Mat &line)
    : m_width(std::max(8, static_cast<int>(std::ceil(1.0 * height * line.cols / line.rows)))) {
    m_ink = inkOf(line, {m_width, height});
    const std::vector<int> columns = counts(m_ink, 0);
    for (int x = 0; x < m_width;) {
        const auto inked = [&columns](int column) {
            return columns[static_cast<std::size_t>(column)] >= 2;
        };
        if (!inked(x)) {
            ++x;
            continue;
        }
        const int begin = x;
        while (x < m_width && inked(x))
            ++x;
        if (x - begin >= 2 || columns[static_cast<std::size_t>(begin)] > 4)
            m_runs.push_back(part(begin, x));
    }

    const std::vector<int> rows = counts(m_ink, 1);
    const auto inked = [this](int count) { return count > std::max(2, m_width / 100); };
    const auto first = std::ranges::find_if(rows, inked);
    const auto last = std::ranges::find_if(rows.rbegin(), rows.rend(), inked);
    m_textTop = static_cast<int>(first - rows.begin());
    m_textHeight = std::max(leastTextHeight, static_cast<int>(last.base() - first));
}

InkRun InkProfile::part(int begin, int end) const {
    const cv::Rect box = cv::boundingRect(m_ink.colRange(begin, end));
    return {begin, end, box.y, box.y + box.height};
}

int InkProfile::emptiestColumn(int begin, int end) const {
    const std::vector<int> columns = counts(m_ink.colRange(begin, end), 0);
    return begin + static_cast<int>(std::ranges::min_element(columns) - columns.begin());
}

float InkProfile::distance(float column, const InkRun &run) {
    return std::max(
        {0.F, static_cast<float>(run.begin) - column, column - static_cast<float>(run.end)});
}

int InkProfile::nearestRun(float column, float limit) const {
    int nearest = -1;
    for (std::size_t i = 0; i < m_runs.size(); ++i) {
        const float away = distance(column, m_runs[i]);
        if (away < limit) {
            limit = away;
            nearest = static_cast<int>(i);
        }
    }
    return nearest;
}

} // namespace tovarin
