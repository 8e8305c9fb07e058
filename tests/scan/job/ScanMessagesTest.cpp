// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/job/ScanMessages.h"

#include "model/SubscriptionJson.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::ScanMessages {

namespace {

using Answer = std::variant<std::optional<Subscription>, Malformed>;

/// What the other side makes of an answer, which must be one line.
Answer decoded(const QByteArray &answer) {
    EXPECT_EQ(answer.count('\n'), 1);
    EXPECT_TRUE(answer.endsWith('\n'));
    return decodeAnswer(answer.chopped(1));
}

} // namespace

TEST(ScanMessagesTest, AsksForAPathInOneLine) {
    EXPECT_EQ(encodeRequest(u"/home/ann/bill.png"_s), "{\"path\":\"/home/ann/bill.png\"}\n");
    const QString path = u"/a\nb\r\"c\\\u2028账单🧾"_s;
    const QByteArray request = encodeRequest(path);
    EXPECT_EQ(request.count('\n'), 1);
    EXPECT_TRUE(request.endsWith('\n'));
    EXPECT_EQ(decodeRequest(request), path);
    EXPECT_EQ(decodeRequest(request.chopped(1)), path);
}

TEST(ScanMessagesTest, UnderstandsNoOtherRequest) {
    for (const QByteArray &line : {""_ba, "/a.png"_ba, "{}"_ba, "{\"path\":1}"_ba, "[\"path\"]"_ba,
                                   "{\"path\":null}"_ba, "{\"path\":\"a\""_ba, "null"_ba})
        EXPECT_EQ(decodeRequest(line), std::nullopt) << line.constData();
}

TEST(ScanMessagesTest, AnswersADraftInOneLine) {
    Subscription draft = sampleSubscription(u"Line\nbreak  🧾"_s);
    draft.notes = u"📷 识别原文：\n a  b\r\n\u2028\tc \"/\\"_s;
    EXPECT_EQ(decoded(encodeAnswer(draft)), Answer(draft));
}

TEST(ScanMessagesTest, AnswersNoDraftWithNull) {
    EXPECT_EQ(encodeAnswer(std::nullopt), "null\n");
    EXPECT_EQ(decodeAnswer("null"), Answer(std::nullopt));
}

TEST(ScanMessagesTest, BearsNoLongTextButTheNotes) {
    for (QString Subscription::*text :
         {&Subscription::name, &Subscription::currency, &Subscription::category}) {
        Subscription draft = sampleSubscription();
        draft.notes = QString(100'000, u'n');
        draft.*text = QString(longestText, u'x');
        EXPECT_EQ(decoded(encodeAnswer(draft)), Answer(draft));
        draft.*text += u'x';
        EXPECT_EQ(encodeAnswer(draft), "null\n");
        const QByteArray json = encodeSubscriptions({draft})->replace('\n', ' ');
        EXPECT_EQ(decodeAnswer(json), Answer(Malformed{}));
    }
}

TEST(ScanMessagesTest, AnswersADraftWithoutAJsonFormAsNone) {
    Subscription draft = sampleSubscription();
    draft.amount = std::numeric_limits<double>::infinity();
    EXPECT_EQ(encodeAnswer(draft), "null\n");
}

TEST(ScanMessagesTest, KeepsToTheLongestAnswer) {
    Subscription draft = sampleSubscription();
    draft.notes.clear();
    const qsizetype room = longestAnswer - (encodeAnswer(draft).size() - 1);
    draft.notes = QString(room, u'x');
    EXPECT_EQ(encodeAnswer(draft).size() - 1, longestAnswer);
    EXPECT_EQ(decoded(encodeAnswer(draft)), Answer(draft));
    draft.notes += u'x';
    EXPECT_EQ(encodeAnswer(draft), "null\n");
    const QByteArray tooLong = encodeSubscriptions({draft}).value();
    EXPECT_EQ(tooLong.size(), longestAnswer + 1);
    EXPECT_EQ(decodeAnswer(tooLong), Answer(Malformed()));
}

TEST(ScanMessagesTest, TakesNothingElseForAnAnswer) {
    const QByteArray one = encodeSubscriptions({sampleSubscription()}).value();
    const QByteArray two =
        encodeSubscriptions({sampleSubscription(), sampleSubscription()}).value();
    for (const QByteArray &line :
         {""_ba, " "_ba, "nul"_ba, "null "_ba, "Null"_ba, "[]"_ba, "{}"_ba, "[null]"_ba, two,
          one.chopped(1), one + "x", one + one, QByteArray(one).replace("\"name\"", "\"Name\"")})
        EXPECT_EQ(decodeAnswer(line), Answer(Malformed())) << line.constData();
}

} // namespace tovarin::ScanMessages
