// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "model/SubscriptionJson.h"
#include "model/Timestamp.h"

#include <QUtf8StringView>

#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <array>
#include <bitset>
#include <charconv>
#include <cmath>
#include <string_view>

using namespace Qt::Literals::StringLiterals;

namespace tovarin {

namespace {

enum Field : std::size_t {
    Id,
    Name,
    Amount,
    Currency,
    Type,
    Cycle,
    StartDate,
    Category,
    Notes,
    IsActive,
    ServiceID,
    Unknown
};
constexpr std::size_t fieldCount = Unknown;

constexpr std::array<std::string_view, fieldCount> keys = {
    "id",        "name",     "amount", "currency", "billingType", "cycle",
    "startDate", "category", "notes",  "isActive", "serviceID"};

/// Why the last value of a key cannot be taken; null for one that can.
using Fault = const char *;

Field fieldOf(std::string_view key) {
    for (std::size_t i = 0; i < fieldCount; ++i) {
        if (keys[i] == key)
            return static_cast<Field>(i);
    }
    return Unknown;
}

int hexDigit(char c) {
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

/// The canonical form only, 8-4-4-4-12 hexadecimal digits; QUuid would also take braces and more.
std::optional<QUuid> parseUuid(std::string_view text) {
    if (text.size() != 36)
        return std::nullopt;
    std::array<char, 16> bytes{};
    std::size_t digits = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (i == 8 || i == 13 || i == 18 || i == 23) {
            if (text[i] != '-')
                return std::nullopt;
            continue;
        }
        const int digit = hexDigit(text[i]);
        if (digit < 0)
            return std::nullopt;
        char &byte = bytes[digits / 2];
        byte = static_cast<char>(byte << 4 | digit);
        ++digits;
    }
    return QUuid::fromRfc4122(QByteArrayView(bytes.data(), bytes.size()));
}

/// A half of a surrogate pair that an escape such as "\udc00" smuggled in.
bool holdsLoneSurrogate(std::string_view utf8) {
    for (std::size_t at = utf8.find('\xed'); at != std::string_view::npos;
         at = utf8.find('\xed', at + 1)) {
        if (at + 1 < utf8.size() && static_cast<unsigned char>(utf8[at + 1]) >= 0xa0)
            return true;
    }
    return false;
}

/// Which end of the range a number is beyond that no double holds: whether its first digit stands
/// for a power of ten that is positive.
bool isTooLarge(std::string_view text) {
    const std::size_t exponentAt = text.find_first_of("eE");
    const std::string_view digits = text.substr(0, exponentAt);
    const std::size_t point = std::min(digits.find('.'), digits.size());
    const std::size_t first = digits.find_first_of("123456789");
    qint64 exponent = 0;
    if (exponentAt != std::string_view::npos) {
        std::string_view power = text.substr(exponentAt + 1);
        if (power.starts_with('+'))
            power.remove_prefix(1);
        if (std::from_chars(power.begin(), power.end(), exponent).ec != std::errc())
            return !power.starts_with('-');
    }
    return static_cast<qint64>(point) - static_cast<qint64>(first) + exponent > 0;
}

/// The double nearest to a JSON number; no value when it is too large for one.
std::optional<double> parseNumber(std::string_view text) {
    double value = 0;
    const auto result = std::from_chars(text.begin(), text.end(), value);
    if (result.ec == std::errc())
        return value == 0 ? 0.0 : value; // minus zero is zero
    // from_chars tells no difference between too large and too small.
    return isTooLarge(text) ? std::nullopt : std::optional(0.0);
}

/// Takes the events of the JSON reader and builds the list. Returning false from an event ends the
/// reading; `error` then says why.
class Builder {
public:
    using Ch = char;

    QList<Subscription> list;
    std::optional<DecodingError> error;

    bool Null() {
        return value([this](Field field) { return takeNull(field); });
    }
    bool Bool(bool flag) {
        return value([this, flag](Field field) { return takeBool(field, flag); });
    }
    bool String(const char *text, rapidjson::SizeType size, bool /*copy*/) {
        const std::string_view utf8(text, size);
        if (holdsLoneSurrogate(utf8))
            return fail(u"a surrogate without its other half"_s);
        return value([this, utf8](Field field) { return takeString(field, utf8); });
    }
    bool RawNumber(const char *text, rapidjson::SizeType size, bool /*copy*/) {
        const std::optional<double> number = parseNumber(std::string_view(text, size));
        if (!number)
            return fail(u"a number beyond a double"_s);
        return value([this, number](Field field) { return takeNumber(field, *number); });
    }
    bool StartArray() {
        if (m_depth == 0) {
            ++m_depth;
            return true;
        }
        return startNested();
    }
    bool EndArray(rapidjson::SizeType /*count*/) {
        --m_depth;
        return true;
    }
    bool StartObject() {
        if (m_depth != recordDepth - 1)
            return startNested();
        ++m_depth;
        m_record = {};
        m_seen.reset();
        m_faults.fill(nullptr);
        return true;
    }
    bool Key(const char *text, rapidjson::SizeType size, bool /*copy*/) {
        const std::string_view key(text, size);
        if (holdsLoneSurrogate(key))
            return fail(u"a surrogate without its other half"_s);
        if (m_depth == recordDepth)
            m_field = fieldOf(key);
        return true;
    }
    bool EndObject(rapidjson::SizeType /*count*/) {
        if (m_depth-- != recordDepth)
            return true;
        for (std::size_t i = 0; i < fieldCount; ++i) {
            if (m_faults[i] != nullptr)
                return fail(QString::fromLatin1(m_faults[i]), static_cast<Field>(i));
            if (!m_seen[i] && i != ServiceID)
                return fail(u"missing"_s, static_cast<Field>(i));
        }
        list.append(std::move(m_record));
        return true;
    }

    // The reader hands numbers over as text, so it never calls these.
    bool Int(int) { return false; }
    bool Uint(unsigned) { return false; }
    bool Int64(std::int64_t) { return false; }
    bool Uint64(std::uint64_t) { return false; }
    bool Double(double) { return false; }

private:
    static constexpr int recordDepth = 2;

    bool fail(const QString &reason, Field field = Unknown) {
        const QString key = field == Unknown ? QString()
                                             : QString::fromLatin1(keys[field].data(),
                                                                   qsizetype(keys[field].size()));
        error = DecodingError{m_depth == 0 ? -1 : list.size(), key, reason};
        return false;
    }

    bool startNested() {
        const bool accepted = value([](Field) -> Fault { return "an array or object"; });
        ++m_depth;
        return accepted;
    }

    /// One value at the place the reader has come to. `take` stores it in a field of the record and
    /// says what is wrong with it; a later value of the same key replaces both.
    template <class Take>
    bool value(Take take) {
        if (m_depth == 0)
            return fail(u"not an array"_s);
        if (m_depth < recordDepth)
            return fail(u"not an object"_s);
        if (m_depth > recordDepth || m_field == Unknown)
            return true;
        m_seen.set(m_field);
        m_faults[m_field] = take(m_field);
        return true;
    }

    Fault takeNull(Field field) {
        if (field != ServiceID)
            return "null";
        m_record.serviceID.reset();
        return nullptr;
    }

    Fault takeBool(Field field, bool flag) {
        if (field != IsActive)
            return "a boolean";
        m_record.isActive = flag;
        return nullptr;
    }

    Fault takeNumber(Field field, double number) {
        if (field != Amount)
            return "a number";
        m_record.amount = number;
        return nullptr;
    }

    Fault takeString(Field field, std::string_view utf8) {
        const QUtf8StringView view(utf8.data(), static_cast<qsizetype>(utf8.size()));
        switch (field) {
        case Id:
            return assign(m_record.id, parseUuid(utf8), "not a UUID");
        case StartDate:
            return assign(m_record.startDate, Timestamp::parse(utf8), "not a date");
        case Type:
            return assign(m_record.billingType, billingTypeOf(view.toString()),
                          "not a billing type");
        case Cycle:
            return assign(m_record.cycle, billingCycleOf(view.toString()), "not a cycle");
        case Name:
            m_record.name = view.toString();
            return nullptr;
        case Currency:
            m_record.currency = view.toString();
            return nullptr;
        case Category:
            m_record.category = view.toString();
            return nullptr;
        case Notes:
            m_record.notes = view.toString();
            return nullptr;
        case ServiceID:
            m_record.serviceID = view.toString();
            return nullptr;
        case Amount:
        case IsActive:
        case Unknown:
            break;
        }
        return "a string";
    }

    template <class T>
    static Fault assign(T &to, const std::optional<T> &parsed, Fault otherwise) {
        if (!parsed)
            return otherwise;
        to = *parsed;
        return nullptr;
    }

    int m_depth = 0; ///< 0 outside, 1 in the array, 2 in a record, more inside a value of it.
    Field m_field = Unknown;
    Subscription m_record;
    std::bitset<fieldCount> m_seen;
    std::array<Fault, fieldCount> m_faults{};
};

} // namespace

std::variant<QList<Subscription>, DecodingError> decodeSubscriptions(const QByteArray &json) {
    if (!QUtf8StringView(json).isValidUtf8())
        return DecodingError{-1, {}, u"not UTF-8"_s};

    // Without recursion, so that no nesting, however deep, overflows the stack.
    constexpr unsigned flags =
        rapidjson::kParseIterativeFlag | rapidjson::kParseNumbersAsStringsFlag;
    rapidjson::Reader reader;
    rapidjson::StringStream stream(json.constData());
    Builder builder;
    const rapidjson::ParseResult result = reader.Parse<flags>(stream, builder);
    if (builder.error)
        return *builder.error;
    if (result.IsError()) {
        return DecodingError{
            -1,
            {},
            u"%1 At byte %2."_s.arg(QLatin1String(rapidjson::GetParseError_En(result.Code())))
                .arg(result.Offset())};
    }
    // The reader takes a NUL byte for the end of the text.
    if (stream.Tell() != static_cast<std::size_t>(json.size()))
        return DecodingError{-1, {}, u"a NUL byte"_s};
    return std::move(builder.list);
}

} // namespace tovarin
