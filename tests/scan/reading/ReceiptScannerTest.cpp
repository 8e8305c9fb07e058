// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/reading/ReceiptScanner.h"

#include "scan/parser/ReceiptParser.h"
#include "tests/scan/reading/Colours.h"
#include "tests/scan/reading/PdfMaker.h"
#include "tests/support/LanguageScope.h"
#include "tests/support/ManualClock.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

using Lang = LocalizationManager::Lang;

TextObservation observed(const QStringList &candidates) {
    TextObservation observation;
    for (const QString &text : candidates)
        observation.candidates.append({text, 0.9F});
    return observation;
}

/// Says of the bitmaps what it is told, one after the other, and keeps them.
class ScriptedRecognizer final : public TextRecognizer {
public:
    QList<TextObservation> recognize(const QImage &bitmap) override {
        bitmaps.append(bitmap);
        if (lacksMemory)
            throw std::bad_alloc();
        if (breaks)
            throw std::runtime_error("broken");
        QList<TextObservation> observations;
        for (const QString &line : texts.value(bitmaps.size() - 1))
            observations.append(observed({line}));
        return observations;
    }

    QList<QStringList> texts; ///< The lines of each bitmap.
    bool breaks = false;
    bool lacksMemory = false;
    QList<QImage> bitmaps;
};

/// Finds what it is told to.
class ObservingRecognizer final : public TextRecognizer {
public:
    explicit ObservingRecognizer(QList<TextObservation> observations)
        : m_observations(std::move(observations)) {}

    QList<TextObservation> recognize(const QImage &) override { return m_observations; }

private:
    QList<TextObservation> m_observations;
};

class ReceiptScannerTest : public testing::Test {
protected:
    QUrl put(const QString &name, const QByteArray &bytes) const {
        QFile file(m_folder.filePath(name));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
        return QUrl::fromLocalFile(file.fileName());
    }

    QUrl putImage(const QString &name, const char *format = "png") const {
        QImage image(8, 8, QImage::Format_RGB32);
        image.fill(ink);
        const QString path = m_folder.filePath(name);
        EXPECT_TRUE(image.save(path, format));
        return QUrl::fromLocalFile(path);
    }

    QUrl nowhere() const { return QUrl::fromLocalFile(m_folder.filePath(u"nowhere.png"_s)); }

    QList<Subscription> scanned(const QList<QUrl> &urls) {
        return ReceiptScanner::scanFiles(urls, {recognizer, m_clock, m_calendar});
    }

    /// The draft of a text, with the id of another.
    Subscription parsed(const QString &text, const Subscription &other) const {
        Subscription draft = ReceiptParser::parse(text, m_clock, m_calendar);
        draft.id = other.id;
        return draft;
    }

    /// The one draft of a file must be that of this text.
    void expectParsed(const QUrl &url, const QString &text) {
        const QList<Subscription> drafts = scanned({url});
        ASSERT_EQ(drafts.size(), 1);
        EXPECT_EQ(drafts.first(), parsed(text, drafts.first()));
    }

    QStringList amounts(const QList<QUrl> &urls) {
        QStringList amounts;
        for (const Subscription &draft : scanned(urls))
            amounts.append(QString::number(draft.amount));
        return amounts;
    }

    ScriptedRecognizer recognizer;

private:
    LanguageScope m_language{Lang::en};
    QTemporaryDir m_folder;
    ManualClock m_clock{instant("2025-06-01T12:00:00Z")};
    UserCalendar m_calendar = calendarIn("Pacific/Auckland");
};

QByteArray textPdf() {
    return pdfOf({{lines({"Netflix Premium", "Total $12.99", "2025-03-08"}) + scan()}});
}

const QString textOfPdf = u"Netflix Premium\nTotal $12.99\n2025-03-08"_s;

} // namespace

TEST_F(ReceiptScannerTest, ReadsAPdfByItsTextLayerAndDrawsNothing) {
    expectParsed(put(u"bill.pdf"_s, textPdf()), textOfPdf);
    EXPECT_EQ(recognizer.bitmaps.size(), 0);
}

TEST_F(ReceiptScannerTest, WritesTheNotesInTheLanguageOfTheMoment) {
    const QUrl url = put(u"bill.pdf"_s, textPdf());
    const LanguageScope chinese(Lang::zh);
    EXPECT_EQ(scanned({url}).value(0).notes,
              u"📷 识别原文：\nNetflix Premium / Total $12.99 / 2025-03-08"_s);
    const LanguageScope english(Lang::en);
    EXPECT_EQ(scanned({url}).value(0).notes,
              u"📷 Scanned text:\nNetflix Premium / Total $12.99 / 2025-03-08"_s);
}

TEST_F(ReceiptScannerTest, KnowsAPdfByItsExtensionInAnyCase) {
    for (const QString &name : {u"bill.pdf"_s, u"BILL.PDF"_s, u"a.png.Pdf"_s, u"账单 #1?.pDF"_s})
        expectParsed(put(name, textPdf()), textOfPdf);
    EXPECT_EQ(recognizer.bitmaps.size(), 0);
}

TEST_F(ReceiptScannerTest, TakesNothingElseForAPdf) {
    for (const QString &name : {u"bill.png"_s, u"bill"_s, u"pdf"_s, u".pdf"_s, u"bill.pdf.png"_s,
                                u"bill.pdfx"_s, u"bill.pdf "_s, u"bill."_s})
        EXPECT_EQ(scanned({put(name, textPdf())}).size(), 0) << name.toStdString();
}

TEST_F(ReceiptScannerTest, TakesNoImageUnderTheNameOfAPdf) {
    EXPECT_EQ(scanned({putImage(u"bill.pdf"_s)}).size(), 0);
    EXPECT_EQ(recognizer.bitmaps.size(), 0);
}

TEST_F(ReceiptScannerTest, ReadsAnImageWhateverItsName) {
    recognizer.texts = QList<QStringList>(4, {u"Netflix"_s, u"¥45.00"_s});
    for (const QUrl &url : {putImage(u"bill.png"_s), putImage(u"bill.png"_s, "jpeg"),
                            putImage(u"bill"_s), putImage(u".pdf"_s)})
        expectParsed(url, u"Netflix\n¥45.00"_s);
    for (const QImage &bitmap : recognizer.bitmaps) {
        EXPECT_EQ(bitmap.size(), QSize(8, 8));
        EXPECT_TRUE(isNearly(ink, bitmap.pixel(4, 4)));
    }
    EXPECT_EQ(recognizer.bitmaps.size(), 4);
}

TEST_F(ReceiptScannerTest, GivesADraftForAnImageWithoutText) {
    const QList<Subscription> drafts = scanned({putImage(u"bill.png"_s)});
    ASSERT_EQ(drafts.size(), 1);
    EXPECT_EQ(drafts.first().name, QString());
    EXPECT_EQ(drafts.first().amount, 0);
    EXPECT_EQ(drafts.first().notes, QString());
    EXPECT_EQ(drafts.first().startDate, instant("2025-06-01T12:00:00Z"));
}

TEST_F(ReceiptScannerTest, GivesADraftForAnImageThatCannotBeRecognized) {
    recognizer.breaks = true;
    expectParsed(putImage(u"bill.png"_s), QString());
}

TEST_F(ReceiptScannerTest, SaysSoWhenMemoryIsLacking) {
    recognizer.lacksMemory = true;
    EXPECT_THROW(scanned({putImage(u"bill.png"_s)}), std::bad_alloc);
    EXPECT_THROW(scanned({put(u"bill.pdf"_s, pdfOf({{scan()}}))}), std::bad_alloc);
}

/// Meant: an image always gives a row, a PDF without text none.
TEST_F(ReceiptScannerTest, GivesNoDraftForAPdfWithoutText) {
    EXPECT_EQ(scanned({put(u"blank.pdf"_s, pdfOf({{}, {}}))}).size(), 0);
    EXPECT_EQ(recognizer.bitmaps.size(), 2);
    recognizer.texts = {{}, {}, {u" "_s, u"\u3000"_s}};
    EXPECT_EQ(scanned({put(u"scan.pdf"_s, pdfOf({{scan()}}))}).size(), 0);
    recognizer.breaks = true;
    EXPECT_EQ(scanned({put(u"scan.pdf"_s, pdfOf({{scan()}}))}).size(), 0);
    EXPECT_EQ(recognizer.bitmaps.size(), 4);
}

TEST_F(ReceiptScannerTest, GivesNoDraftForAPdfThatCannotBeOpened) {
    for (const QByteArray &bytes : {""_ba, "no pdf"_ba, textPdf().first(60), pdfOf({})})
        EXPECT_EQ(scanned({put(u"bad.pdf"_s, bytes)}).size(), 0);
    EXPECT_EQ(recognizer.bitmaps.size(), 0);
}

TEST_F(ReceiptScannerTest, RecognizesTheFirstThreePagesOfAScannedPdf) {
    recognizer.texts = {{u"Netflix"_s}, {u"$12.99"_s}, {u"2025-03-08"_s}, {u"fourth"_s}};
    expectParsed(put(u"ten.pdf"_s, pdfOf(QList<PdfPage>(10, {scan()}))),
                 u"Netflix\n$12.99\n2025-03-08"_s);
    ASSERT_EQ(recognizer.bitmaps.size(), 3);
    for (const QImage &bitmap : recognizer.bitmaps) {
        EXPECT_EQ(bitmap.size(), QSize(400, 600));
        EXPECT_TRUE(isNearly(ink, bitmap.pixel(200, 300)));
    }
}

TEST_F(ReceiptScannerTest, RecognizesAPdfWhoseTextLayerIsBlank) {
    recognizer.texts = {{u"Netflix"_s}};
    const QByteArray pdf =
        pdfOf({{lines({"A B", " ", "C"}, "F2") + scan()}}, {}, {U'\u3000', U'\u00A0', U'\u2003'});
    expectParsed(put(u"blanks.pdf"_s, pdf), u"Netflix"_s);
    EXPECT_EQ(recognizer.bitmaps.size(), 1);
}

/// U+200B is no white space.
TEST_F(ReceiptScannerTest, ParsesTheTextLayerWithoutTheWhiteSpaceAroundIt) {
    const QByteArray pdf = pdfOf({{lines({"AABCDEFGA", "A"}, "F2")}}, {},
                                 {0x3000, u'N', u'e', u't', u'f', u'l', u'i'});
    expectParsed(put(u"bill.pdf"_s, pdf), u"Netfli"_s);
}

TEST_F(ReceiptScannerTest, CountsAnythingElseAsText) {
    expectParsed(put(u"bill.pdf"_s, pdfOf({{lines({"A"}, "F2")}}, {}, {U'\u200B'})), u"\u200B"_s);
    EXPECT_EQ(recognizer.bitmaps.size(), 0);
}

TEST_F(ReceiptScannerTest, LeavesBlankPagesOutAndTrimsNoOther) {
    recognizer.texts = {{u" Netflix "_s}, {u" "_s}, {u"\u3000$12.99"_s, u""_s}};
    expectParsed(put(u"scan.pdf"_s, pdfOf(QList<PdfPage>(3, {scan()}))),
                 u" Netflix \n\u3000$12.99\n"_s);
}

TEST_F(ReceiptScannerTest, PassesOverPagesWithoutAreaAndLooksNoFurther) {
    recognizer.texts = {{u"Netflix"_s}};
    const QByteArray pdf = pdfOf(
        {{scan(), "/MediaBox[0 0 0 300]"}, {scan(), "/MediaBox[0 0 200 0]"}, {scan()}, {scan()}});
    expectParsed(put(u"scan.pdf"_s, pdf), u"Netflix"_s);
    EXPECT_EQ(recognizer.bitmaps.size(), 1);
}

TEST_F(ReceiptScannerTest, KeepsTheOrderAndPassesOverWhatCannotBeRead) {
    recognizer.texts = {{u"Total $1"_s}, {u"Total $2"_s}};
    const QUrl pdf = put(u"b.pdf"_s, pdfOf({{lines({"Total $7"})}}));
    const QUrl image = putImage(u"a.png"_s);
    EXPECT_EQ(
        amounts({nowhere(), image, put(u"c.txt"_s, "text"), pdf, put(u"d.pdf"_s, "no pdf"), image,
                 QUrl(), QUrl(u"https://a.example/a.png"_s), QUrl(u"https://a.example/a.pdf"_s)}),
        QStringList({u"1"_s, u"7"_s, u"2"_s}));
}

TEST_F(ReceiptScannerTest, GivesNothingForNoFiles) {
    EXPECT_EQ(scanned({}).size(), 0);
}

TEST_F(ReceiptScannerTest, GivesEveryDraftAnIdOfItsOwn) {
    const QUrl pdf = put(u"b.pdf"_s, textPdf());
    const QList<Subscription> drafts = scanned({pdf, pdf});
    ASSERT_EQ(drafts.size(), 2);
    EXPECT_NE(drafts[0].id, drafts[1].id);
    EXPECT_FALSE(drafts[0].id.isNull());
}

TEST(RecognizeTextTest, JoinsTheBestReadingsAsTheyCome) {
    ObservingRecognizer recognizer({observed({u"Total"_s, u"Tota1"_s}), observed({}),
                                    observed({u" a "_s}), observed({u""_s}), observed({u"z"_s})});
    EXPECT_EQ(ReceiptScanner::recognizeText(QImage(1, 1, QImage::Format_RGB32), recognizer),
              u"Total\n a \n\nz"_s);
}

TEST(RecognizeTextTest, IsEmptyWithoutABitmap) {
    ObservingRecognizer recognizer({observed({u"Total"_s})});
    EXPECT_EQ(ReceiptScanner::recognizeText(QImage(), recognizer), QString());
}

} // namespace tovarin
