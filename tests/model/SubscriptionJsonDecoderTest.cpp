// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "model/SubscriptionJson.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <QMap>

#include <gtest/gtest.h>

#include <bit>
#include <limits>
#include <random>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

/// The members of one record, as JSON texts by key.
using Members = QMap<QByteArray, QByteArray>;

const Members sample = {
    {"amount", "30"},         {"billingType", "\"recurring\""},
    {"category", "\"音乐\""}, {"currency", "\"CNY\""},
    {"cycle", "\"monthly\""}, {"id", "\"0F6A1C2E-5B7D-4E8F-9A10-B2C3D4E5F607\""},
    {"isActive", "true"},     {"name", "\"Music Plus\""},
    {"notes", "\"\""},        {"startDate", "\"2025-03-01T16:00:00Z\""},
};

QByteArray object(const Members &members) {
    QByteArrayList parts;
    for (auto it = members.begin(); it != members.end(); ++it)
        parts.append("\"" + it.key() + "\":" + it.value());
    return "{" + parts.join(',') + "}";
}

Members with(const QByteArray &key, const QByteArray &value) {
    Members members = sample;
    members[key] = value;
    return members;
}

Subscription sampleRecord() {
    Subscription sub = sampleSubscription();
    sub.id = QUuid(u"0f6a1c2e-5b7d-4e8f-9a10-b2c3d4e5f607"_s);
    sub.startDate = instant("2025-03-01T16:00:00Z");
    return sub;
}

QList<Subscription> decoded(const QByteArray &json) {
    auto result = decodeSubscriptions(json);
    if (const auto *error = std::get_if<DecodingError>(&result)) {
        ADD_FAILURE() << testing::PrintToString(*error) << " in " << json.toStdString();
        return {};
    }
    return std::get<QList<Subscription>>(result);
}

/// The record whose one member is this; a refusal fails the test.
Subscription record(const QByteArray &key, const QByteArray &value) {
    const QList<Subscription> list = decoded("[" + object(with(key, value)) + "]");
    return list.isEmpty() ? Subscription() : list.first();
}

std::optional<DecodingError> refusal(const QByteArray &json) {
    const auto result = decodeSubscriptions(json);
    const auto *error = std::get_if<DecodingError>(&result);
    return error ? std::optional(*error) : std::nullopt;
}

std::optional<DecodingError> refusalOf(const QByteArray &key, const QByteArray &value) {
    return refusal("[" + object(with(key, value)) + "]");
}

DecodingError wrongField(const QString &field, const QString &reason, qsizetype index = 0) {
    return {index, field, reason};
}

} // namespace

TEST(Decoder, ReadsARecord) {
    EXPECT_EQ(decoded("[" + object(sample) + "]"), QList{sampleRecord()});
}

TEST(Decoder, ReadsAnEmptyListAndWhiteSpaceAroundIt) {
    EXPECT_EQ(decoded("[]"), QList<Subscription>());
    EXPECT_EQ(decoded(" \t\r\n[ \n ]\n "), QList<Subscription>());
}

TEST(Decoder, KeepsTheOrderOfTheList) {
    const QList<Subscription> list =
        decoded("[" + object(with("name", "\"b\"")) + "," + object(with("name", "\"a\"")) + "," +
                object(with("name", "\"c\"")) + "]");
    ASSERT_EQ(list.size(), 3);
    EXPECT_EQ(list[0].name + list[1].name + list[2].name, u"bac"_s);
}

TEST(Decoder, TakesAMissingOrNullServiceIDForNone) {
    EXPECT_EQ(decoded("[" + object(sample) + "]").first().serviceID, std::nullopt);
    EXPECT_EQ(record("serviceID", "null").serviceID, std::nullopt);
    EXPECT_EQ(record("serviceID", "\"\"").serviceID, u""_s);
    EXPECT_EQ(record("serviceID", "\"netflix\"").serviceID, u"netflix"_s);
}

TEST(Decoder, TakesEveryCaseOfTheEnumerations) {
    for (const BillingType type : allBillingTypes)
        EXPECT_EQ(record("billingType", "\"" + rawValue(type).toUtf8() + "\"").billingType, type);
    for (const BillingCycle cycle : allBillingCycles)
        EXPECT_EQ(record("cycle", "\"" + rawValue(cycle).toUtf8() + "\"").cycle, cycle);
    EXPECT_FALSE(record("isActive", "false").isActive);
}

TEST(Decoder, TakesIdsInAnyLetterCase) {
    EXPECT_EQ(record("id", "\"0f6a1c2e-5b7d-4e8f-9a10-b2c3d4e5f607\"").id, sampleRecord().id);
    EXPECT_EQ(record("id", "\"00000000-0000-0000-0000-000000000000\"").id, QUuid());
}

TEST(Decoder, ReadsNumbersExactly) {
    const QList<std::pair<QByteArray, double>> cases = {
        {"0", 0},
        {"25.0", 25},
        {"2.5e1", 25},
        {"-3", -3},
        {"1.005", 1.005},
        {"2.675", 2.675},
        {"0.30000000000000004", 0.1 + 0.2},
        {"1e21", 1e21},
        {"100000000000000000000000", 1e23},
        {"9007199254740993", 9007199254740992},
        {"5e-324", 5e-324},
        {"4.9406564584124654e-324", 5e-324},
        {"1.7976931348623157e308", std::numeric_limits<double>::max()},
        {"0.1e309", 1e308},
        {"0.000001e314", 1e308},
        {"1e-400", 0},
        {"-1e-400", 0},
        {"1e-999999999999999999999", 0},
        {"1000e-400", 0},
        {"0." + QByteArray(400, '0') + "1", 0},
        {"2.2250738585072011e-308", 2.2250738585072011e-308},
        {"17976931348623157081452742373170435679807056752584499659891747680315726078002853876058955"
         "8"
         "6327668781715404589535143824642343213268894641827684675467035375169860499105765512820762"
         "4549009038932894407586850845513394230458323690322294816580855933212334779e46",
         1.7976931348623157e296},
    };
    for (const auto &[text, value] : cases)
        EXPECT_EQ(record("amount", text).amount, value) << text.toStdString();
}

TEST(Decoder, ReadsMinusZeroAsZero) {
    for (const char *text : {"-0", "-0.0", "-0e5"})
        EXPECT_FALSE(std::signbit(record("amount", text).amount)) << text;
}

/// RapidJSON finds the number, the standard library reads it: every double must come back.
TEST(Decoder, ReadsBackWhatTheEncoderWrites) {
    std::mt19937_64 random(1);
    QList<Subscription> list;
    while (list.size() < 5'000) {
        Subscription sub = sampleRecord();
        sub.amount = std::bit_cast<double>(random());
        if (std::isfinite(sub.amount))
            list.append(sub);
    }
    EXPECT_EQ(decoded(encodeSubscriptions(list).value()), list);
}

TEST(Decoder, ReadsEscapesAndEveryPlaneOfUnicode) {
    EXPECT_EQ(record("notes", R"("\"\\\/\b\f\n\r\t\u00e9\u0000\ud83d\ude00")").notes,
              u"\"\\/\b\f\n\r\té\0😀"_s);
    EXPECT_EQ(record("notes", "\"中文 é 😀 \u007f\"").notes, u"中文 é 😀 \u007f"_s);
}

TEST(Decoder, PassesOverKeysItDoesNotKnow) {
    Members members = sample;
    members["future"] = R"({"amount":"x","list":[1,{"id":null},[[]]],"text":"]"})";
    members["Amount"] = "\"thirty\"";
    members[""] = "null";
    EXPECT_EQ(decoded("[" + object(members) + "]"), QList{sampleRecord()});
}

TEST(Decoder, PassesOverUnknownValuesNestedVeryDeep) {
    const qsizetype depth = 1'000'000;
    const QByteArray deep = QByteArray(depth, '[') + QByteArray(depth, ']');
    EXPECT_EQ(decoded("[" + object(with("future", deep)) + "]"), QList{sampleRecord()});
    EXPECT_TRUE(refusal(QByteArray(depth, '[')));
    EXPECT_TRUE(refusal("[" + object(with("name", deep)) + "]"));
}

TEST(Decoder, LetsTheLastOfTwoEqualKeysCount) {
    const QByteArray head = object(sample).chopped(1);
    EXPECT_EQ(decoded("[" + head + ",\"name\":\"second\"}]").first().name, u"second"_s);
    // A wrong value before the right one does not matter, and the other way round it does.
    EXPECT_EQ(decoded(R"([{"amount":"x",)" + object(sample).mid(1) + "]"), QList{sampleRecord()});
    EXPECT_EQ(refusal("[" + head + ",\"amount\":\"x\"}]"), wrongField(u"amount"_s, u"a string"_s));
    EXPECT_EQ(refusal("[" + head + ",\"notes\":null}]"), wrongField(u"notes"_s, u"null"_s));
    EXPECT_EQ(decoded("[" + head + R"(,"serviceID":"a","serviceID":null}])").first().serviceID,
              std::nullopt);
    EXPECT_EQ(decoded("[" + head + R"(,"n\u0061me":"escaped"}])").first().name, u"escaped"_s);
}

TEST(Decoder, WantsEveryKeyButServiceID) {
    for (const QByteArray &key : sample.keys()) {
        Members members = sample;
        members.remove(key);
        EXPECT_EQ(refusal("[" + object(members) + "]"),
                  wrongField(QString::fromLatin1(key), u"missing"_s))
            << key.toStdString();
    }
    EXPECT_TRUE(refusal("[{}]"));
}

TEST(Decoder, WantsTheRightTypeForEveryKey) {
    const QMap<QString, QByteArray> values = {{u"null"_s, "null"},
                                              {u"a boolean"_s, "true"},
                                              {u"a number"_s, "1"},
                                              {u"a string"_s, "\"text\""},
                                              {u"an array or object"_s, "[]"}};
    QStringList refused;
    for (QByteArray key : sample.keys() + QByteArrayList{"serviceID"}) {
        for (auto it = values.begin(); it != values.end(); ++it) {
            if (const auto error = refusalOf(key, it.value())) {
                EXPECT_EQ(error->index, 0);
                EXPECT_EQ(error->field, QString::fromLatin1(key));
                refused.append(error->field + u": "_s + error->reason);
            }
        }
        EXPECT_TRUE(refusalOf(key, "{}"));
        EXPECT_TRUE(refusalOf(key, "{\"" + key + "\":1}"));
    }
    const auto allBut = [&](const QString &key, const QString &good) {
        QStringList texts;
        for (const QString &type : values.keys()) {
            if (type != good)
                texts.append(key + u": "_s + type);
        }
        return texts;
    };
    QStringList expected = allBut(u"amount"_s, u"a number"_s);
    expected += u"billingType: null, billingType: a boolean, billingType: a number, "
                "billingType: not a billing type, billingType: an array or object"_s.split(u", "_s);
    expected += allBut(u"category"_s, u"a string"_s) + allBut(u"currency"_s, u"a string"_s);
    expected += u"cycle: null, cycle: a boolean, cycle: a number, cycle: not a cycle, "
                "cycle: an array or object"_s.split(u", "_s);
    expected += u"id: null, id: a boolean, id: a number, id: not a UUID, "
                "id: an array or object"_s.split(u", "_s);
    expected += allBut(u"isActive"_s, u"a boolean"_s) + allBut(u"name"_s, u"a string"_s) +
                allBut(u"notes"_s, u"a string"_s);
    expected += u"startDate: null, startDate: a boolean, startDate: a number, "
                "startDate: not a date, startDate: an array or object"_s.split(u", "_s);
    expected += u"serviceID: a boolean, serviceID: a number, serviceID: an array or object"_s.split(
        u", "_s);
    refused.sort();
    expected.sort();
    EXPECT_EQ(refused, expected);
}

TEST(Decoder, RefusesUnknownRawValues) {
    for (const char *text : {"\"daily\"", "\"Monthly\"", "\"\"", "\"monthly \""})
        EXPECT_EQ(refusalOf("cycle", text), wrongField(u"cycle"_s, u"not a cycle"_s));
    for (const char *text : {"\"onetime\"", "\"one-time\"", "\"\""})
        EXPECT_EQ(refusalOf("billingType", text),
                  wrongField(u"billingType"_s, u"not a billing type"_s));
}

TEST(Decoder, RefusesIdsInAnotherForm) {
    for (const char *text :
         {"", "{0F6A1C2E-5B7D-4E8F-9A10-B2C3D4E5F607}", "0F6A1C2E5B7D4E8F9A10B2C3D4E5F607",
          "0F6A1C2E-5B7D-4E8F-9A10-B2C3D4E5F60", "0F6A1C2E-5B7D-4E8F-9A10-B2C3D4E5F6077",
          "0F6A1C2E-5B7D-4E8F-9A10-B2C3D4E5F60G", "0F6A1C2E-5B7D-4E8F-9A1-0B2C3D4E5F607",
          "0F6A1C2E 5B7D-4E8F-9A10-B2C3D4E5F607", " 0F6A1C2E-5B7D-4E8F-9A10-B2C3D4E5F60"})
        EXPECT_EQ(refusalOf("id", "\"" + QByteArray(text) + "\""),
                  wrongField(u"id"_s, u"not a UUID"_s))
            << text;
}

TEST(Decoder, RefusesDatesInAnotherForm) {
    for (const char *text : {"2025-03-01T16:00:00.5Z", "2025-03-01T16:00:00+08:00", "2025-03-01",
                             "2025-02-30T16:00:00Z", "2025-03-01T25:00:00Z", ""})
        EXPECT_EQ(refusalOf("startDate", "\"" + QByteArray(text) + "\""),
                  wrongField(u"startDate"_s, u"not a date"_s))
            << text;
}

TEST(Decoder, RefusesNumbersBeyondADouble) {
    for (const char *text : {"1e309", "-1e309", "1e999999999999", "1234567890e300",
                             "1.7976931348623159e308", "0.0001e313", "1e+400", "1E400"}) {
        EXPECT_TRUE(refusalOf("amount", text)) << text;
        EXPECT_TRUE(refusalOf("future", text)) << text;
    }
}

TEST(Decoder, RefusesWhatIsNoJson) {
    const QByteArray good = object(sample);
    for (const QByteArray &json :
         {QByteArray(), QByteArray(" "), QByteArray("["), QByteArray("]"), "[" + good,
          "[" + good + ",]", "[" + good + good + "]", "[" + good + "]]", "[" + good + "] x",
          "[" + good + "]" + QByteArray(1, 0), "[" + good + "]" + QByteArray(1, 0) + " ",
          "[" + good.chopped(1) + ",}]", "[// comment\n" + good + "]",
          "[" + QByteArray(good).replace('"', '\'') + "]", "\xef\xbb\xbf[" + good + "]",
          QByteArray("nul"), QByteArray("[NaN]")})
        EXPECT_TRUE(refusal(json)) << json.toStdString();
    for (const char *number :
         {"NaN", "Infinity", "-Infinity", "+1", ".5", "5.", "01", "0x10", "1e", "--1", "1_000"})
        EXPECT_TRUE(refusalOf("amount", number)) << number;
}

TEST(Decoder, RefusesWhatIsNoListOfObjects) {
    const QByteArray good = object(sample);
    for (const QByteArray &json : {QByteArray("{}"), QByteArray("null"), QByteArray("\"text\""),
                                   QByteArray("7"), QByteArray("true"), good})
        EXPECT_EQ(refusal(json), (DecodingError{-1, {}, u"not an array"_s})) << json.toStdString();
    for (const QByteArray &element : {QByteArray("null"), QByteArray("1"), QByteArray("\"text\""),
                                      QByteArray("false"), QByteArray("[]"), "[" + good + "]"})
        EXPECT_EQ(refusal("[" + good + "," + element + "]"),
                  (DecodingError{1, {}, u"not an object"_s}))
            << element.toStdString();
}

TEST(Decoder, RefusesTextThatIsNotUnicode) {
    for (const char *bytes :
         {"\xff", "\xc3", "\xc0\xaf", "\xe2\x82", "\xed\xa0\xbd\xed\xb8\x80", "\xf5\x80\x80\x80"})
        EXPECT_EQ(refusalOf("notes", "\"" + QByteArray(bytes) + "\""),
                  (DecodingError{-1, {}, u"not UTF-8"_s}));
    for (const char *escape :
         {"\\ud83d", "\\ude00", "\\ude00\\ud83d", "\\ud83dx", "\\uZZZZ", "\\x41", "\\u12", "\\'"}) {
        EXPECT_TRUE(refusalOf("notes", "\"" + QByteArray(escape) + "\"")) << escape;
        EXPECT_TRUE(refusalOf("future", "\"" + QByteArray(escape) + "\"")) << escape;
        EXPECT_TRUE(refusalOf(escape, "1")) << escape;
    }
    // Hangul begins with the same byte as a surrogate would.
    EXPECT_EQ(record("notes", "\"한국어 힣\"").notes, u"한국어 힣"_s);
}

TEST(Decoder, RefusesRawControlCharacters) {
    for (char c = 0; c < 0x20; ++c)
        EXPECT_TRUE(refusalOf("notes", QByteArray("\"a") + c + "b\"")) << int(c);
    EXPECT_FALSE(refusalOf("notes", "\"\x7f\""));
}

TEST(Decoder, RefusesTheWholeListForOneWrongRecordAndSaysWhich) {
    const QByteArray good = object(sample);
    const QByteArray bad = object(with("cycle", "\"daily\""));
    EXPECT_EQ(refusal("[" + good + "," + good + "," + bad + "," + good + "]"),
              wrongField(u"cycle"_s, u"not a cycle"_s, 2));
}

TEST(Decoder, RefusesAFileCutAtAnyByte) {
    const QByteArray whole = encodeSubscriptions({sampleRecord(), sampleSubscription()}).value();
    EXPECT_EQ(decoded(whole).size(), 2);
    for (qsizetype size = 0; size < whole.size(); ++size)
        EXPECT_TRUE(refusal(whole.first(size))) << size;
}

} // namespace tovarin
