// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

// The recogniser with its real models, on pictures drawn here.

#include "scan/recognition/NeuralTextRecognizer.h"

#include "tests/support/Printing.h"

#include <QFontDatabase>
#include <QPainter>

#include <gtest/gtest.h>

namespace tovarin {

using namespace Qt::Literals::StringLiterals;

namespace {

NeuralTextRecognizer &recognizer() {
    static NeuralTextRecognizer recognizer(TEXT_MODELS);
    return recognizer;
}

QStringList texts(const QList<TextObservation> &observations) {
    QStringList texts;
    for (const TextObservation &observation : observations)
        texts.append(observation.candidates.value(0).text);
    return texts;
}

const QList<QStringList> bill = {{u"账单详情"_s},
                                 {u"商品"_s, u"Netflix Premium"_s},
                                 {u"实付金额"_s, u"¥45.00"_s},
                                 {u"Total"_s, u"€12.99"_s},
                                 {u"支付时间"_s, u"2025-03-08 10:24:31"_s},
                                 {u"Status"_s, u"Payment received"_s}};

/// A bill of two columns, drawn large.
QImage drawnBill(QColor ink = Qt::black, QColor paper = Qt::white) {
    QImage image(720, 560, QImage::Format_RGB32);
    image.fill(paper);
    QPainter painter(&image);
    QFont font(QStringList{u"DejaVu Sans"_s, u"Noto Sans CJK SC"_s});
    font.setPixelSize(28);
    painter.setFont(font);
    painter.setPen(ink);
    int y = 40;
    for (const QStringList &row : bill) {
        painter.drawText(QRect(40, y, 300, 50), Qt::AlignLeft | Qt::AlignVCenter, row.first());
        if (row.size() > 1)
            painter.drawText(QRect(340, y, 340, 50), Qt::AlignRight | Qt::AlignVCenter, row.last());
        y += 84;
    }
    return image;
}

QStringList billTexts() {
    QStringList texts;
    for (const QStringList &row : bill)
        texts += row;
    return texts;
}

} // namespace

TEST(NeuralTextRecognizerTest, ReadsABillPieceByPiece) {
    EXPECT_EQ(texts(recognizer().recognize(drawnBill())), billTexts());
}

TEST(NeuralTextRecognizerTest, ReadsLightOnDark) {
    EXPECT_EQ(texts(recognizer().recognize(drawnBill(Qt::white, QColor(24, 24, 28)))), billTexts());
}

TEST(NeuralTextRecognizerTest, TellsWhereEachPieceStands) {
    const QList<TextObservation> observations = recognizer().recognize(drawnBill());
    ASSERT_EQ(observations.size(), 11);
    const auto &label = observations[1].box;
    const auto &value = observations[2].box;
    EXPECT_NEAR(label[0].x(), 38, 8);
    EXPECT_NEAR(label[0].y(), 132, 10);
    EXPECT_NEAR(value[1].x(), 682, 8);
    EXPECT_GT(value[0].x(), label[1].x());
    EXPECT_GT(label[3].y(), label[0].y());
}

TEST(NeuralTextRecognizerTest, ReadsAPageThatIsTurned) {
    for (const int degrees : {90, 180, 270}) {
        const QTransform turn = QTransform().rotate(degrees);
        const QImage image = drawnBill().transformed(turn);
        const QList<TextObservation> observations = recognizer().recognize(image);
        EXPECT_EQ(texts(observations), billTexts()) << degrees;
        ASSERT_FALSE(observations.isEmpty());
        const QPointF begin = QImage::trueMatrix(turn, 720, 560).map(QPointF(40, 50));
        const QPointF found = observations[0].box[0];
        EXPECT_NEAR(found.x(), begin.x(), 14) << degrees;
        EXPECT_NEAR(found.y(), begin.y(), 14) << degrees;
    }
}

TEST(NeuralTextRecognizerTest, GivesRankedCandidates) {
    for (const TextObservation &observation : recognizer().recognize(drawnBill())) {
        ASSERT_GE(observation.candidates.size(), 1);
        for (qsizetype i = 1; i < observation.candidates.size(); ++i) {
            EXPECT_LE(observation.candidates[i].confidence,
                      observation.candidates[i - 1].confidence);
            EXPECT_NE(observation.candidates[i].text, observation.candidates[0].text);
        }
        EXPECT_GT(observation.candidates[0].confidence, 0.5F);
        EXPECT_LE(observation.candidates[0].confidence, 1.F);
    }
}

TEST(NeuralTextRecognizerTest, GivesTheSameOnEveryRunAndWithAnyNumberOfThreads) {
    const QImage image = drawnBill();
    const QList<TextObservation> first = recognizer().recognize(image);
    for (const int threads : {1, 2, 3, 5}) {
        NeuralTextRecognizer other(TEXT_MODELS, threads);
        for (int run = 0; run < 2; ++run) {
            const QList<TextObservation> again = other.recognize(image);
            ASSERT_EQ(again.size(), first.size());
            for (qsizetype i = 0; i < first.size(); ++i) {
                EXPECT_EQ(again[i].candidates, first[i].candidates);
                EXPECT_EQ(again[i].box, first[i].box);
            }
        }
    }
}

TEST(NeuralTextRecognizerTest, FindsNothingWhereNothingIs) {
    QImage blank(300, 200, QImage::Format_RGB32);
    for (const QColor colour : {Qt::white, Qt::black, Qt::gray}) {
        blank.fill(colour);
        EXPECT_EQ(texts(recognizer().recognize(blank)), QStringList());
    }
    EXPECT_EQ(texts(recognizer().recognize(QImage())), QStringList());
}

TEST(NeuralTextRecognizerTest, TakesBitmapsOfAnyShapeAndFormat) {
    for (const QSize size : {QSize(1, 1), QSize(2, 900), QSize(3000, 3), QSize(31, 33)}) {
        QImage image(size, QImage::Format_ARGB32);
        image.fill(Qt::white);
        EXPECT_EQ(texts(recognizer().recognize(image)), QStringList());
    }
    for (const QImage::Format format : {QImage::Format_Grayscale8, QImage::Format_Indexed8,
                                        QImage::Format_RGBA64, QImage::Format_Mono}) {
        EXPECT_EQ(texts(recognizer().recognize(drawnBill().convertToFormat(format))), billTexts())
            << format;
    }
}

TEST(NeuralTextRecognizerTest, CannotBeMadeWithoutItsModels) {
    EXPECT_ANY_THROW(NeuralTextRecognizer("no such folder"));
}

} // namespace tovarin
