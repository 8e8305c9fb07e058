// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/TextModel.h"

#include <algorithm>
#include <array>
#include <opencv2/core/utility.hpp>
#include <opencv2/dnn/dnn.hpp>
#include <opencv2/dnn/layer.hpp>
#include <vector>

// The same source for processors with and without wide registers; chosen when the program starts.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__)
#define FOR_EACH_PROCESSOR __attribute__((target_clones("arch=haswell", "default")))
#else
#define FOR_EACH_PROCESSOR
#endif

namespace tovarin {

namespace {

using cv::Mat;
using cv::dnn::Layer;
using cv::dnn::LayerParams;

/// One channel to convolve. The source is padded, and each of its rows is sorted by the step
/// across: first the columns 0, step, 2·step, …, then 1, step + 1, … So neighbours in the result
/// read neighbours in the source.
struct Plane {
    const float *source;
    std::ptrdiff_t sourceStep;          ///< From one row of the result to its next, in the source.
    std::ptrdiff_t rowWidth;            ///< Of the source.
    std::array<std::ptrdiff_t, 5> taps; ///< Where the columns of the kernel begin in a source row.
    const float *weights;
    float bias;
    float *result;
    int width; ///< Of the result.
    int height;
};

/// Adds one row of the kernel to a row of the result.
template <int Size>
[[gnu::always_inline]] inline void addRow(float *__restrict to, int width, const float *row,
                                          const std::ptrdiff_t *taps, const float *weights) {
    const float *__restrict a = row + taps[0];
    const float *__restrict b = row + taps[1];
    const float *__restrict c = row + taps[2];
    const float wa = weights[0];
    const float wb = weights[1];
    const float wc = weights[2];
    if constexpr (Size == 3) {
        for (int x = 0; x < width; ++x)
            to[x] += wa * a[x] + wb * b[x] + wc * c[x];
    } else {
        const float *__restrict d = row + taps[3];
        const float *__restrict e = row + taps[4];
        const float wd = weights[3];
        const float we = weights[4];
        for (int x = 0; x < width; ++x)
            to[x] += wa * a[x] + wb * b[x] + wc * c[x] + wd * d[x] + we * e[x];
    }
}

template <int Size>
[[gnu::always_inline]] inline void convolve(const Plane &plane) {
    for (int y = 0; y < plane.height; ++y) {
        float *to = plane.result + std::ptrdiff_t{y} * plane.width;
        std::fill_n(to, plane.width, plane.bias);
        for (int i = 0; i < Size; ++i) {
            addRow<Size>(to, plane.width, plane.source + y * plane.sourceStep + i * plane.rowWidth,
                         plane.taps.data(), plane.weights + std::ptrdiff_t{i} * Size);
        }
    }
}

FOR_EACH_PROCESSOR
void convolve3(const Plane &plane) {
    convolve<3>(plane);
}

FOR_EACH_PROCESSOR
void convolve5(const Plane &plane) {
    convolve<5>(plane);
}

FOR_EACH_PROCESSOR
void hardSwish(float *__restrict to, const float *__restrict from, float offset,
               std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const float x = from[i];
        to[i] = x * std::min(std::max(x + 3, 0.F), 6.F) * (1.F / 6) + offset;
    }
}

class DepthwiseLayer final : public Layer {
public:
    explicit DepthwiseLayer(const LayerParams &params)
        : Layer(params)
        , m_size(params.get<int>("kernel"))
        , m_stepY(params.get<int>("stride_y"))
        , m_stepX(params.get<int>("stride_x")) {
        CV_Assert(blobs.size() == 2 && (m_size == 3 || m_size == 5) && m_stepX >= 1 &&
                  m_stepY >= 1);
    }

    static cv::Ptr<Layer> create(LayerParams &params) {
        return cv::makePtr<DepthwiseLayer>(params);
    }

    bool getMemoryShapes(const std::vector<std::vector<int>> &inputs, int,
                         std::vector<std::vector<int>> &outputs,
                         std::vector<std::vector<int>> &) const override {
        std::vector<int> shape = inputs.at(0);
        CV_Assert(shape.size() == 4 && shape[0] == 1 && shape[1] == blobs[0].size[0]);
        shape[2] = (shape[2] - 1) / m_stepY + 1;
        shape[3] = (shape[3] - 1) / m_stepX + 1;
        outputs = {shape};
        return false;
    }

    void forward(cv::InputArrayOfArrays inputs, cv::OutputArrayOfArrays outputs,
                 cv::OutputArrayOfArrays) override {
        std::vector<Mat> from;
        std::vector<Mat> to;
        inputs.getMatVector(from);
        outputs.getMatVector(to);
        cv::parallel_for_({0, from[0].size[1]}, [&](const cv::Range &channels) {
            std::vector<float> padded;
            for (int channel = channels.start; channel < channels.end; ++channel)
                convolveChannel(from[0], to[0], channel, padded);
        });
    }

private:
    void convolveChannel(const Mat &from, Mat &to, int channel, std::vector<float> &padded) const {
        const int border = m_size / 2;
        const int height = from.size[2];
        const int width = from.size[3];
        const int phaseWidth = (width + 2 * border + m_stepX - 1) / m_stepX;
        const std::ptrdiff_t rowWidth = std::ptrdiff_t{phaseWidth} * m_stepX;
        padded.assign(static_cast<std::size_t>(rowWidth * (height + 2 * border)), 0);
        for (int y = 0; y < height; ++y) {
            const float *source = from.ptr<float>(0, channel) + std::ptrdiff_t{y} * width;
            float *row = padded.data() + (y + border) * rowWidth;
            if (m_stepX == 1) {
                std::copy(source, source + width, row + border);
                continue;
            }
            for (int phase = 0; phase < m_stepX; ++phase) {
                // The first column of this phase that is not in the border.
                const int skipped = (border - phase + m_stepX - 1) / m_stepX;
                float *sorted = row + std::ptrdiff_t{phase} * phaseWidth + skipped;
                for (int x = phase + skipped * m_stepX - border; x < width; x += m_stepX)
                    *sorted++ = source[x];
            }
        }

        Plane plane = {padded.data(),
                       rowWidth * m_stepY,
                       rowWidth,
                       {},
                       blobs[0].ptr<float>(channel),
                       blobs[1].ptr<float>()[channel],
                       to.ptr<float>(0, channel),
                       to.size[3],
                       to.size[2]};
        for (int j = 0; j < m_size; ++j)
            plane.taps[static_cast<std::size_t>(j)] = j % m_stepX * phaseWidth + j / m_stepX;
        m_size == 3 ? convolve3(plane) : convolve5(plane);
    }

    int m_size;
    int m_stepY;
    int m_stepX;
};

class HardSwishLayer final : public Layer {
public:
    explicit HardSwishLayer(const LayerParams &params)
        : Layer(params), m_offset(params.get<float>("offset")) {}

    static cv::Ptr<Layer> create(LayerParams &params) {
        return cv::makePtr<HardSwishLayer>(params);
    }

    bool getMemoryShapes(const std::vector<std::vector<int>> &inputs, int,
                         std::vector<std::vector<int>> &outputs,
                         std::vector<std::vector<int>> &) const override {
        outputs = {inputs.at(0)};
        return true;
    }

    void forward(cv::InputArrayOfArrays inputs, cv::OutputArrayOfArrays outputs,
                 cv::OutputArrayOfArrays) override {
        std::vector<Mat> from;
        std::vector<Mat> to;
        inputs.getMatVector(from);
        outputs.getMatVector(to);
        const int channels = from[0].size[1];
        const std::size_t plane = from[0].total() / static_cast<std::size_t>(channels);
        cv::parallel_for_({0, channels}, [&](const cv::Range &range) {
            const std::size_t begin = static_cast<std::size_t>(range.start) * plane;
            hardSwish(to[0].ptr<float>() + begin, from[0].ptr<float>() + begin, m_offset,
                      static_cast<std::size_t>(range.size()) * plane);
        });
    }

private:
    float m_offset;
};

} // namespace

cv::dnn::Net readModel(const std::filesystem::path &model) {
    static const bool registered = [] {
        cv::dnn::LayerFactory::registerLayer("TovarinDepthwise", DepthwiseLayer::create);
        cv::dnn::LayerFactory::registerLayer("TovarinHardSwish", HardSwishLayer::create);
        return true;
    }();
    CV_Assert(registered);
    return cv::dnn::readNetFromONNX(model.string());
}

} // namespace tovarin
