// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/SubscriptionListModel.h"

#include "catalog/Avatar.h"

namespace tovarin {

SubscriptionListModel::SubscriptionListModel(const UserCalendar &calendar, const ServiceLogo &logos,
                                             QObject *parent)
    : QAbstractListModel(parent), m_calendar(calendar), m_logos(logos) {}

void SubscriptionListModel::show(const QList<Subscription> &subs, Instant now) {
    const bool isSameLength = subs.size() == m_subs.size();
    if (!isSameLength)
        beginResetModel();
    m_subs = subs;
    m_now = now;
    m_texts.clear();
    if (!isSameLength)
        endResetModel();
    else if (!subs.isEmpty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

int SubscriptionListModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_subs.size());
}

QVariant SubscriptionListModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid())
        return {};
    switch (role) {
    case IDRole:
        return m_subs[index.row()].id.toString();
    case Qt::DisplayRole:
    case NameRole:
        return texts(index.row()).name;
    case TagRole:
        return texts(index.row()).tag;
    case SubtitleRole:
        return texts(index.row()).subtitle;
    case AmountTextRole:
        return texts(index.row()).amountText;
    case MonthlyTextRole:
        return texts(index.row()).monthlyText;
    case IsActiveRole:
        return texts(index.row()).isActive;
    case LogoIDRole:
        return m_logos.presetID(m_subs[index.row()]);
    case AvatarLetterRole:
        return avatarLetter(m_subs[index.row()].name);
    default:
        return {};
    }
}

QHash<int, QByteArray> SubscriptionListModel::roleNames() const {
    return {{IDRole, "subscriptionID"},
            {NameRole, "name"},
            {TagRole, "tag"},
            {SubtitleRole, "subtitle"},
            {AmountTextRole, "amountText"},
            {MonthlyTextRole, "monthlyText"},
            {IsActiveRole, "isActive"},
            {LogoIDRole, "logoID"},
            {AvatarLetterRole, "avatarLetter"}};
}

const SubscriptionTexts &SubscriptionListModel::texts(int row) const {
    const auto found = m_texts.constFind(row);
    return found != m_texts.cend()
               ? *found
               : *m_texts.insert(row, subscriptionTexts(m_subs[row], m_now, m_calendar));
}

} // namespace tovarin
