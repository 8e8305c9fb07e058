// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/UpcomingListModel.h"

#include "catalog/Avatar.h"

namespace tovarin {

void UpcomingListModel::show(const QList<Store::Upcoming> &upcoming) {
    beginResetModel();
    m_upcoming = upcoming;
    m_texts.clear();
    m_texts.reserve(upcoming.size());
    for (const Store::Upcoming &charge : upcoming)
        m_texts.append(upcomingTexts(charge));
    endResetModel();
}

int UpcomingListModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_texts.size());
}

QVariant UpcomingListModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid())
        return {};
    const UpcomingTexts &texts = m_texts[index.row()];
    switch (role) {
    case Qt::DisplayRole:
    case NameRole:
        return texts.name;
    case AmountTextRole:
        return texts.amountText;
    case DueTextRole:
        return texts.dueText;
    case IsTodayRole:
        return texts.isToday;
    case LogoIDRole:
        return m_logos.presetID(m_upcoming[index.row()].sub);
    case AvatarLetterRole:
        return avatarLetter(m_upcoming[index.row()].sub.name);
    default:
        return {};
    }
}

QHash<int, QByteArray> UpcomingListModel::roleNames() const {
    return {{NameRole, "name"},       {AmountTextRole, "amountText"},
            {DueTextRole, "dueText"}, {IsTodayRole, "isToday"},
            {LogoIDRole, "logoID"},   {AvatarLetterRole, "avatarLetter"}};
}

} // namespace tovarin
