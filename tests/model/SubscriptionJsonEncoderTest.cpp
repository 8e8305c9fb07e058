// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "model/SubscriptionJson.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

Subscription musicPlus() {
    Subscription sub = sampleSubscription();
    sub.id = QUuid(u"0f6a1c2e-5b7d-4e8f-9a10-b2c3d4e5f607"_s);
    sub.startDate = instant("2025-03-01T16:00:00Z");
    return sub;
}

/// The one line of the record's text that holds this key, without indent and comma.
QByteArray line(const Subscription &sub, const QByteArray &key) {
    for (const QByteArray &text : encodeSubscriptions({sub}).value().split('\n')) {
        if (text.trimmed().startsWith("\"" + key + "\""))
            return text.trimmed().endsWith(',') ? text.trimmed().chopped(1) : text.trimmed();
    }
    return {};
}

} // namespace

TEST(Encoder, WritesAnEmptyList) {
    EXPECT_EQ(encodeSubscriptions({}), "[]");
}

TEST(Encoder, LaysTheFileOut) {
    Subscription second = musicPlus();
    second.id = QUuid(u"e621e1f8-c36c-495a-93fc-0c247a3e6e5f"_s);
    second.name = u"Cloud \"Box\""_s;
    second.amount = 9.99;
    second.currency = u"USD"_s;
    second.billingType = BillingType::oneTime;
    second.cycle = BillingCycle::yearly;
    second.category = u"AI/工具"_s;
    second.notes = u"line 1\nline 2"_s;
    second.isActive = false;
    second.serviceID = u"cloudbox"_s;
    EXPECT_EQ(encodeSubscriptions({musicPlus(), second}), R"([
  {
    "amount" : 30,
    "billingType" : "recurring",
    "category" : "音乐",
    "currency" : "CNY",
    "cycle" : "monthly",
    "id" : "0F6A1C2E-5B7D-4E8F-9A10-B2C3D4E5F607",
    "isActive" : true,
    "name" : "Music Plus",
    "notes" : "",
    "startDate" : "2025-03-01T16:00:00Z"
  },
  {
    "amount" : 9.99,
    "billingType" : "oneTime",
    "category" : "AI\/工具",
    "currency" : "USD",
    "cycle" : "yearly",
    "id" : "E621E1F8-C36C-495A-93FC-0C247A3E6E5F",
    "isActive" : false,
    "name" : "Cloud \"Box\"",
    "notes" : "line 1\nline 2",
    "serviceID" : "cloudbox",
    "startDate" : "2025-03-01T16:00:00Z"
  }
])");
}

TEST(Encoder, WritesAnEmptyServiceIDBecauseItIsOne) {
    Subscription sub = musicPlus();
    sub.serviceID = QString();
    EXPECT_EQ(line(sub, "serviceID"), "\"serviceID\" : \"\"");
    sub.serviceID.reset();
    EXPECT_EQ(line(sub, "serviceID"), QByteArray());
}

TEST(Encoder, WritesTheShortestFormOfANumber) {
    const QList<std::pair<double, QByteArray>> cases = {
        {25, "25"},
        {0, "0"},
        {-0.0, "0"},
        {-3, "-3"},
        {1.005, "1.005"},
        {2.675, "2.675"},
        {0.1 + 0.2, "0.30000000000000004"},
        {9.99, "9.99"},
        {100000, "100000"},
        {1000000, "1000000"},
        {123456789012, "123456789012"},
        {9007199254740991, "9007199254740991"},
        {-9007199254740991, "-9007199254740991"},
        {9007199254740992, "9007199254740992"},
        {1e21, "1e+21"},
        {1e22, "1e+22"},
        {0.5, "0.5"},
        {0.001, "0.001"},
        {5e-324, "5e-324"},
        {1.7976931348623157e308, "1.7976931348623157e+308"},
        {2251799813685248.5, "2251799813685248.5"},
        {1.0 / 3, "0.3333333333333333"},
    };
    for (const auto &[number, text] : cases) {
        Subscription sub = musicPlus();
        sub.amount = number;
        EXPECT_EQ(line(sub, "amount"), "\"amount\" : " + text);
    }
}

TEST(Encoder, EscapesWhatMustBeEscapedAndTheSlash) {
    Subscription sub = musicPlus();
    sub.notes = u"\"\\/\b\f\n\r\t"_s + QChar(0) + QChar(0x1f) + u"\u007f\u2028é中😀'<>&"_s;
    EXPECT_EQ(line(sub, "notes"), R"("notes" : "\"\\\/\b\f\n\r\t\u0000\u001f)"
                                  "\u007f\u2028é中😀'<>&\"");
}

TEST(Encoder, WritesEveryCharacterSoThatItComesBack) {
    QList<Subscription> list;
    for (char32_t c = 0; c <= 0x10ffff; c += c < 0x3000 ? 1 : 97) {
        if (c >= 0xd800 && c < 0xe000)
            continue;
        Subscription sub = musicPlus();
        sub.name = u'<' + QString::fromUcs4(&c, 1) + u'>';
        list.append(sub);
    }
    EXPECT_EQ(std::get<QList<Subscription>>(decodeSubscriptions(encodeSubscriptions(list).value())),
              list);
}

TEST(Encoder, ReplacesHalvesOfSurrogatePairsSoThatTheFileCanBeRead) {
    Subscription sub = musicPlus();
    sub.name = u"a"_s + QChar(0xd83d) + u"b"_s + QChar(0xde00);
    sub.notes = QString(QChar(0xd83d));
    sub.category = QString(QChar(0xde00)) + u"c"_s;
    const auto decoded =
        std::get<QList<Subscription>>(decodeSubscriptions(encodeSubscriptions({sub}).value()));
    ASSERT_EQ(decoded.size(), 1);
    EXPECT_EQ(decoded.first().name, u"a\ufffdb\ufffd"_s);
    EXPECT_EQ(decoded.first().notes, u"\ufffd"_s);
    EXPECT_EQ(decoded.first().category, u"\ufffdc"_s);
}

TEST(Encoder, DropsPartsOfASecond) {
    Subscription sub = musicPlus();
    sub.startDate += std::chrono::milliseconds(999);
    EXPECT_EQ(line(sub, "startDate"), "\"startDate\" : \"2025-03-01T16:00:00Z\"");
}

TEST(Encoder, HasNoTextForWhatCouldNotBeReadBack) {
    for (const double amount :
         {std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::quiet_NaN()}) {
        Subscription sub = musicPlus();
        sub.amount = amount;
        EXPECT_EQ(encodeSubscriptions({musicPlus(), sub}), std::nullopt);
    }
    Subscription late = musicPlus();
    late.startDate = instant("9999-12-31T23:59:59Z") + std::chrono::seconds(1);
    EXPECT_EQ(encodeSubscriptions({late}), std::nullopt);
}

} // namespace tovarin
