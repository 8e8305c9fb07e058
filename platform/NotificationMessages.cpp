// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "platform/NotificationMessages.h"

#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::Literals::StringLiterals;

namespace tovarin::NotificationMessages {

namespace {

struct Encoder {
    QJsonObject operator()(const NotificationRequest &request) const {
        return {{u"add"_s, request.toJson()}};
    }
    QJsonObject operator()(const RemovePending &removal) const {
        return {{u"remove"_s, QJsonArray::fromStringList(removal.identifiers)}};
    }
    QJsonObject operator()(const RemoveAllPending &) const { return {{u"removeAll"_s, true}}; }
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

QByteArray encode(const Change &change) {
    return QJsonDocument(std::visit(Encoder(), change)).toJson(QJsonDocument::Compact);
}

} // namespace

EncodedChanges encodeChanges(const QList<Change> &changes) {
    EncodedChanges encoded{"[", 0};
    for (const Change &change : changes) {
        const QByteArray next = encode(change);
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
    QJsonArray array;
    for (const NotificationRequest &request : requests)
        array.append(request.toJson());
    return QJsonDocument(array).toJson(QJsonDocument::Compact);
}

std::optional<QList<NotificationRequest>> decodeRequests(const QByteArray &json) {
    return decodeList<NotificationRequest>(json, NotificationRequest::fromJson);
}

} // namespace tovarin::NotificationMessages
