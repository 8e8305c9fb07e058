// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <opencv2/core/mat.hpp>
#include <vector>

namespace tovarin {

/// Neighbouring columns with ink in them: a letter, a part of one, or letters that touch.
struct InkRun {
    int begin; ///< The first column.
    int end;   ///< The column after the last one.
    int top;   ///< The first row with ink.
    int bottom;

    int width() const { return end - begin; }
    int height() const { return bottom - top; }
};

/// Where the ink of a line stands, once the line is scaled to 48 rows; dark on light or light on
/// dark. Rows and columns are pixels of that scaled line.
class InkProfile {
public:
    static constexpr int height = 48;

    /// `line` is 8-bit BGR.
    explicit InkProfile(const cv::Mat &line);

    int width() const { return m_width; }

    /// From left to right; specks are left out.
    const std::vector<InkRun> &runs() const { return m_runs; }

    /// The first row with ink worth the name.
    int textTop() const { return m_textTop; }

    /// From the top of the highest letter to the foot of the lowest; at least 12.
    int textHeight() const { return m_textHeight; }

    /// The ink of some columns, as if it were a run of its own. `begin` < `end`.
    InkRun part(int begin, int end) const;

    /// Of some columns, the first one with the least ink. `begin` < `end`.
    int emptiestColumn(int begin, int end) const;

    /// How far a column lies from a run; 0 inside it.
    static float distance(float column, const InkRun &run);

    /// The run nearest to a column; -1 when there are none, or none within `limit` columns.
    int nearestRun(float column, float limit) const;

private:
    cv::Mat m_ink; ///< White on black.
    int m_width;
    std::vector<InkRun> m_runs;
    int m_textTop;
    int m_textHeight;
};

} // namespace tovarin
