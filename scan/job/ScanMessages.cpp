// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "scan/job/ScanMessages.h"

#include "model/SubscriptionJson.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::ScanMessages {

namespace {

const QString pathKey = u"path"_s;
const QByteArray noDraft = "null"_ba;

bool hasLongText(const Subscription &draft) {
    return std::ranges::any_of(std::array{&draft.name, &draft.currency, &draft.category},
                               [](const QString *text) { return text->size() > longestText; });
}

} // namespace

QByteArray encodeRequest(const QString &path) {
    return QJsonDocument(QJsonObject{{pathKey, path}}).toJson(QJsonDocument::Compact) + '\n';
}

std::optional<QString> decodeRequest(const QByteArray &line) {
    const QJsonValue path = QJsonDocument::fromJson(line).object().value(pathKey);
    return path.isString() ? std::optional(path.toString()) : std::nullopt;
}

QByteArray encodeAnswer(const std::optional<Subscription> &draft) {
    std::optional<QByteArray> json;
    if (draft && !hasLongText(*draft))
        json = encodeSubscriptions({*draft});
    if (!json || json->size() > longestAnswer)
        return noDraft + '\n';
    // Inside a JSON text line feeds are escaped: these are layout only.
    return json->replace('\n', ' ') + '\n';
}

std::variant<std::optional<Subscription>, Malformed> decodeAnswer(const QByteArray &line) {
    if (line == noDraft)
        return std::nullopt;
    if (line.size() > longestAnswer)
        return Malformed{};
    const auto decoded = decodeSubscriptions(line);
    const auto *list = std::get_if<QList<Subscription>>(&decoded);
    if (!list || list->size() != 1 || hasLongText(list->first()))
        return Malformed{};
    return list->first();
}

} // namespace tovarin::ScanMessages
