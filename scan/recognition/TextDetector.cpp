// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/recognition/TextDetector.h"

#include "scan/recognition/TextModel.h"

#include <algorithm>
#include <cmath>
#include <opencv2/imgproc.hpp>
#include <optional>

namespace tovarin {

namespace {

// The figures the model was published with.
constexpr double pixelThreshold = 0.3;
constexpr double boxThreshold = 0.6;
constexpr float unclipRatio = 1.6F;
const cv::Scalar channelMean(0.485 * 255, 0.456 * 255, 0.406 * 255);
constexpr std::array<float, 3> channelDeviation = {0.229F, 0.224F, 0.225F};

constexpr float longestSide = 1280;
constexpr float shortestSide = 480;
constexpr float smallPage = 640;
constexpr double mostPixels = 4e6;
constexpr int stride = 32;

// The network needs about a quarter of a kilobyte for each pixel it sees at once.
constexpr int mostStripPixels = 1'000'000;
constexpr int stripOverlap = 4 * stride;

/// The network tells sixteen pixels, four by four, in as many channels: channel
/// 8·i + 4·j + 2·k + l is the pixel (4y + 2i + k, 4x + 2j + l).
cv::Mat interleaved(const cv::Mat &channels) {
    const int height = channels.size[2];
    const int width = channels.size[3];
    cv::Mat map(4 * height, 4 * width, CV_32F);
    const float *value = channels.ptr<float>();
    for (int channel = 0; channel < 16; ++channel) {
        const int down = 2 * (channel >> 3 & 1) + (channel >> 1 & 1);
        const int right = 2 * (channel >> 2 & 1) + (channel & 1);
        for (int y = 0; y < height; ++y) {
            float *row = map.ptr<float>(4 * y + down) + right;
            for (int x = 0; x < width; ++x)
                row[4 * x] = *value++;
        }
    }
    return map;
}

/// Two corners on the left from the top down, then two on the right: as the text is read, if it is
/// not turned by more than 45°.
Quad inReadingOrder(std::array<cv::Point2f, 4> points) {
    std::ranges::sort(points, {}, &cv::Point2f::x);
    if (points[0].y > points[1].y)
        std::swap(points[0], points[1]);
    if (points[2].y > points[3].y)
        std::swap(points[2], points[3]);
    return {{points[0], points[2], points[3], points[1]}};
}

double meanInside(const std::vector<cv::Point> &contour, const cv::Mat &map) {
    const cv::Rect bounds = cv::boundingRect(contour);
    cv::Mat mask = cv::Mat::zeros(bounds.size(), CV_8U);
    cv::fillPoly(mask, std::vector{contour}, cv::Scalar(1), cv::LINE_8, 0, -bounds.tl());
    return cv::mean(map(bounds), mask)[0];
}

/// The piece of text whose core has this contour, in pixels of the map.
std::optional<std::array<cv::Point2f, 4>> pieceAround(const std::vector<cv::Point> &contour,
                                                      const cv::Mat &map) {
    if (contour.size() < 3)
        return std::nullopt;
    cv::RotatedRect box = cv::minAreaRect(contour);
    if (std::min(box.size.width, box.size.height) < 3 || meanInside(contour, map) < boxThreshold)
        return std::nullopt;
    const float distance = box.size.area() * unclipRatio / (2 * (box.size.width + box.size.height));
    box.size += cv::Size2f(2 * distance, 2 * distance);
    std::array<cv::Point2f, 4> points;
    box.points(points.data());
    return points;
}

} // namespace

TextDetector::TextDetector(const std::filesystem::path &model) : m_net(readModel(model)) {}

cv::Size TextDetector::workingSize(cv::Size page) {
    const auto longSide = static_cast<float>(std::max(page.width, page.height));
    const auto shortSide = static_cast<float>(std::min(page.width, page.height));
    double scale = 1;
    if (longSide > longestSide)
        scale = std::max(longestSide / longSide, std::min(1.F, shortestSide / shortSide));
    else if (shortSide < smallPage)
        scale = std::min({2.F, smallPage / shortSide, longestSide / longSide});
    scale = std::min(scale, std::sqrt(mostPixels / (static_cast<double>(longSide) * shortSide)));
    const auto side = [scale](int pixels) {
        return std::max<int>(1, static_cast<int>(std::lround(pixels * scale / stride))) * stride;
    };
    return {side(page.width), side(page.height)};
}

cv::Mat TextDetector::likelihoodOnStrip(const cv::Mat &strip) {
    cv::Mat blob = cv::dnn::blobFromImage(strip, 1.0 / 255, {}, channelMean);
    const std::size_t plane = strip.total();
    for (std::size_t channel = 0; channel < channelDeviation.size(); ++channel) {
        cv::Mat view(strip.size(), CV_32F, blob.ptr<float>() + channel * plane);
        view *= 1 / channelDeviation[channel];
    }
    m_net.setInput(blob);
    return interleaved(m_net.forward());
}

cv::Mat TextDetector::likelihoodOnPage(const cv::Mat &page) {
    cv::Mat map(page.size(), CV_32F);
    const bool isUpright = page.rows >= page.cols;
    const int length = isUpright ? page.rows : page.cols;
    const int breadth = isUpright ? page.cols : page.rows;
    const int stripLength = std::max(4 * stripOverlap, mostStripPixels / breadth / stride * stride);
    for (int begin = 0;;) {
        const cv::Range range(begin, std::min(begin + stripLength, length));
        const cv::Mat strip =
            likelihoodOnStrip(isUpright ? page.rowRange(range) : page.colRange(range));
        // Of two strips, each tells the half of their overlap that is nearer to its middle.
        const int skipped = begin == 0 ? 0 : stripOverlap / 2;
        const cv::Range told(begin + skipped, range.end);
        const cv::Range inStrip(skipped, range.size());
        if (isUpright)
            strip.rowRange(inStrip).copyTo(map.rowRange(told));
        else
            strip.colRange(inStrip).copyTo(map.colRange(told));
        if (range.end == length)
            break;
        begin = range.end - stripOverlap;
    }
    // The network keeps what its layers computed, hundreds of megabytes for a large page, until it
    // sees one of another size.
    m_net.setInput(cv::Mat::zeros(4, std::array{1, 3, stride, stride}.data(), CV_32F));
    m_net.forward();
    return map;
}

std::vector<Quad> TextDetector::detect(const cv::Mat &page) {
    const cv::Size size = workingSize(page.size());
    cv::Mat resized;
    cv::resize(page, resized, size, 0, 0,
               size.width < page.cols ? cv::INTER_AREA : cv::INTER_LINEAR);
    const cv::Mat map = likelihoodOnPage(resized);
    std::vector<std::vector<cv::Point>> contours;
    cv::findContours(map > pixelThreshold, contours, cv::RETR_LIST, cv::CHAIN_APPROX_SIMPLE);

    const float scaleX = static_cast<float>(page.cols) / static_cast<float>(map.cols);
    const float scaleY = static_cast<float>(page.rows) / static_cast<float>(map.rows);
    const auto lastX = static_cast<float>(page.cols - 1);
    const auto lastY = static_cast<float>(page.rows - 1);
    std::vector<Quad> pieces;
    for (const std::vector<cv::Point> &contour : contours) {
        auto points = pieceAround(contour, map);
        if (!points)
            continue;
        for (cv::Point2f &point : *points)
            point = {std::clamp(point.x * scaleX, 0.F, lastX),
                     std::clamp(point.y * scaleY, 0.F, lastY)};
        const Quad piece = inReadingOrder(*points);
        if (piece.width() >= 4 && piece.height() >= 4)
            pieces.push_back(piece);
    }
    return pieces;
}

} // namespace tovarin
