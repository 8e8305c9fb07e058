// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "model/SubscriptionJson.h"
#include "model/Timestamp.h"

#include <QStringEncoder>

#include <array>
#include <charconv>
#include <cmath>

namespace tovarin {

namespace {

constexpr double wholeNumbersEnd = 9007199254740992.0; // 2^53

/// The shortest text that reads back as the same double; whole numbers a double counts exactly have
/// digits only, without exponent.
void appendNumber(QByteArray &to, double number) {
    std::array<char, 32> text{};
    char *const end = text.data() + text.size();
    const bool isWhole = std::abs(number) < wholeNumbersEnd && number == std::trunc(number);
    const auto result = isWhole ? std::to_chars(text.data(), end, static_cast<qint64>(number))
                                : std::to_chars(text.data(), end, number);
    to.append(text.data(), result.ptr - text.data());
}

void appendHex(QByteArray &to, unsigned value, int digits, const char *alphabet) {
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
        to.append(alphabet[value >> shift & 0xfU]);
}

/// Upper case, with hyphens.
void appendUuid(QByteArray &to, const QUuid &id) {
    constexpr const char *alphabet = "0123456789ABCDEF";
    appendHex(to, id.data1, 8, alphabet);
    to.append('-');
    appendHex(to, id.data2, 4, alphabet);
    to.append('-');
    appendHex(to, id.data3, 4, alphabet);
    for (int i = 0; i < 8; ++i) {
        if (i == 0 || i == 2)
            to.append('-');
        appendHex(to, id.data4[i], 2, alphabet);
    }
}

/// Appends a text character by character, escaped; the encoder turns lone surrogates into U+FFFD.
class TextWriter {
public:
    explicit TextWriter(QByteArray &to) : m_to(to) {}

    void append(const QString &text) {
        m_to.append('"');
        const QByteArray utf8 = m_encoder.encode(text);
        qsizetype written = 0;
        for (qsizetype i = 0; i < utf8.size(); ++i) {
            const char c = utf8[i];
            if (!needsEscape(c))
                continue;
            m_to.append(utf8.constData() + written, i - written);
            appendEscaped(c);
            written = i + 1;
        }
        m_to.append(utf8.constData() + written, utf8.size() - written);
        m_to.append('"');
    }

private:
    static bool needsEscape(char c) {
        return static_cast<unsigned char>(c) < 0x20 || c == '"' || c == '\\' || c == '/';
    }

    void appendEscaped(char c) {
        m_to.append('\\');
        switch (c) {
        case '\b':
            m_to.append('b');
            break;
        case '\t':
            m_to.append('t');
            break;
        case '\n':
            m_to.append('n');
            break;
        case '\f':
            m_to.append('f');
            break;
        case '\r':
            m_to.append('r');
            break;
        case '"':
        case '\\':
        case '/':
            m_to.append(c);
            break;
        default:
            m_to.append('u');
            appendHex(m_to, static_cast<unsigned char>(c), 4, "0123456789abcdef");
        }
    }

    QByteArray &m_to;
    QStringEncoder m_encoder{QStringEncoder::Utf8, QStringEncoder::Flag::Stateless};
};

/// One record, its keys in alphabetical order. False when it has no text.
bool appendRecord(QByteArray &to, TextWriter &writer, const Subscription &sub) {
    if (!std::isfinite(sub.amount))
        return false;
    to.append("  {\n    \"amount\" : ");
    appendNumber(to, sub.amount);
    to.append(",\n    \"billingType\" : ");
    writer.append(rawValue(sub.billingType));
    to.append(",\n    \"category\" : ");
    writer.append(sub.category);
    to.append(",\n    \"currency\" : ");
    writer.append(sub.currency);
    to.append(",\n    \"cycle\" : ");
    writer.append(rawValue(sub.cycle));
    to.append(",\n    \"id\" : \"");
    appendUuid(to, sub.id);
    to.append("\",\n    \"isActive\" : ");
    to.append(sub.isActive ? "true" : "false");
    to.append(",\n    \"name\" : ");
    writer.append(sub.name);
    to.append(",\n    \"notes\" : ");
    writer.append(sub.notes);
    if (sub.serviceID) {
        to.append(",\n    \"serviceID\" : ");
        writer.append(*sub.serviceID);
    }
    to.append(",\n    \"startDate\" : \"");
    if (!Timestamp::append(to, sub.startDate))
        return false;
    to.append("\"\n  }");
    return true;
}

} // namespace

std::optional<QByteArray> encodeSubscriptions(const QList<Subscription> &subscriptions) {
    constexpr qsizetype usualRecord = 384;
    QByteArray json;
    json.reserve(2 + subscriptions.size() * usualRecord);
    TextWriter writer(json);
    json.append('[');
    for (qsizetype i = 0; i < subscriptions.size(); ++i) {
        json.append(i == 0 ? "\n" : ",\n");
        if (!appendRecord(json, writer, subscriptions[i]))
            return std::nullopt;
    }
    json.append(subscriptions.isEmpty() ? "]" : "\n]");
    return json;
}

} // namespace tovarin
