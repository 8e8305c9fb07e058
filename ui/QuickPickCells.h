// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QAbstractListModel>
#include <QList>
#include <QString>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

namespace tovarin {

/// The services of a region as the quick pick shows them, a cell each.
class QuickPickCells : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The quick pick's model has it.")

public:
    enum Role {
        NameRole = Qt::UserRole,
        PriceLabelRole,
        IconRole,
        LogoIDRole, ///< Of the service whose logo is shown; empty for its symbol.
        IsTickedRole,
        IsInStoreRole,   ///< Whether it counts as tracked already.
        CanBePickedRole, ///< Whether it can be pressed, to tick it or to take the tick away.
        TierLabelsRole,  ///< What the tier picker offers; empty where there is none.
        TierIndexRole,   ///< Of the chosen one; -1 without tiers.
    };
    Q_ENUM(Role)

    struct Cell {
        QString presetID;
        QString name;
        QString priceLabel;
        QString icon;
        QString logoID;
        bool isTicked = false;
        bool isInStore = false;
        QStringList tierLabels;
        int tierIndex = -1;

        bool canBePicked() const { return isTicked || !isInStore; }
    };

    explicit QuickPickCells(QObject *parent) : QAbstractListModel(parent) {}

    /// Shows these cells. While they stand for the same services, a view keeps its place and hears
    /// of what is different alone.
    void show(const QList<Cell> &cells);

    const QList<Cell> &cells() const { return m_cells; }

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    QList<Cell> m_cells;
};

} // namespace tovarin
