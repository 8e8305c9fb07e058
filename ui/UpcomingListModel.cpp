// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/UpcomingListModel.h"

#include "catalog/Avatar.h"

namespace tovarin {

void UpcomingListModel::show(const QList<Store::Upcoming> &upcoming) {
    beginResetModel();
    m_upcoming = upcoming;
    m_texts.clear();
    endResetModel();
}

int UpcomingListModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_upcoming.size());
}

QVariant UpcomingListModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid())
        return {};
    switch (role) {
    case Qt::DisplayRole:
    case NameRole:
        return texts(index.row()).name;
    case AmountTextRole:
        return texts(index.row()).amountText;
    case DueTextRole:
        return texts(index.row()).dueText;
    case IsTodayRole:
        return texts(index.row()).isToday;
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

const UpcomingTexts &UpcomingListModel::texts(int row) const {
    const auto found = m_texts.constFind(row);
    return found != m_texts.cend() ? *found : *m_texts.insert(row, upcomingTexts(m_upcoming[row]));
}

} // namespace tovarin
