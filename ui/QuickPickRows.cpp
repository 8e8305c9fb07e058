// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/QuickPickRows.h"

namespace tovarin {

void QuickPickRows::setItems(const QList<ConfirmItem> &items) {
    beginResetModel();
    m_items = items;
    endResetModel();
}

void QuickPickRows::setAmount(int row, double amount) {
    if (row < 0 || row >= rowCount() || m_items[row].subscription.amount == amount)
        return;
    m_items[row].subscription.amount = amount;
    Q_EMIT dataChanged(index(row), index(row), {AmountRole, LacksAmountRole});
}

void QuickPickRows::followLanguage() {
    if (!m_items.isEmpty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {CycleLabelRole});
}

int QuickPickRows::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_items.size());
}

QVariant QuickPickRows::data(const QModelIndex &index, int role) const {
    if (!index.isValid())
        return {};
    const auto &[preset, subscription] = m_items[index.row()];
    switch (role) {
    case Qt::DisplayRole:
    case NameRole:
        return subscription.name;
    case IconRole:
        return preset.icon;
    case LogoIDRole:
        return m_logos.image(preset.id).isNull() ? QString() : preset.id;
    case AmountRole:
        return subscription.amount;
    case CycleLabelRole:
        return label(subscription.cycle);
    case LacksAmountRole:
        return subscription.amount <= 0;
    default:
        return {};
    }
}

QHash<int, QByteArray> QuickPickRows::roleNames() const {
    return {{NameRole, "name"},
            {IconRole, "icon"},
            {LogoIDRole, "logoID"},
            {AmountRole, "amount"},
            {CycleLabelRole, "cycleLabel"},
            {LacksAmountRole, "lacksAmount"}};
}

} // namespace tovarin
