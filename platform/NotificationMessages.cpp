// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/NotificationMessages.h"

#include <QByteArrayList>
#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::NotificationMessages {

namespace {

struct Encoder {
    QByteArray operator()(const NotificationRequest &request) const {
        return "{\"add\":" + request.toJson() + '}';
    }
    QByteArray operator()(const RemovePending &removal) const {
        const QJsonObject object{{u"remove"_s, QJsonArray::fromStringList(removal.identifiers)}};
        return QJsonDocument(object).toJson(QJsonDocument::Compact);
    }
    QByteArray operator()(const RemoveAllPending &) const { return "{\"removeAll\":true}"; }
};

std::optional<Change> changeOf(const QJsonObject &object) {
    if (object.size() != 1)
        return std::nullopt;
    if (object["removeAll"_L1].toBool())
        return RemoveAllPending();
    if (object["add"_L1].isObject())
        return NotificationRequest::fromJson(object["add"_L1].toObject());
    if (!object["remove"_L1].isArray())
        return std::nullopt;
    RemovePending removal;
    for (const QJsonValue identifier : object["remove"_L1].toArray()) {
        if (!identifier.isString())
            return std::nullopt;
        removal.identifiers.append(identifier.toString());
    }
    return removal;
}

/// `itemOf` makes a value of each object of the array.
template <class Item, class ItemOf>
std::optional<QList<Item>> decodeList(const QByteArray &json, ItemOf itemOf) {
    const QJsonDocument document = QJsonDocument::fromJson(json);
    if (!document.isArray())
        return std::nullopt;
    QList<Item> items;
    for (const QJsonValue value : document.array()) {
        const std::optional<Item> item = value.isObject() ? itemOf(value.toObject()) : std::nullopt;
        if (!item)
            return std::nullopt;
        items.append(*item);
    }
    return items;
}

} // namespace

EncodedChanges encodeChanges(const QList<Change> &changes) {
    EncodedChanges encoded{"[", 0};
    for (const Change &change : changes) {
        const QByteArray next = std::visit(Encoder(), change);
        const qsizetype length = encoded.json.size() + next.size() + 2;
        if (encoded.count > 0 && length > longestChanges)
            break;
        if (encoded.count > 0)
            encoded.json += ',';
        encoded.json += next;
        ++encoded.count;
    }
    encoded.json += ']';
    return encoded;
}

std::optional<QList<Change>> decodeChanges(const QByteArray &json) {
    return json.size() > longestChanges ? std::nullopt : decodeList<Change>(json, changeOf);
}

QByteArray encodeRequests(const QList<NotificationRequest> &requests) {
    QByteArrayList each;
    for (const NotificationRequest &request : requests)
        each.append(request.toJson());
    return '[' + each.join(',') + ']';
}

std::optional<QList<NotificationRequest>> decodeRequests(const QByteArray &json) {
    return decodeList<NotificationRequest>(json, NotificationRequest::fromJson);
}

} // namespace tovarin::NotificationMessages
