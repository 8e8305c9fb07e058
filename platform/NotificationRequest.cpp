// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/NotificationRequest.h"

#include <QDate>
#include <QJsonArray>

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <array>
#include <cmath>

using namespace Qt::Literals::StringLiterals;
using namespace std::chrono;
using namespace std::chrono_literals;

namespace tovarin {

namespace {

/// Ten times as fast as QJsonDocument, which counts for thousands of them.
using JsonWriter = rapidjson::Writer<rapidjson::StringBuffer>;

constexpr qint64 julianDayOfEpoch = 2440588;
constexpr double largestExact = 9007199254740992.0; // 2^53

struct OptionName {
    PresentationOption option;
    QLatin1StringView name;
};

constexpr std::array optionNames = {
    OptionName{PresentationOption::sound, "sound"_L1},
    OptionName{PresentationOption::list, "list"_L1},
    OptionName{PresentationOption::banner, "banner"_L1},
};

/// Half a surrogate pair, which JSON may name and UTF-8 cannot hold, becomes a question mark, as it
/// does when it is written.
QString wellFormed(const QString &text) {
    return text.isValidUtf16() ? text : QString::fromUtf8(text.toUtf8());
}

QDate toDate(CivilDay day) {
    return QDate::fromJulianDay(julianDayOfEpoch + day.time_since_epoch().count());
}

std::optional<qint64> wholeNumber(const QJsonValue &value) {
    const double number = value.toDouble(largestExact);
    if (number != std::trunc(number) || std::abs(number) >= largestExact)
        return std::nullopt;
    return static_cast<qint64>(number);
}

std::optional<int> numberUpTo(int most, const QJsonValue &value) {
    const std::optional<qint64> number = wholeNumber(value);
    return number && *number >= 0 && *number <= most ? std::optional(static_cast<int>(*number))
                                                     : std::nullopt;
}

std::optional<CalendarTrigger> calendarTrigger(const QJsonObject &object) {
    const std::optional<qint64> year = wholeNumber(object["year"_L1]);
    const std::optional<int> month = numberUpTo(12, object["month"_L1]);
    const std::optional<int> day = numberUpTo(31, object["day"_L1]);
    const std::optional<int> hour = numberUpTo(23, object["hour"_L1]);
    const std::optional<int> minute = numberUpTo(59, object["minute"_L1]);
    if (!year || *year != static_cast<int>(*year) || !month || !day || !hour || !minute)
        return std::nullopt;
    const QDate date(static_cast<int>(*year), *month, *day);
    if (!date.isValid())
        return std::nullopt;
    return CalendarTrigger{CivilDay(days(date.toJulianDay() - julianDayOfEpoch)),
                           hours(*hour) + minutes(*minute)};
}

std::optional<PresentationOptions> presentationOf(const QJsonValue &value) {
    if (!value.isArray())
        return std::nullopt;
    PresentationOptions options;
    for (const QJsonValue name : value.toArray()) {
        const auto *const found =
            std::ranges::find(optionNames, name.toString(), &OptionName::name);
        if (found == optionNames.end())
            return std::nullopt;
        options |= found->option;
    }
    return options;
}

} // namespace

bool NotificationRequest::isValid() const {
    if (identifier.isEmpty() || identifier.size() > longestIdentifier ||
        title.size() > longestText || body.size() > longestText)
        return false;
    if (const auto *const after = std::get_if<TimeIntervalTrigger>(&trigger))
        return after->interval > 0ms && after->interval <= longestInterval;
    const auto &calendar = std::get<CalendarTrigger>(trigger);
    return toDate(calendar.day).isValid() && calendar.time >= 0min && calendar.time < 24h;
}

QByteArray NotificationRequest::toJson() const {
    rapidjson::StringBuffer buffer;
    JsonWriter writer(buffer);
    const auto writeText = [&](const char *key, const QString &text) {
        writer.Key(key);
        const QByteArray utf8 = text.toUtf8();
        writer.String(utf8.constData(), static_cast<rapidjson::SizeType>(utf8.size()));
    };
    const auto writeNumber = [&](const char *key, qint64 number) {
        writer.Key(key);
        writer.Int64(number);
    };
    writer.StartObject();
    writeText("identifier", identifier);
    writeText("title", title);
    writeText("body", body);
    writer.Key("presentation");
    writer.StartArray();
    for (const OptionName &option : optionNames) {
        if (presentation.testFlag(option.option))
            writer.String(option.name.data(), static_cast<rapidjson::SizeType>(option.name.size()));
    }
    writer.EndArray();
    if (const auto *const after = std::get_if<TimeIntervalTrigger>(&trigger)) {
        writeNumber("milliseconds", after->interval.count());
    } else {
        const auto &calendar = std::get<CalendarTrigger>(trigger);
        const QDate date = toDate(calendar.day);
        const hh_mm_ss time(calendar.time);
        writer.Key("calendar");
        writer.StartObject();
        writeNumber("year", date.year());
        writeNumber("month", date.month());
        writeNumber("day", date.day());
        writeNumber("hour", time.hours().count());
        writeNumber("minute", time.minutes().count());
        writer.EndObject();
    }
    writer.EndObject();
    return {buffer.GetString(), static_cast<qsizetype>(buffer.GetSize())};
}

std::optional<NotificationRequest> NotificationRequest::fromJson(const QJsonObject &object) {
    for (const auto key : {"identifier"_L1, "title"_L1, "body"_L1}) {
        if (!object[key].isString())
            return std::nullopt;
    }
    const std::optional<PresentationOptions> presentation =
        presentationOf(object["presentation"_L1]);
    if (!presentation || object.contains("calendar"_L1) == object.contains("milliseconds"_L1))
        return std::nullopt;
    NotificationRequest request{.identifier = wellFormed(object["identifier"_L1].toString()),
                                .title = wellFormed(object["title"_L1].toString()),
                                .body = wellFormed(object["body"_L1].toString()),
                                .presentation = *presentation,
                                .trigger = {}};
    if (object.contains("calendar"_L1)) {
        const std::optional<CalendarTrigger> calendar =
            calendarTrigger(object["calendar"_L1].toObject());
        if (!calendar)
            return std::nullopt;
        request.trigger = *calendar;
    } else {
        const std::optional<qint64> count = wholeNumber(object["milliseconds"_L1]);
        if (!count)
            return std::nullopt;
        request.trigger = TimeIntervalTrigger{milliseconds(*count)};
    }
    return request.isValid() ? std::optional(request) : std::nullopt;
}

} // namespace tovarin
