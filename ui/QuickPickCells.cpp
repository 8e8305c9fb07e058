// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#include "ui/QuickPickCells.h"

#include <algorithm>

namespace tovarin {

namespace {

QVariant value(const QuickPickCells::Cell &cell, int role) {
    switch (role) {
    case Qt::DisplayRole:
    case QuickPickCells::NameRole:
        return cell.name;
    case QuickPickCells::PriceLabelRole:
        return cell.priceLabel;
    case QuickPickCells::IconRole:
        return cell.icon;
    case QuickPickCells::LogoIDRole:
        return cell.logoID;
    case QuickPickCells::IsTickedRole:
        return cell.isTicked;
    case QuickPickCells::IsInStoreRole:
        return cell.isInStore;
    case QuickPickCells::CanBePickedRole:
        return cell.canBePicked();
    case QuickPickCells::TierLabelsRole:
        return cell.tierLabels;
    case QuickPickCells::TierIndexRole:
        return cell.tierIndex;
    default:
        return {};
    }
}

} // namespace

void QuickPickCells::show(const QList<Cell> &cells) {
    if (!std::ranges::equal(cells, m_cells, {}, &Cell::presetID, &Cell::presetID)) {
        beginResetModel();
        m_cells = cells;
        endResetModel();
        return;
    }
    const QList<Cell> before = m_cells;
    m_cells = cells;
    const QList<int> roles = roleNames().keys();
    for (qsizetype i = 0; i < cells.size(); ++i) {
        QList<int> changed;
        std::ranges::copy_if(roles, std::back_inserter(changed), [&](int role) {
            return value(before[i], role) != value(cells[i], role);
        });
        const QModelIndex at = index(static_cast<int>(i));
        if (!changed.isEmpty())
            Q_EMIT dataChanged(at, at, changed);
    }
}

int QuickPickCells::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(m_cells.size());
}

QVariant QuickPickCells::data(const QModelIndex &index, int role) const {
    return index.isValid() ? value(m_cells[index.row()], role) : QVariant();
}

QHash<int, QByteArray> QuickPickCells::roleNames() const {
    return {{NameRole, "name"},
            {PriceLabelRole, "priceLabel"},
            {IconRole, "icon"},
            {LogoIDRole, "logoID"},
            {IsTickedRole, "isTicked"},
            {IsInStoreRole, "isInStore"},
            {CanBePickedRole, "canBePicked"},
            {TierLabelsRole, "tierLabels"},
            {TierIndexRole, "tierIndex"}};
}

} // namespace tovarin
