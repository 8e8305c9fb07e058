// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/NotificationRequest.h"

#include "tests/support/NotificationPrinting.h"
#include "tests/support/Printing.h"
#include "tests/support/Samples.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

constexpr PresentationOptions everything{PresentationOption::banner | PresentationOption::list |
                                         PresentationOption::sound};

NotificationRequest atTen() {
    return {.identifier = u"renew-1"_s,
            .title = u"订阅即将续费"_s,
            .body = u"a \"b\"\n"_s,
            .presentation = everything,
            .trigger = CalendarTrigger{civilDay("2025-03-09"), 10h + 5min}};
}

NotificationRequest inThreeSeconds() {
    NotificationRequest request = atTen();
    request.presentation = {};
    request.trigger = TimeIntervalTrigger{3s};
    return request;
}

QJsonObject object(const char *json) {
    const QJsonDocument document = QJsonDocument::fromJson(json);
    EXPECT_TRUE(document.isObject()) << json;
    return document.object();
}

const QJsonObject calendarObject =
    object(R"({"year":2025,"month":3,"day":9,"hour":10,"minute":5})");

QJsonObject jsonOf(const NotificationRequest &request) {
    const QByteArray json = request.toJson();
    EXPECT_EQ(QJsonDocument::fromJson(json).toJson(QJsonDocument::Compact).size(), json.size())
        << "compact: " << json.toStdString();
    return QJsonDocument::fromJson(json).object();
}

/// The object of atTen() with another calendar.
QJsonObject withCalendar(const char *key, const QJsonValue &value) {
    QJsonObject calendar = calendarObject;
    if (value.isUndefined())
        calendar.remove(QLatin1StringView(key));
    else
        calendar[QLatin1StringView(key)] = value;
    QJsonObject changed = jsonOf(atTen());
    changed[u"calendar"_s] = calendar;
    return changed;
}

} // namespace

TEST(NotificationRequest, HasAJsonForm) {
    EXPECT_EQ(jsonOf(atTen()), object(R"({"identifier":"renew-1","title":"订阅即将续费",
        "body":"a \"b\"\n","presentation":["sound","list","banner"],
        "calendar":{"year":2025,"month":3,"day":9,"hour":10,"minute":5}})"));
    EXPECT_EQ(jsonOf(inThreeSeconds()), object(R"({"identifier":"renew-1","title":"订阅即将续费",
        "body":"a \"b\"\n","presentation":[],"milliseconds":3000})"));
}

TEST(NotificationRequest, IsReadFromIt) {
    EXPECT_EQ(NotificationRequest::fromJson(jsonOf(atTen())), atTen());
    EXPECT_EQ(NotificationRequest::fromJson(jsonOf(inThreeSeconds())), inThreeSeconds());
    for (const PresentationOption option :
         {PresentationOption::sound, PresentationOption::list, PresentationOption::banner}) {
        NotificationRequest request = atTen();
        request.presentation = option;
        EXPECT_EQ(NotificationRequest::fromJson(jsonOf(request)), request);
    }
    using std::chrono::days;
    for (const days away : {days(0), days(-1), days(-800'000), days(365'000'000),
                            days(-365'000'000), days(100'000'000'000)}) {
        for (const std::chrono::minutes time : {0min, 1min, 59min, 60min, 1439min}) {
            NotificationRequest request = atTen();
            request.trigger = CalendarTrigger{CivilDay(away), time};
            EXPECT_EQ(NotificationRequest::fromJson(jsonOf(request)), request) << away.count();
        }
    }
    QJsonObject more = jsonOf(atTen());
    more[u"colour"_s] = u"red"_s;
    EXPECT_EQ(NotificationRequest::fromJson(more), atTen());
}

TEST(NotificationRequest, HoldsAnyText) {
    NotificationRequest request = atTen();
    request.title = u"\0\u0001\u001f\"\\/\u2028😀"_s;
    EXPECT_EQ(NotificationRequest::fromJson(jsonOf(request)), request);
    // Half a pair is no character; it becomes the same however it comes.
    request.body = u"a"_s + QChar(0xd83d) + u"b"_s;
    QJsonObject json = jsonOf(atTen());
    json[u"title"_s] = request.title;
    json[u"body"_s] = request.body;
    const auto read = NotificationRequest::fromJson(json);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->body, u"a?b"_s);
    EXPECT_EQ(NotificationRequest::fromJson(jsonOf(request)), read);
}

TEST(NotificationRequest, IsNotReadFromAnythingElse) {
    for (const char *key : {"identifier", "title", "body", "presentation", "calendar"}) {
        const QLatin1StringView name(key);
        QJsonObject changed = jsonOf(atTen());
        changed.remove(name);
        EXPECT_EQ(NotificationRequest::fromJson(changed), std::nullopt) << key;
        for (const QJsonValue &value :
             {QJsonValue(), QJsonValue(true), QJsonValue(1), QJsonValue(QJsonArray{1}),
              QJsonValue(QJsonArray{u"badge"_s}), QJsonValue(QJsonObject())}) {
            changed[name] = value;
            EXPECT_EQ(NotificationRequest::fromJson(changed), std::nullopt) << key;
        }
    }
    QJsonObject both = jsonOf(atTen());
    both[u"milliseconds"_s] = 3000;
    EXPECT_EQ(NotificationRequest::fromJson(both), std::nullopt);
    EXPECT_EQ(NotificationRequest::fromJson({}), std::nullopt);
}

TEST(NotificationRequest, TakesDaysAndTimesThatExist) {
    const double infinite = std::numeric_limits<double>::infinity();
    struct {
        const char *key;
        QList<QJsonValue> refused;
    } const cases[] = {
        {"year", {0, 2025.5, 1e10, -1e10, 1e300, infinite, u"2025"_s, QJsonValue::Undefined}},
        {"month", {0, 13, -1, 3.5, 4294967299.0, u"3"_s, QJsonValue::Undefined}},
        {"day", {0, 32, -1, 8.5, 1e300, u"9"_s, QJsonValue::Undefined}},
        {"hour", {24, -1, 9.5, 1e18, u"10"_s, QJsonValue::Undefined}},
        {"minute", {60, -1, 0.5, true, u"0"_s, QJsonValue::Undefined}},
    };
    for (const auto &[key, refused] : cases) {
        EXPECT_EQ(NotificationRequest::fromJson(
                      withCalendar(key, calendarObject[QLatin1StringView(key)])),
                  atTen());
        for (const QJsonValue &value : refused)
            EXPECT_EQ(NotificationRequest::fromJson(withCalendar(key, value)), std::nullopt)
                << key << ' ' << value.toVariant().toString().toStdString();
    }
    QJsonObject leap = withCalendar("month", 2);
    QJsonObject calendar = leap[u"calendar"_s].toObject();
    calendar[u"day"_s] = 29;
    leap[u"calendar"_s] = calendar;
    EXPECT_EQ(NotificationRequest::fromJson(leap), std::nullopt);
    calendar[u"year"_s] = 2024;
    leap[u"calendar"_s] = calendar;
    NotificationRequest expected = atTen();
    expected.trigger = CalendarTrigger{civilDay("2024-02-29"), 10h + 5min};
    EXPECT_EQ(NotificationRequest::fromJson(leap), expected);
}

TEST(NotificationRequest, TakesIntervalsOfSomeTime) {
    for (const QJsonValue &value :
         QList<QJsonValue>{0, -1, 0.5, 4503599627370497.0, 1e300, u"3000"_s, true}) {
        QJsonObject changed = jsonOf(inThreeSeconds());
        changed[u"milliseconds"_s] = value;
        EXPECT_EQ(NotificationRequest::fromJson(changed), std::nullopt)
            << value.toVariant().toString().toStdString();
    }
    for (const std::chrono::milliseconds interval : {1ms, 4503599627370496ms}) {
        NotificationRequest request = inThreeSeconds();
        request.trigger = TimeIntervalTrigger{interval};
        EXPECT_EQ(NotificationRequest::fromJson(jsonOf(request)), request);
    }
}

TEST(NotificationRequest, TakesTextsOfSomeLength) {
    NotificationRequest request = atTen();
    request.identifier = QString(NotificationRequest::longestIdentifier, u'i');
    request.title = QString(NotificationRequest::longestText, u't');
    request.body = QString(NotificationRequest::longestText, u'b');
    EXPECT_TRUE(request.isValid());
    EXPECT_EQ(NotificationRequest::fromJson(jsonOf(request)), request);
    for (QString NotificationRequest::*const text :
         {&NotificationRequest::identifier, &NotificationRequest::title,
          &NotificationRequest::body}) {
        NotificationRequest longer = request;
        (longer.*text).append(u'x');
        EXPECT_FALSE(longer.isValid());
        EXPECT_EQ(NotificationRequest::fromJson(jsonOf(longer)), std::nullopt);
    }
    request.title.clear();
    request.body.clear();
    EXPECT_TRUE(request.isValid());
    request.identifier.clear();
    EXPECT_FALSE(request.isValid());
}

} // namespace tovarin
