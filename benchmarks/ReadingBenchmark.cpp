// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/reading/ImageFile.h"
#include "scan/reading/PdfCopy.h"
#include "scan/reading/PdfDocument.h"
#include "tests/scan/reading/PdfMaker.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>

#include <benchmark/benchmark.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

constexpr int linesOnPage = 30;

/// As most programs write it: line by line.
QByteArray textPdf(int pages) {
    QList<QByteArray> text;
    for (int line = 0; line < linesOnPage; ++line)
        text.append("Item " + QByteArray::number(line) + " of this page, paid 2025-03-08: $12.99");
    return pdfOf(QList<PdfPage>(pages, {lines(text), "/MediaBox[0 0 600 800]"}));
}

/// As Qt writes it: glyph by glyph, in two fonts of its own.
QByteArray glyphPdf(int pages) {
    QByteArray pdf;
    QBuffer buffer(&pdf);
    buffer.open(QBuffer::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(72);
    QPainter painter(&writer);
    painter.setFont(QFont(QStringList{u"DejaVu Sans"_s, u"Noto Sans CJK SC"_s}, 11));
    for (int page = 0; page < pages; ++page) {
        if (page > 0)
            writer.newPage();
        for (int line = 0; line < linesOnPage; ++line)
            painter.drawText(
                20, 30 + 20 * line,
                u"Item %1 of page %2, 支付时间 2025年3月8日: $12.99"_s.arg(line).arg(page));
    }
    painter.end();
    return pdf;
}

/// A picture of noise, which compresses badly, as an image file.
QByteArray imageFile(QSize size, const char *format) {
    QImage image(size, QImage::Format_RGB32);
    std::uint32_t noise = 1;
    for (int y = 0; y < size.height(); ++y) {
        auto *const line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            line[x] = (noise = noise * 1664525 + 1013904223) >> 8;
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QBuffer::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

void readText(benchmark::State &state, QByteArray (*pdfOfPages)(int)) {
    const QByteArray pdf = pdfOfPages(static_cast<int>(state.range(0)));
    qsizetype units = 0;
    for (auto _ : state)
        units = PdfDocument(pdfCopyForText(pdf)).text().size();
    state.counters["units"] = static_cast<double>(units);
}

/// The share of libqpdf in it.
void copyPdfForText(benchmark::State &state) {
    const QByteArray pdf = textPdf(static_cast<int>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(pdfCopyForText(pdf));
}

void drawPdf(benchmark::State &state) {
    const QByteArray pdf = textPdf(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        PdfDocument document(pdfCopyForDrawing(pdf, 3).pdf);
        for (int page = 0; page < document.pageCount(); ++page)
            benchmark::DoNotOptimize(document.drawing(page));
    }
}

void readImage(benchmark::State &state, QSize size, const char *format) {
    const QByteArray bytes = imageFile(size, format);
    for (auto _ : state)
        benchmark::DoNotOptimize(imageFromFile(bytes));
}

BENCHMARK_CAPTURE(readText, lineByLine, textPdf)->Arg(1)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(readText, glyphByGlyph, glyphPdf)
    ->Arg(1)
    ->Arg(500)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(copyPdfForText)->Arg(1)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK(drawPdf)->Arg(1)->Arg(500)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(readImage, screenshotPng, QSize(1170, 2532), "png")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(readImage, photoJpeg, QSize(4000, 3000), "jpeg")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(readImage, scaledJpeg, QSize(12000, 9000), "jpeg")->Unit(benchmark::kMillisecond);

} // namespace

} // namespace tovarin

/// Drawing texts needs an application with fonts.
int main(int argc, char **argv) {
    const QGuiApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return EXIT_SUCCESS;
}
