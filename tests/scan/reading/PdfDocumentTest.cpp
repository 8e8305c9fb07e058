// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/reading/PdfDocument.h"

#include "scan/reading/PdfCopy.h"
#include "scan/reading/PixelBudget.h"
#include "tests/scan/reading/Colours.h"
#include "tests/scan/reading/PdfMaker.h"
#include "tests/support/Printing.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

QString textOf(const QByteArray &pdf) {
    return PdfDocument(pdfCopyForText(pdf)).text();
}

/// The drawing of the first page.
QImage drawn(const QByteArray &pdf) {
    return PdfDocument(pdfCopyForDrawing(pdf, 1).pdf).drawing(0);
}

/// Which quarters of the picture have ink in them, row by row.
QString inkedQuarters(const QImage &image) {
    QString quarters;
    for (const int y : {image.height() / 4, image.height() * 3 / 4}) {
        for (const int x : {image.width() / 4, image.width() * 3 / 4}) {
            const QRgb pixel = image.pixel(x, y);
            EXPECT_TRUE(isNearly(ink, pixel) || pixel == paper);
            quarters += pixel == paper ? u'.' : u'#';
        }
    }
    return quarters;
}

/// A page of 200 by 300 points with ink in its lower left quarter.
QByteArray inkedPage(const QByteArray &entries, const QByteArray &inherited = {}) {
    return pdfOf({{inkedRectangle(0, 0, 100, 150), entries}}, inherited);
}

class BoxTest : public testing::TestWithParam<std::pair<const char *, const char *>> {};
class RotationTest : public testing::TestWithParam<std::pair<const char *, const char *>> {};

} // namespace

TEST(PdfTextTest, HasALineForEachLineOfThePage) {
    EXPECT_EQ(textOf(pdfOf({{lines({"Netflix Premium", "Total $12.99"})}})),
              u"Netflix Premium\nTotal $12.99"_s);
}

TEST(PdfTextTest, BeginsEachPageOnANewLine) {
    EXPECT_EQ(textOf(pdfOf({{lines({"one"})}, {lines({"two", "three"})}, {}, {lines({"four"})}})),
              u"one\ntwo\nthree\n\nfour"_s);
}

TEST(PdfTextTest, EndsItsLinesWithLineFeedsOnly) {
    EXPECT_EQ(textOf(pdfOf({{lines({"ABCDEFG"}, "F2")}}, {},
                           {u'a', 0x2028, u'b', 0x2029, u'c', 0x85, u'd'})),
              u"a\nb\nc\nd"_s);
}

TEST(PdfTextTest, IsEmptyWithoutATextLayer) {
    EXPECT_EQ(textOf(pdfOf({{scan()}})), QString());
    EXPECT_EQ(textOf(pdfOf({{}})), QString());
}

TEST(PdfTextTest, WritesIdeographsForRadicalsAndChangesNothingElse) {
    EXPECT_EQ(textOf(pdfOf({{lines({"ABCDEF"}, "F2")}}, {},
                           {U'⽉', U'⻚', U'：', U'￥', U'月', U'\u2E87'})),
              u"月页：￥月\U00020628"_s);
}

TEST(PdfTextTest, KeepsTheHyphenAtTheEndOfALine) {
    EXPECT_EQ(textOf(pdfOf({{lines({"auto-", "renewal", "2025-", "03-08"})}})),
              u"auto-\nrenewal\n2025-\n03-08"_s);
}

TEST(PdfTextTest, IncludesWhatTheCropBoxHides) {
    const PdfPage page = {lines({"Netflix", "Total $12.99"}), "/MediaBox[0 0 200 300]"};
    const QString text = textOf(pdfOf({page}));
    EXPECT_EQ(textOf(pdfOf({{page.content, page.entries + "/CropBox[0 0 200 260]"}})), text);
    EXPECT_EQ(textOf(pdfOf({page}, "/CropBox[0 0 10 10]")), text);
    EXPECT_EQ(text, u"Netflix\nTotal $12.99"_s);
}

TEST_P(RotationTest, DoesNotMixUpTheLines) {
    const QByteArray rotation = GetParam().first;
    const QByteArray content = lines({"Netflix Premium", "Paid 2025-03-08", "Total $12.99"});
    EXPECT_EQ(textOf(pdfOf({{content, "/MediaBox[0 0 200 300]" + rotation}})),
              u"Netflix Premium\nPaid 2025-03-08\nTotal $12.99"_s);
    EXPECT_EQ(textOf(pdfOf({{content}}, rotation)), textOf(pdfOf({{content}})));
}

TEST_P(RotationTest, ShowsThePageAsItIsToBeRead) {
    const QByteArray rotation = GetParam().first;
    const QString quarters = QString::fromLatin1(GetParam().second);
    const bool isOnItsSide = quarters == u"#..." || quarters == u"...#";
    const QSize size = isOnItsSide ? QSize(600, 400) : QSize(400, 600);
    for (const QByteArray &pdf : {inkedPage("/MediaBox[0 0 200 300]" + rotation),
                                  inkedPage("/MediaBox[0 0 200 300]/CropBox[0 0 20 20]" + rotation),
                                  inkedPage("/MediaBox[0 0 200 300]", rotation)}) {
        const QImage image = drawn(pdf);
        EXPECT_EQ(image.size(), size);
        EXPECT_EQ(inkedQuarters(image), quarters);
    }
}

INSTANTIATE_TEST_SUITE_P(Rotations, RotationTest,
                         testing::Values(std::pair("", "..#."), std::pair("/Rotate 0", "..#."),
                                         std::pair("/Rotate 90", "#..."),
                                         std::pair("/Rotate 180", ".#.."),
                                         std::pair("/Rotate 270", "...#"),
                                         std::pair("/Rotate -90", "...#"),
                                         std::pair("/Rotate 450", "#...")));

TEST_P(BoxTest, ShowsTheWholeMediaBox) {
    const auto [entries, inherited] = GetParam();
    const PdfPages pages = pdfCopyForDrawing(inkedPage(entries, inherited), 1);
    EXPECT_EQ(pages.mediaBoxes, QList<QSizeF>({{200, 300}}));
    const QImage image = PdfDocument(pages.pdf).drawing(0);
    EXPECT_EQ(image.size(), QSize(400, 600));
    EXPECT_EQ(image.format(), QImage::Format_BGR888);
    EXPECT_EQ(inkedQuarters(image), u"..#."_s);
    // The edge of the ink, to the pixel.
    EXPECT_TRUE(isNearly(ink, image.pixel(199, 300)));
    EXPECT_EQ(image.pixel(200, 300), paper);
    EXPECT_EQ(image.pixel(199, 299), paper);
}

INSTANTIATE_TEST_SUITE_P(
    Boxes, BoxTest,
    testing::Values(std::pair("/MediaBox[0 0 200 300]", ""),
                    std::pair("", "/MediaBox[0 0 200 300]"),
                    std::pair("/MediaBox[200 300 0 0]", ""),
                    std::pair("/MediaBox[0 0 200 300]/CropBox[100 150 200 300]", ""),
                    std::pair("/MediaBox[0 0 200 300]/CropBox[-100 -100 900 900]", ""),
                    std::pair("/MediaBox[0 0 200 300]", "/CropBox[50 50 60 60]"),
                    std::pair("/MediaBox[0 0 200 300]/TrimBox[9 9 20 20]/ArtBox[9 9 20 20]", "")));

TEST(PdfDrawingTest, PutsTheCornerOfTheMediaBoxWhereItIs) {
    const QImage image =
        drawn(pdfOf({{inkedRectangle(-50, -50, 100, 150), "/MediaBox[-50 -50 150 250]"}}));
    EXPECT_EQ(image.size(), QSize(400, 600));
    EXPECT_EQ(inkedQuarters(image), u"..#."_s);
}

TEST(PdfDrawingTest, RoundsTheSizeOfAPage) {
    EXPECT_EQ(drawn(pdfOf({{{}, "/MediaBox[0 0 100.2 50.3]"}})).size(), QSize(200, 101));
}

TEST(PdfDrawingTest, IsLetterPaperWithoutAMediaBox) {
    const PdfPages pages = pdfCopyForDrawing(pdfOf({{{}, {}}}), 1);
    EXPECT_EQ(pages.mediaBoxes, QList<QSizeF>({{612, 792}}));
    EXPECT_EQ(PdfDocument(pages.pdf).drawing(0).size(), QSize(1224, 1584));
}

TEST(PdfDrawingTest, TellsWhichMediaBoxesHaveNoArea) {
    const PdfPages pages = pdfCopyForDrawing(
        pdfOf({{{}, "/MediaBox[0 0 0 300]"}, {{}, "/MediaBox[5 5 200 5]"}, {}, {}}), 3);
    ASSERT_EQ(pages.mediaBoxes.size(), 3);
    EXPECT_TRUE(pages.mediaBoxes[0].isEmpty());
    EXPECT_TRUE(pages.mediaBoxes[1].isEmpty());
    EXPECT_EQ(pages.mediaBoxes[2], QSizeF(200, 300));
}

TEST(PdfDrawingTest, HoldsTheFirstPagesOnly) {
    QList<PdfPage> pages;
    for (int page = 1; page <= 10; ++page)
        pages.append({inkedRectangle(0, 0, 20 * page, 300)});
    const PdfPages first = pdfCopyForDrawing(pdfOf(pages), 3);
    PdfDocument document(first.pdf);
    ASSERT_EQ(document.pageCount(), 3);
    for (int page = 0; page < 3; ++page) {
        const QImage image = document.drawing(page);
        EXPECT_TRUE(isNearly(ink, image.pixel(40 * (page + 1) - 1, 0)));
        EXPECT_EQ(image.pixel(40 * (page + 1), 0), paper);
    }
}

TEST(PdfDrawingTest, ShowsNotesAndStamps) {
    const QImage image = drawn(
        pdfOf({{{},
                "/MediaBox[0 0 200 300]/Annots[<</Type/Annot/Subtype/Square/Rect[0 0 100 150]/F 4"
                "/C[0.7843 0.1569 0.1569]/IC[0.7843 0.1569 0.1569]>>]"}}));
    EXPECT_EQ(inkedQuarters(image), u"..#."_s);
}

TEST(PdfDrawingTest, DoesNotGrowWithAnAbsurdPage) {
    for (const char *box : {"/MediaBox[0 0 14400 14400]", "/MediaBox[0 0 200 14400]",
                            "/MediaBox[0 0 1000000 1000000]", "/MediaBox[0 0 2000000 1]"}) {
        SCOPED_TRACE(box);
        const PdfPages pages = pdfCopyForDrawing(pdfOf({{{}, box}}), 1);
        const QImage image = PdfDocument(pages.pdf).drawing(0);
        EXPECT_LE(image.sizeInBytes(), static_cast<qsizetype>(bitmapBudget));
        EXPECT_FALSE(image.isNull());
    }
    EXPECT_EQ(drawn(pdfOf({{{}, "/MediaBox[0 0 14400 14400]"}})).size(), QSize(3500, 3500));
}

TEST(PdfCopyTest, OpensAFileThatOnlyItsOwnerMayChange) {
    const QByteArray pdf = encrypted(pdfOf({{lines({"Netflix"}) + scan()}}), "");
    EXPECT_EQ(textOf(pdf), u"Netflix"_s);
    EXPECT_EQ(inkedQuarters(drawn(pdf)), u"####"_s);
}

TEST(PdfCopyTest, RefusesAFileThatNeedsAPassword) {
    const QByteArray pdf = encrypted(pdfOf({{lines({"Netflix"})}}), "secret");
    EXPECT_THROW(pdfCopyForText(pdf), std::exception);
    EXPECT_THROW(pdfCopyForDrawing(pdf, 3), std::exception);
}

TEST(PdfCopyTest, MendsWhatCanBeMended) {
    const QByteArray pdf = pdfOf({{lines({"Netflix"})}});
    const QByteArray withoutTable =
        pdf.first(pdf.indexOf("xref")) + pdf.sliced(pdf.indexOf("trailer"));
    const QList<QByteArray> damaged = {
        "junk\n" + pdf,
        withoutTable,
        QByteArray(pdf).replace("startxref\n", "startxref\n9"),
        QByteArray(pdf).replace("/Count 1", "/Count 9"),
        QByteArray(pdf).replace("endstream", "endstrexm"),
        QByteArray(pdf).replace("/Length ", "/Length 9"),
        pdf.first(pdf.size() - 10),
    };
    for (qsizetype i = 0; i < damaged.size(); ++i)
        EXPECT_EQ(textOf(damaged[i]), u"Netflix"_s) << i;
}

TEST(PdfCopyTest, RefusesWhatIsNoDocument) {
    const QByteArray pdf = pdfOf({{lines({"Netflix"})}});
    for (const QByteArray &bytes :
         {""_ba, "%PDF-1.5"_ba, "GIF89a"_ba, QByteArray(1000, '\0'), pdf.first(60)})
        EXPECT_THROW(pdfCopyForText(bytes), std::exception);
}

TEST(PdfCopyTest, RefusesAnAbsurdNumberOfPages) {
    const auto ofPages = [](qsizetype count) { return pdfOf(QList<PdfPage>(count, PdfPage{})); };
    EXPECT_EQ(PdfDocument(pdfCopyForText(ofPages(1000))).pageCount(), 1000);
    const QByteArray tooMany = ofPages(20'001);
    EXPECT_THROW(pdfCopyForText(tooMany), std::length_error);
    EXPECT_THROW(pdfCopyForDrawing(tooMany, 3), std::length_error);
}

TEST(PdfCopyTest, OfNoPagesHasNoPages) {
    const QByteArray pdf = pdfOf({});
    EXPECT_EQ(textOf(pdf), QString());
    const PdfPages pages = pdfCopyForDrawing(pdf, 3);
    EXPECT_EQ(pages.mediaBoxes, QList<QSizeF>());
    EXPECT_EQ(PdfDocument(pages.pdf).pageCount(), 0);
}

TEST(PdfDocumentTest, OfAnythingElseHasNoPages) {
    PdfDocument document("no document");
    EXPECT_EQ(document.pageCount(), 0);
    EXPECT_EQ(document.text(), QString());
}

} // namespace tovarin
