// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/TextModel.h"

#include <algorithm>
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

FOR_EACH_PROCESSOR
void addScaled(float *__restrict sum, const float *__restrict values, float factor, int count) {
    for (int i = 0; i < count; ++i)
        sum[i] += values[i] * factor;
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
                convolve(from[0], to[0], channel, padded);
        });
    }

private:
    /// A channel with a border of zeros, each row sorted by the step across: first the columns 0,
    /// step, 2·step, …, then 1, step + 1, … So neighbours in the result read neighbours here.
    struct Padded {
        int phaseWidth;
        int rowWidth;
    };

    Padded pad(const Mat &from, int channel, std::vector<float> &padded) const {
        const int border = m_size / 2;
        const int height = from.size[2];
        const int width = from.size[3];
        const int phaseWidth = (width + 2 * border + m_stepX - 1) / m_stepX;
        const int rowWidth = phaseWidth * m_stepX;
        padded.assign(
            static_cast<std::size_t>(rowWidth) * static_cast<std::size_t>(height + 2 * border), 0);
        for (int y = 0; y < height; ++y) {
            const float *source = from.ptr<float>(0, channel) + std::ptrdiff_t{y} * width;
            float *row = padded.data() + std::ptrdiff_t{y + border} * rowWidth;
            if (m_stepX == 1) {
                std::copy(source, source + width, row + border);
                continue;
            }
            for (int x = 0; x < width; ++x) {
                const int column = x + border;
                row[column % m_stepX * phaseWidth + column / m_stepX] = source[x];
            }
        }
        return {phaseWidth, rowWidth};
    }

    void convolve(const Mat &from, Mat &to, int channel, std::vector<float> &padded) const {
        const auto [phaseWidth, rowWidth] = pad(from, channel, padded);
        const float *weights = blobs[0].ptr<float>(channel);
        const float bias = blobs[1].ptr<float>()[channel];
        const int height = to.size[2];
        const int width = to.size[3];
        for (int y = 0; y < height; ++y) {
            float *sum = to.ptr<float>(0, channel) + std::ptrdiff_t{y} * width;
            std::fill(sum, sum + width, bias);
            for (int i = 0; i < m_size; ++i) {
                const float *row = padded.data() + std::ptrdiff_t{y * m_stepY + i} * rowWidth;
                for (int j = 0; j < m_size; ++j) {
                    addScaled(sum, row + j % m_stepX * phaseWidth + j / m_stepX,
                              weights[i * m_size + j], width);
                }
            }
        }
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
