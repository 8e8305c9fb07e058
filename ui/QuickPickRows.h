// SPDX-FileCopyrightText: The Tovarin developers
// SPDX-License-Identifier: MIT

#pragma once

#include "catalog/ServiceLogo.h"
#include "catalog/ServicePreset.h"

#include <QAbstractListModel>
#include <QList>
#include <QtQml/qqmlregistration.h>

namespace tovarin {

/// One service to be confirmed. Its row is known by the id of the subscription.
struct ConfirmItem {
    ServicePreset preset;      ///< What it was made from.
    Subscription subscription; ///< What will be added.

    bool operator==(const ConfirmItem &) const = default;
};

/// What the quick pick is about to add, a row each, with amounts that can be changed.
class QuickPickRows : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The quick pick's model has it.")

public:
    enum Role {
        NameRole = Qt::UserRole,
        IconRole,
        LogoIDRole, ///< Of the service whose logo is shown; empty for its symbol.
        AmountRole,
        CycleLabelRole,
        LacksAmountRole, ///< Whether the amount is 0 or less.
    };
    Q_ENUM(Role)

    /// `logos` must outlive the model.
    explicit QuickPickRows(const ServiceLogo &logos, QObject *parent = nullptr)
        : QAbstractListModel(parent), m_logos(logos) {}

    const QList<ConfirmItem> &items() const { return m_items; }
    void setItems(const QList<ConfirmItem> &items);

    /// Nothing for a row that there is not.
    void setAmount(int row, double amount);

    /// The language is another. Names stay as they are; they are what will be stored.
    void followLanguage();

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

private:
    const ServiceLogo &m_logos;
    QList<ConfirmItem> m_items;
};

} // namespace tovarin
